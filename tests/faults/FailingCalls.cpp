// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "faults/FailingCalls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstddef>
#include <dlfcn.h>
#include <fcntl.h>
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

template <class Function>
Function Real(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
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
using editor::test::Real;

// NOLINTBEGIN(bugprone-reserved-identifier): the C library's names are the point.
extern "C" {

#define INJECT(name, parameters, arguments)                                                        \
    int name parameters {                                                                          \
        static const auto real = Real<int(*) parameters>(#name);                                   \
        return Fails(#name) ? -1 : real arguments;                                                 \
    }

INJECT(fsync, (int fd), (fd))
INJECT(fdatasync, (int fd), (fd))
INJECT(close, (int fd), (fd))
INJECT(fchmod, (int fd, mode_t mode), (fd, mode))
INJECT(ftruncate64, (int fd, off64_t size), (fd, size))
INJECT(rename, (const char* from, const char* to), (from, to))
INJECT(renameat2, (int a, const char* from, int b, const char* to, unsigned flags),
       (a, from, b, to, flags))
INJECT(link, (const char* from, const char* to), (from, to))
INJECT(linkat, (int a, const char* from, int b, const char* to, int flags), (a, from, b, to, flags))
INJECT(unlink, (const char* path), (path))

ssize_t write(int fd, const void* bytes, std::size_t count) {
    static const auto real = Real<ssize_t (*)(int, const void*, std::size_t)>("write");
    if (Fails("write")) {
        diskFull = planned.error == ENOSPC;
        return diskFull ? real(fd, bytes, count / 2) : -1;
    }
    errno = diskFull ? ENOSPC : errno;
    return diskFull ? -1 : real(fd, bytes, count);
}

#define INJECT_OPEN(name)                                                                          \
    int name(const char* path, int flags, ...) {                                                   \
        static const auto real = Real<int (*)(const char*, int, ...)>(#name);                      \
        va_list more;                                                                              \
        va_start(more, flags);                                                                     \
        const mode_t mode = va_arg(more, mode_t);                                                  \
        va_end(more);                                                                              \
        return Fails("open") ? -1 : real(path, flags, mode);                                       \
    }

INJECT_OPEN(open)
INJECT_OPEN(open64)
}
// NOLINTEND(bugprone-reserved-identifier)
