// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "faults/FailingCalls.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

namespace editor::test {
namespace {

bool armed = false;
int calls = 0;
Fault planned;
std::string failed;
bool diskFull = false; // it took half of a write, and takes no more

/// True when the call that asks must fail; errno is set then.
bool Fails(const char* name) {
    if (!armed || ++calls != planned.number) {
        return false;
    }
    if (planned.error == 0) {
        ::kill(::getpid(), SIGKILL);
    }
    failed = name;
    errno = planned.error;
    return true;
}

} // namespace

void Arm(const Fault& fault) {
    planned = fault;
    calls = 0;
    failed.clear();
    diskFull = false;
    armed = true;
}

std::string Disarm() {
    armed = false;
    diskFull = false;
    return failed;
}

} // namespace editor::test

using editor::test::diskFull;
using editor::test::Fails;
using editor::test::planned;

// NOLINTBEGIN(bugprone-reserved-identifier): the C library's names are the point.
extern "C" {

#define INJECT(type, name, parameters, arguments)                                                  \
    type name parameters {                                                                         \
        static const auto real = reinterpret_cast<type(*) parameters>(::dlsym(RTLD_NEXT, #name));  \
        return Fails(#name) ? -1 : real arguments;                                                 \
    }

INJECT(int, open, (const char* path, int flags, mode_t mode), (path, flags, mode))
INJECT(int, open64, (const char* path, int flags, mode_t mode), (path, flags, mode))
INJECT(int, fdatasync, (int fd), (fd))
INJECT(int, close, (int fd), (fd))
INJECT(int, fchmod, (int fd, mode_t mode), (fd, mode))
INJECT(int, rename, (const char* from, const char* to), (from, to))
INJECT(int, linkat, (int a, const char* from, int b, const char* to, int flags),
       (a, from, b, to, flags))

int fsync(int fd) {
    static const auto real = reinterpret_cast<int (*)(int)>(::dlsym(RTLD_NEXT, "fsync"));
    struct stat file = {};
    ::fstat(fd, &file);
    return Fails(S_ISDIR(file.st_mode) ? "fsync of the folder" : "fsync") ? -1 : real(fd);
}

ssize_t write(int fd, const void* bytes, std::size_t count) {
    static const auto real =
        reinterpret_cast<ssize_t (*)(int, const void*, std::size_t)>(::dlsym(RTLD_NEXT, "write"));
    if (Fails("write")) {
        diskFull = planned.error == ENOSPC;
        return diskFull ? real(fd, bytes, count / 2) : -1;
    }
    errno = diskFull ? ENOSPC : errno;
    return diskFull ? -1 : real(fd, bytes, count);
}
}
// NOLINTEND(bugprone-reserved-identifier)
