// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// Plays random gestures, keys and changes of fields and windows on a level and looks at what must
// always hold. The seed is printed; EDITOR_MONKEY_SEED plays it again.

#include "support/EditorFixture.h"
#include "support/Models.h"

#include <iostream>
#include <random>
#include <set>

namespace editor {
namespace {

constexpr int Steps = 10'000;
constexpr int LevelSide = 60; // small, so that many entities are hit
constexpr int Margin = 10;    // for positions outside the level

class Monkey : public test::EditorFixture {
  protected:
    Monkey() {
        MakeLevel(folder, LevelSide, LevelSide);
        Open(folder);
    }

    int Number(int low, int high) { // libraries differ in their distributions
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    }
    template <class T>
    T OneOf(std::initializer_list<T> choices) {
        return choices.begin()[Number(0, static_cast<int>(choices.size()) - 1)];
    }

    QPointF Position() { // to a quarter of a level pixel
        const auto quarters = [this] { return Number(-Margin * 4, (LevelSide + Margin) * 4); };
        return QPointF(quarters(), quarters()) / 4 * mdlEdit.Zoom;
    }

    // Mouse events that need not belong together.
    void UseMouse() {
        for (int i = Number(1, 4); i > 0; --i) {
            const auto button = OneOf({Qt::LeftButton, Qt::RightButton, Qt::MiddleButton});
            const int kind = Number(0, 2);
            kind == 0   ? Press(button, Position())
            : kind == 1 ? Move(Qt::MouseButtons(Number(0, 7)), Position())
                        : Release(button, Position());
        }
    }

    void UseKeys() {
        for (int i = Number(0, 10); i > 0; --i) {
            Press(Qt::LeftButton, Position());
            Key(Qt::Key_Delete);
        }
        Key(OneOf({Qt::Key_Plus, Qt::Key_Minus}), Qt::KeypadModifier);
    }

    // No text is left with an outer blank, which reading drops, and no Amount with the number that
    // is not written.
    void ChangeSettings() {
        auto& field = Setting(
            OneOf({"txtName", "txtAmount", "txtRespawn", "txtBounce", "txtDist", "txtGravity"}));
        field.setText(OneOf<QString>({QString(), QString::number(Number(-40000, 40000)),
                                      QStringLiteral("1e999"), QStringLiteral("-2.5 \u00e4;#")}));
        QTest::keyClick(&field, OneOf({Qt::Key_7, Qt::Key_Backspace, Qt::Key_Delete}));
        if (Setting("txtAmount").text() == QStringLiteral("-1")) {
            Setting("txtAmount").setText({});
        }
        Setting<QComboBox>("cmbType").setCurrentIndex(Number(-1, 4));
        Setting<QCheckBox>(OneOf({"chkReload", "chkJump", "chkRope"})).click();
        Setting<QRadioButton>(OneOf({"optWaypoints", "optItems", "optStart"})).click();
    }

    void CloseWindows() {
        OneOf<QWidget*>({&settings(), &view()})->close();
        DeleteClosed();
        if (!view().isVisible()) {
            main->mnuLevWay->trigger();
        }
    }

    void SaveAndOpen() {
        QFile::remove(folder.Path(QStringLiteral("waypoint.cfg"))); // none is written for no points
        const QByteArray saved = test::Text(mdlEdit);
        Type(QStringLiteral("Ctrl+S"));
        mdlEdit = {};
        Type(QStringLiteral("Ctrl+O"));
        EXPECT_EQ(test::Text(mdlEdit), saved);
    }

    void ExpectSoundTables() {
        ASSERT_TRUE(mdlEdit.NumWayPoints >= 0 && mdlEdit.NumWayPoints <= MaxWayPoints);
        ASSERT_TRUE(mdlEdit.NumItems >= 0 && mdlEdit.NumItems <= MaxItems);
        ASSERT_TRUE(mdlEdit.NumStartPoints >= 0 && mdlEdit.NumStartPoints <= MaxStartPoints);
        const EditingMode mode = settings().Mode();
        const int count = mode == EditingMode::Waypoints ? mdlEdit.NumWayPoints
                          : mode == EditingMode::Items   ? mdlEdit.NumItems
                                                         : mdlEdit.NumStartPoints;
        EXPECT_TRUE(view().curpoint >= -1 && view().curpoint < count) << view().curpoint;
        for (int i = 0; i < mdlEdit.NumWayPoints; ++i) {
            const WaypointRec& waypoint = mdlEdit.WayPoints.at(static_cast<std::size_t>(i));
            ASSERT_TRUE(waypoint.NumLinks >= -1 && waypoint.NumLinks < MaxLinks);
            std::set<int> targets = {i};
            for (int j = 0; j <= waypoint.NumLinks; ++j) {
                const int target = waypoint.LinkDest.at(static_cast<std::size_t>(j));
                EXPECT_TRUE(target >= 0 && target < mdlEdit.NumWayPoints &&
                            targets.insert(target).second)
                    << i << " to " << target;
            }
        }
    }

    test::LevelFolder folder;
    std::mt19937 random;
};

TEST_F(Monkey, LeavesASoundLevelWhateverItDoes) {
    bool given = false;
    unsigned seed = qEnvironmentVariable("EDITOR_MONKEY_SEED").toUInt(&given);
    seed = given ? seed : std::random_device()();
    std::cout << "EDITOR_MONKEY_SEED=" << seed << std::endl;
    random.seed(seed);
    for (int step = 0; step < Steps && !HasFailure(); ++step) {
        SCOPED_TRACE(testing::Message() << "step " << step << " of seed " << seed);
        const int percent = Number(0, 99);
        percent < 80   ? UseMouse()
        : percent < 90 ? UseKeys()
        : percent < 97 ? ChangeSettings()
        : percent < 99 ? CloseWindows()
                       : SaveAndOpen();
        ExpectSoundTables();
    }
}

} // namespace
} // namespace editor
