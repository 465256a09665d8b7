// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// Fails each system call of a Save in turn, with each of the errors that a disk can give, and kills
// the process before each. Prints what came of it as a table, which is what this program is for
// when it is run by itself.

#include "model/LevelFiles.h"
#include "model/mdlEdit.h"
#include "support/LevelFolder.h"
#include "support/Models.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <dlfcn.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// The calls that can lose data. They stand before the C library's of the same names.
struct {
    int untilFailure = 0; // 1 for the next call; 0 or less: none fails
    int error = 0;        // errno of the failure; 0: the process is killed before the call
    std::string failed = {};
    bool diskFull = false; // it took half of a write, and takes no more
} calls;

/// True when the call that asks must fail; errno is set then.
bool Fails(const char* name) {
    if (--calls.untilFailure != 0) {
        return false;
    }
    if (calls.error == 0) {
        ::kill(::getpid(), SIGKILL);
    }
    calls.failed = name;
    errno = calls.error;
    return true;
}

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the C library's names are the point.
extern "C" {

#define REAL(name) reinterpret_cast<decltype(&(name))>(::dlsym(RTLD_NEXT, #name))
#define INJECT(name, called, parameters, arguments)                                                \
    int name parameters {                                                                          \
        static const auto real = REAL(name);                                                       \
        return Fails(called) ? -1 : real arguments;                                                \
    }

INJECT(open, "open", (const char* path, int flags, mode_t mode), (path, flags, mode))
INJECT(open64, "open64", (const char* path, int flags, mode_t mode), (path, flags, mode))
INJECT(fsync,
       std::filesystem::is_directory("/proc/self/fd/" + std::to_string(fd)) ? "fsync of the folder"
                                                                            : "fsync",
       (int fd), (fd))
INJECT(fdatasync, "fdatasync", (int fd), (fd))
INJECT(close, "close", (int fd), (fd))
INJECT(fchmod, "fchmod", (int fd, mode_t mode), (fd, mode))
INJECT(rename, "rename", (const char* from, const char* to), (from, to))
INJECT(linkat, "linkat", (int a, const char* from, int b, const char* to, int flags),
       (a, from, b, to, flags))

ssize_t write(int fd, const void* bytes, std::size_t count) {
    static const auto real = REAL(write);
    if (Fails("write")) {
        calls.diskFull = calls.error == ENOSPC;
        return calls.diskFull ? real(fd, bytes, count / 2) : -1;
    }
    errno = calls.diskFull ? ENOSPC : errno;
    return calls.diskFull ? -1 : real(fd, bytes, count);
}
}
// NOLINTEND(bugprone-reserved-identifier)

namespace editor::test {

/// Saves a level over another one, again and again.
class SaveFaults : public testing::TestWithParam<bool> {
  protected:
    SaveFaults() {
        std::mt19937 random(5);
        mdlEdit = RandomLevel(random);
        mdlEdit.NumWayPoints = 30;
        mdlEdit.LevelPath = folder.Path();
        EXPECT_FALSE(SaveLevel().has_value());
        newLevel = folder.Read(LevelCfg);
        newWaypoint = folder.Read(WaypointCfg);
        Reset();
    }

    /// The folder as before the Save: with older files, or with none.
    void Reset() {
        for (const QString& name : folder.Names()) {
            QFile::remove(folder.Path(name));
        }
        if (GetParam()) {
            folder.Write(LevelCfg, "old");
            folder.Write(WaypointCfg, "old");
        }
    }

    /// How old level.cfg and waypoint.cfg are; a file that is neither old nor new is a failure.
    std::string Outcome() const {
        const auto age = [](const QByteArray& now, const QByteArray& young) {
            const bool old = now == (GetParam() ? "old" : LevelFolder::NoSuchFile);
            return std::string(now == young ? "new" : old ? "old" : "broken");
        };
        return age(folder.Read(LevelCfg), newLevel) + ' ' +
               age(folder.Read(WaypointCfg), newWaypoint);
    }

    LevelFolder folder;
    QByteArray newLevel, newWaypoint;
};

TEST_P(SaveFaults, AnErrorIsToldAndLosesNothing) {
    // What may fail unseen, since nothing is lost by it: a second sync that Qt makes of a file that
    // was synced, a name that another way gave, closing, and what comes after the rename.
    const std::set<std::string> harmless = {"",      "fdatasync", "linkat",
                                            "close", "open",      "fsync of the folder"};
    std::set<std::string> failed;
    for (const int error : {ENOSPC, EIO, EACCES, EDQUOT}) {
        std::string call = "first";
        for (int number = 1; !call.empty(); ++number) {
            Reset();
            calls = {number, error};
            const QString message = SaveLevel().value_or(QString());
            call = std::exchange(calls, {}).failed;
            const std::string outcome = Outcome();
            SCOPED_TRACE(call + " " + ::strerrorname_np(error));
            std::printf("%-4d %-19s %-7s %-7s %s\n", number, call.c_str(), ::strerrorname_np(error),
                        outcome.c_str(), message.isEmpty() ? "done" : "told");
            const QString& file = outcome == "new old" ? WaypointCfg : LevelCfg; // the level first
            const QString reason =
                call == "fchmod" ? u"its permissions cannot be kept"_s : qt_error_string(error);
            failed.insert(message.isEmpty() ? call + ", untold" : call);
            if (message.isEmpty()) {
                EXPECT_TRUE(outcome == "new new" && harmless.contains(call)) << outcome;
            } else {
                EXPECT_EQ(outcome,
                          message.contains(u"level.cfg was saved") ? "new old" : "old old");
                EXPECT_TRUE(
                    message.startsWith(folder.Path(file) + u" could not be saved: "_s + reason))
                    << message.toStdString();
            }
            EXPECT_EQ(Text(mdlEdit), newLevel + newWaypoint);
            EXPECT_LE(folder.Names().size(), 2) << "a temporary file is left";
            EXPECT_FALSE(SaveLevel().has_value());
            EXPECT_EQ(Outcome(), "new new");
        }
    }
    for (const char* needed : {"open64", "write", "fsync", GetParam() ? "fchmod" : "linkat",
                               "fsync of the folder, untold"}) {
        EXPECT_TRUE(failed.contains(needed)) << needed;
    }
}

TEST_P(SaveFaults, AKilledProcessLeavesWholeFiles) {
    int number = 1;
    for (int status = 1; !WIFEXITED(status); ++number) {
        Reset();
        std::fflush(stdout);
        const pid_t child = ::fork();
        if (child == 0) {
            calls = {number};
            ::_exit(SaveLevel().has_value() ? 1 : 0);
        }
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        const std::string outcome = Outcome();
        std::printf("%-4d %-10s %-7s %s\n", number, "any", WIFEXITED(status) ? "done" : "killed",
                    outcome.c_str());
        EXPECT_TRUE(std::set<std::string>({"new new", "old old", "new old"}).contains(outcome));
        EXPECT_TRUE(outcome == "new new" || !WIFEXITED(status));
    }
    EXPECT_GT(number, 11) << "calls before which it was killed";
}

INSTANTIATE_TEST_SUITE_P(OverOldFiles, SaveFaults, testing::Bool());

} // namespace editor::test
