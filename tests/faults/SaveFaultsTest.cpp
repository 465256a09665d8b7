// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// Fails each system call of a Save in turn, with each of the errors that a disk can give, and kills
// the process before each. Prints what came of it as a table: this program alone,
// without arguments, is the table of faults.

#include "faults/FailingCalls.h"
#include "model/LevelFiles.h"
#include "model/mdlEdit.h"
#include "support/LevelFolder.h"
#include "support/Models.h"

#include <cerrno>
#include <cstdio>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace editor {
namespace {

using namespace Qt::StringLiterals;
using namespace test;

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

    /// Which of the two files is the new one; a file that is neither is a failure.
    std::string Outcome() const {
        const auto age = [](const QByteArray& now, const QByteArray& young) {
            const bool old = now == (GetParam() ? "old" : LevelFolder::NoSuchFile);
            return now == young ? "new" : old ? "old" : "broken";
        };
        return std::string("level.cfg ") + age(folder.Read(LevelCfg), newLevel) +
               ", waypoint.cfg " + age(folder.Read(WaypointCfg), newWaypoint);
    }

    static constexpr const char* NoneSaved = "level.cfg old, waypoint.cfg old";
    static constexpr const char* LevelSaved = "level.cfg new, waypoint.cfg old"; // it comes first
    static constexpr const char* BothSaved = "level.cfg new, waypoint.cfg new";

    LevelFolder folder;
    QByteArray newLevel, newWaypoint;
};

TEST_P(SaveFaults, AnErrorIsToldAndLosesNothing) {
    for (const int error : {ENOSPC, EIO, EACCES, EDQUOT}) {
        int number = 1;
        for (std::string call = "first"; !call.empty(); ++number) {
            Reset();
            Arm({number, error});
            const QString message = SaveLevel().value_or(QString());
            call = Disarm();
            const std::string outcome = Outcome();
            SCOPED_TRACE(call + " " + ::strerrorname_np(error));
            std::printf("%-4d %-10s %-7s %-40s %s\n", number, call.c_str(),
                        ::strerrorname_np(error), outcome.c_str(),
                        message.isEmpty() ? "done" : "told");
            EXPECT_EQ(outcome, message.isEmpty()                          ? BothSaved
                               : message.contains(u"level.cfg was saved") ? LevelSaved
                                                                          : NoneSaved);
            EXPECT_TRUE(message.isEmpty() || message.contains(folder.Path(
                                                 outcome == LevelSaved ? WaypointCfg : LevelCfg)))
                << message.toStdString();
            EXPECT_TRUE(message.isEmpty() || message.contains(qt_error_string(error)) ||
                        message.contains(u"permissions cannot be kept"))
                << message.toStdString();
            EXPECT_EQ(Text(mdlEdit), newLevel + newWaypoint);
            for (const QString& left : folder.Names()) {
                EXPECT_TRUE(left == LevelCfg || left == WaypointCfg) << left.toStdString();
            }
            EXPECT_FALSE(SaveLevel().has_value());
            EXPECT_EQ(Outcome(), BothSaved);
        }
        EXPECT_GT(number, 12) << "calls that fail";
    }
}

TEST_P(SaveFaults, AKilledProcessLeavesWholeFiles) {
    int number = 1;
    for (int status = 1; !WIFEXITED(status); ++number) {
        Reset();
        std::fflush(stdout);
        const pid_t child = ::fork();
        if (child == 0) {
            Arm({number, 0});
            static_cast<void>(SaveLevel());
            ::_exit(0);
        }
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        const std::string outcome = Outcome();
        std::printf("%-4d %-10s %-7s %s\n", number, "any", "killed", outcome.c_str());
        EXPECT_TRUE(outcome == BothSaved ||
                    (!WIFEXITED(status) && (outcome == NoneSaved || outcome == LevelSaved)))
            << outcome;
    }
    EXPECT_GT(number, 11) << "calls before which it was killed";
}

INSTANTIATE_TEST_SUITE_P(Folders, SaveFaults, testing::Bool(), [](const auto& folders) {
    return folders.param ? "OverOldFiles" : "IntoAnEmptyFolder";
});

} // namespace
} // namespace editor
