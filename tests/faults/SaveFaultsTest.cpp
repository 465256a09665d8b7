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
#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace editor {
namespace {

const QString LevelCfg = QStringLiteral("level.cfg");
const QString WaypointCfg = QStringLiteral("waypoint.cfg");

/// Saves a level over another one, again and again.
class SaveFaults : public testing::TestWithParam<bool> {
  protected:
    SaveFaults() {
        std::mt19937 random(5);
        level = test::RandomLevel(random);
        level.NumWayPoints = 30;
        mdlEdit = level;
        mdlEdit.LevelPath = folder.Path();
        EXPECT_FALSE(SaveLevel().has_value());
        newLevel = folder.Read(LevelCfg);
        newWaypoint = folder.Read(WaypointCfg);
        Reset();
    }
    ~SaveFaults() override { mdlEdit = LevelModel(); }

    /// The folder as before the Save: with older files, or with none.
    void Reset() {
        for (const QString& name : folder.Names()) {
            QFile::remove(folder.Path(name));
        }
        if (GetParam()) {
            folder.Write(LevelCfg, "old level");
            folder.Write(WaypointCfg, "old waypoints");
        }
        oldLevel = folder.Read(LevelCfg);
        oldWaypoint = folder.Read(WaypointCfg);
    }

    [[nodiscard]] bool LevelIsNew() const { return folder.Read(LevelCfg) == newLevel; }
    [[nodiscard]] bool WaypointIsNew() const { return folder.Read(WaypointCfg) == newWaypoint; }

    void ExpectBothFilesWhole() {
        EXPECT_TRUE(LevelIsNew() || folder.Read(LevelCfg) == oldLevel);
        EXPECT_TRUE(WaypointIsNew() || folder.Read(WaypointCfg) == oldWaypoint);
        EXPECT_TRUE(LevelIsNew() || !WaypointIsNew()); // the level comes first
    }

    std::string Outcome() const {
        return std::string("level.cfg ") + (LevelIsNew() ? "new" : "old") + ", waypoint.cfg " +
               (WaypointIsNew() ? "new" : "old");
    }

    test::LevelFolder folder;
    LevelModel level;
    QByteArray oldLevel, oldWaypoint, newLevel, newWaypoint;
};

TEST_P(SaveFaults, AnErrorIsToldAndLosesNothing) {
    const std::pair<int, const char*> errors[] = {
        {ENOSPC, "ENOSPC"}, {EIO, "EIO"}, {EACCES, "EACCES"}, {EDQUOT, "EDQUOT"}};
    for (const auto& [error, name] : errors) {
        int faults = 0;
        for (int number = 1;; ++number) {
            Reset();
            test::Arm({number, error});
            const auto message = SaveLevel();
            const std::string call = test::Disarm();
            if (call.empty()) {
                EXPECT_FALSE(message.has_value());
                EXPECT_EQ(Outcome(), "level.cfg new, waypoint.cfg new");
                break;
            }
            ++faults;
            SCOPED_TRACE(call + " " + name);
            std::printf("%-4d %-10s %-7s %-40s %s\n", number, call.c_str(), name, Outcome().c_str(),
                        message ? "told" : "done");
            ExpectBothFilesWhole();
            EXPECT_EQ(message.has_value(), !LevelIsNew() || !WaypointIsNew());
            if (message) {
                const QString& told = LevelIsNew() ? WaypointCfg : LevelCfg;
                EXPECT_TRUE(message->contains(folder.Path(told))) << message->toStdString();
                EXPECT_EQ(message->contains(QStringLiteral("level.cfg was saved")), LevelIsNew());
            }
            EXPECT_TRUE(test::SameLevel(mdlEdit, level));
            for (const QString& left : folder.Names()) {
                EXPECT_TRUE(left == LevelCfg || left == WaypointCfg) << left.toStdString();
            }
            EXPECT_FALSE(SaveLevel().has_value());
            EXPECT_TRUE(LevelIsNew() && WaypointIsNew());
        }
        EXPECT_GT(faults, 10);
    }
}

TEST_P(SaveFaults, AKilledProcessLeavesWholeFiles) {
    for (int number = 1;; ++number) {
        Reset();
        std::fflush(stdout);
        const pid_t child = ::fork();
        if (child == 0) {
            test::Arm({number, 0});
            static_cast<void>(SaveLevel());
            ::_exit(0);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ExpectBothFilesWhole();
        std::printf("%-4d %-10s %-7s %s\n", number, "any", "killed", Outcome().c_str());
        if (WIFEXITED(status)) {
            EXPECT_EQ(Outcome(), "level.cfg new, waypoint.cfg new");
            EXPECT_GT(number, 10);
            break;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Folders, SaveFaults, testing::Bool(), [](const auto& folders) {
    return folders.param ? "OverOldFiles" : "IntoAnEmptyFolder";
});

} // namespace
} // namespace editor
