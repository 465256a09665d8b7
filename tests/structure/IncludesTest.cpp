// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// The rooms of src/ and what each may include: only rooms on the floors below it. A new room or a
// new arrow is entered here, and in docs/architecture.md, on purpose.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

namespace {

const std::map<std::string, std::set<std::string>> Below = {
    {"platform", {}},
    {"png", {"platform/DrawingSurface.h", "platform/LargeBuffer.h"}},
    {"model", {"platform"}},
    {"view", {"platform", "model", "png"}},
    {"edit", {"platform", "model", "view"}},
    {"dialogs", {"platform", "model", "view"}},
    {"app", {"platform", "model", "view", "edit", "dialogs"}},
};

// What stands between the quotes of an #include; empty for any other line.
std::string IncludedHeader(const std::string& line) {
    const std::size_t first = line.find('"');
    const std::size_t last = line.rfind('"');
    return line.starts_with("#include") && first < last ? line.substr(first + 1, last - first - 1)
                                                        : std::string();
}

TEST(Includes, PointDownOnly) {
    const std::filesystem::path source = SOURCE_FOLDER;
    int arrows = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(source)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") {
            continue;
        }
        const auto relative = entry.path().lexically_relative(source);
        const std::string room = relative.begin()->string();
        ASSERT_TRUE(Below.contains(room)) << relative;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            const std::string header = IncludedHeader(line);
            const std::string floor = header.substr(0, header.find('/'));
            if (Below.contains(floor)) {
                ++arrows;
                EXPECT_TRUE(floor == room || Below.at(room).contains(floor) ||
                            Below.at(room).contains(header))
                    << relative << " includes " << header;
            }
        }
    }
    EXPECT_GT(arrows, 50);
}

} // namespace
