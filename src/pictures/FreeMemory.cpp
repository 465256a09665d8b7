// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/FreeMemory.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#if defined(__linux__)
#include <filesystem>
#include <fstream>
#include <string>
#elif defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace editor {
namespace {

constexpr std::uint64_t Unknown = std::numeric_limits<std::uint64_t>::max();

#if defined(__linux__)

// The number that stands behind `name` in a file of names and numbers, or at the file's beginning
// when the name is empty.
std::uint64_t Number(const std::filesystem::path& path, const std::string& name = {}) {
    std::ifstream file(path);
    for (std::string word; !name.empty() && word != name && file >> word;) {
    }
    std::uint64_t number = 0;
    return file >> number ? number : Unknown;
}

// Control groups have their limits in a tree of folders, one each for a group and those above it.
struct Hierarchy {
    std::string root;
    const char* limit;
    const char* usage;
    const char* cache; // in memory.stat: the part of the usage that the system takes back at will
};

std::uint64_t LeftInGroup(const std::filesystem::path& folder, const Hierarchy& names) {
    const std::uint64_t limit = Number(folder / names.limit);
    const std::uint64_t usage = Number(folder / names.usage);
    if (limit == Unknown || usage == Unknown) {
        return Unknown;
    }
    const std::uint64_t cache = Number(folder / "memory.stat", names.cache);
    const std::uint64_t used = usage - (cache == Unknown ? 0 : std::min(cache, usage));
    return limit - std::min(used, limit);
}

std::uint64_t LeftInGroups() {
    const Hierarchy versions[] = {
        {"/sys/fs/cgroup/memory", "memory.limit_in_bytes", "memory.usage_in_bytes",
         "total_inactive_file"},
        {"/sys/fs/cgroup", "memory.max", "memory.current", "inactive_file"}};
    std::uint64_t left = Unknown;
    std::ifstream groups("/proc/self/cgroup"); // lines number:controllers:/path
    std::string controllers;
    std::string path;
    while (std::getline(std::getline(groups.ignore(32, ':'), controllers, ':'), path)) {
        if (controllers != "memory" && !controllers.empty()) {
            continue;
        }
        const Hierarchy& names = versions[controllers.empty() ? 1 : 0];
        for (auto end = path.size(); end != std::string::npos; end = path.rfind('/')) {
            path.resize(end);
            left = std::min(left, LeftInGroup(names.root + path, names));
        }
    }
    return left;
}

std::uint64_t Left() {
    const std::uint64_t kibibytes = Number("/proc/meminfo", "MemAvailable:");
    return std::min(kibibytes == Unknown ? Unknown : kibibytes * 1024, LeftInGroups());
}

#elif defined(_WIN32)

std::uint64_t Left() {
    MEMORYSTATUSEX status;
    status.dwLength = sizeof status;
    if (!GlobalMemoryStatusEx(&status)) {
        return Unknown;
    }
    return std::min({status.ullAvailPhys, status.ullAvailPageFile, status.ullAvailVirtual});
}

#else

std::uint64_t Left() {
    return Unknown;
}

#endif

} // namespace

std::uint64_t FreeMemory() {
    // No more than a program can address, which is less than a machine has where pointers are
    // short.
    return std::min<std::uint64_t>(Left(), std::numeric_limits<std::ptrdiff_t>::max());
}

} // namespace editor
