// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "support/EditorFixture.h"

namespace editor {
namespace {

using namespace Qt::StringLiterals;

constexpr QPointF Far(300, 200); // from every entity of these tests

class Editing : public test::EditorFixture {
  protected:
    Editing() {
        const test::LevelFolder folder;
        MakeLevel(folder, 400, 300);
        Open(folder);
    }

    void SetMode(const char* option) { Setting<QRadioButton>(option).click(); }

    void SetWaypoints(const QList<WaypointRec>& waypoints) {
        std::copy(waypoints.begin(), waypoints.end(), mdlEdit.WayPoints.begin());
        mdlEdit.NumWayPoints = static_cast<int>(waypoints.size());
        SetMode("optStart");
        SetMode("optWaypoints");
    }

    void SetItems(const QList<ItemRec>& items) {
        std::copy(items.begin(), items.end(), mdlEdit.Items.begin());
        mdlEdit.NumItems = static_cast<std::int16_t>(items.size());
        SetMode("optItems");
    }

    /// The type and the texts of the item fields from top to bottom.
    std::string ItemFields() {
        QString texts = Setting<QComboBox>("cmbType").currentText();
        for (const char* name :
             {"txtName", "txtAmount", "txtRespawn", "txtBounce", "txtDist", "txtGravity"}) {
            texts += u'|' + Setting(name).text();
        }
        return texts.toStdString();
    }
};

TEST_F(Editing, AWaypointPressShowsEachHitAndTheBoxRewritesTheFlagsWhenItChanges) {
    QList<WaypointRec> waypoints(4, {0, 0, 3, {}, {}, -1});
    waypoints[1].Flags = 2;
    waypoints[2].Flags = 4;
    SetWaypoints(waypoints);
    Press(Qt::LeftButton, {1, 1});
    const int flags[] = {1, 0, 4, 1};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(mdlEdit.WayPoints[i].Flags, flags[i]) << i;
    }
    const auto caption = [this] { return Setting<QGroupBox>("fraWaypoint").title().toStdString(); };
    EXPECT_EQ(caption(), "Waypoint 3");
    Press(Qt::LeftButton, Far);
    EXPECT_EQ(caption(), "Waypoint");
    Release(Qt::RightButton, {1, 1});
    EXPECT_EQ(mdlEdit.WayPoints[4].Flags, ReloadWaypoint) << "the box was left as it was";
    EXPECT_EQ(caption(), "Waypoint");
    Setting<QAbstractButton>("chkReload").click();
    EXPECT_EQ(mdlEdit.WayPoints[4].Flags, 0);
}

TEST_F(Editing, ButtonMasksAreComparedForEquality) {
    SetWaypoints({{10, 10, 0, {}, {}, -1}, {50, 10, 0, {}, {}, -1}});
    Press(Qt::RightButton, {50, 10});
    EXPECT_EQ(view().curpoint, -1);
    Press(Qt::LeftButton, {50, 10});
    Press(Qt::RightButton, {10, 10});
    Press(Qt::MiddleButton, Far);
    const QImage selected = Drawn();
    for (const int held : {0, 3, 4, 5}) {
        Move(Qt::MouseButtons(held), {90, 90});
    }
    EXPECT_EQ(Drawn(), selected) << "neither a drag nor a rubber band";
    Release(Qt::LeftButton, {10, 10});
    Release(Qt::RightButton, {10, 10});
    EXPECT_EQ(mdlEdit.WayPoints[1], (WaypointRec{50, 10, 0, {0}, {0}, 0})) << "each one counts";
    Move(Qt::LeftButton, {-70, 2000});
    EXPECT_EQ(mdlEdit.WayPoints[1], (WaypointRec{-70, 2000, 0, {0}, {0}, 0}));
}

TEST_F(Editing, TheRubberBandStaysUntilARepaintAlsoWhenALinkIsRefused) {
    SetWaypoints(QList<WaypointRec>(MaxWayPoints, {10, 10, 0, {7, 8, 9, 10}, {}, 3}));
    Press(Qt::LeftButton, {10, 10}); // selects the last one
    Key(Qt::Key_Plus, Qt::KeypadModifier);
    const QImage without = Drawn();
    Move(Qt::RightButton, {20, 200});
    Move(Qt::RightButton, {120, 20});
    const QImage with = Drawn();
    EXPECT_EQ(with.pixel(70, 19), 0xff000000) << "black and three pixels wide";
    EXPECT_EQ(with.pixel(70, 21), 0xff000000);
    EXPECT_EQ(with.pixel(20, 100), without.pixel(20, 100)) << "only the last one is seen";
    Release(Qt::RightButton, {20, 20}); // on waypoint 0
    Release(Qt::RightButton, Far);
    EXPECT_EQ(Drawn(), with);
    EXPECT_EQ(messages, QStringList({u"Maximum number of links reached"_s,
                                     u"Maximum number of waypoints reached (201)"_s}));
    Release(Qt::MiddleButton, Far);
    EXPECT_EQ(Drawn(), without);
    SetMode("optStart");
    Release(Qt::RightButton, Far);
    const QImage startPoint = Drawn();
    Move(Qt::RightButton, {120, 20});
    EXPECT_EQ(Drawn(), startPoint) << "only waypoints are linked";
}

TEST_F(Editing, AnItemTakesItsSettingsFromTheWindowAndGivesThemToIt) {
    SetMode("optItems");
    Release(Qt::RightButton, {10, 10});
    EXPECT_EQ(mdlEdit.Items[0], (ItemRec{10, 10, 0, 0, {}, 0, 0, 0, 0}));
    Press(Qt::LeftButton, Far);
    EXPECT_EQ(ItemFields(), "MEDIKIT||1|600|500|0|50");
    Release(Qt::RightButton, {50, 10});
    EXPECT_EQ(mdlEdit.Items[1], (ItemRec{50, 10, 0, 1, {}, 600, 500, 50, 0}));

    const ItemRec other = {90, 10, 4, -7, u"a & b"_s, 11, 12, 13, -32768};
    mdlEdit.Items[1] = other;
    QTest::mouseDClick(view().widget(), Qt::LeftButton, {}, {90, 10}); // a press like any other
    EXPECT_EQ(mdlEdit.Items[1], other);
    Key(Qt::Key_Delete);
    SetMode("optStart");
    EXPECT_EQ(ItemFields(), "KICKERPAD|a & b|-7|11|12|-32768|13");
}

TEST_F(Editing, ATypeWithoutAnEntryStaysUntilOneIsChosen) {
    SetItems({{10, 0, 7, 1, {}, 0, 0, 0, 0}, {50, 0, -1, 2, {}, 0, 0, 0, 0}});
    for (const double x : {10, 50, 10}) {
        Press(Qt::LeftButton, {x, 0});
        EXPECT_EQ(Setting<QComboBox>("cmbType").currentIndex(), -1);
        EXPECT_EQ(mdlEdit.Items[0].Type, 7);
    }
    Setting<QComboBox>("cmbType").setCurrentIndex(4);
    EXPECT_EQ(mdlEdit.Items[0].Type, 4);
    Press(Qt::LeftButton, {50, 0});
    Release(Qt::RightButton, {90, 0});
    EXPECT_EQ(mdlEdit.Items[1].Type, -1);
    EXPECT_EQ(mdlEdit.Items[2].Type, 0) << "nothing is chosen";
}

TEST_F(Editing, EveryKeystrokeWritesTheFieldOfTheSelectedItem) {
    SetItems({{10, 0, 0, 5, {}, 0, 0, 0, 0}});
    const auto type = [this](const char* name, const QString& text) {
        Setting(name).clear();
        QTest::keyClicks(&Setting(name), text);
        EXPECT_EQ(Setting(name).text(), text);
    };
    type("txtAmount", u"9"_s);
    EXPECT_EQ(mdlEdit.Items[0].Amount, 5) << "nothing is selected";
    Press(Qt::LeftButton, {10, 0});
    type("txtAmount", u"-3.5x"_s);
    type("txtRespawn", u"&HFFFF"_s);
    type("txtBounce", u"9"_s);
    type("txtGravity", u"8"_s);
    type("txtDist", u"7"_s);
    QApplication::clipboard()->setText(u"two\nlines"_s);
    Setting("txtName").paste();
    QTest::keyClick(&Setting("txtName"), Qt::Key_Delete);
    EXPECT_EQ(mdlEdit.NumItems, 1);
    EXPECT_EQ(mdlEdit.Items[0], (ItemRec{10, 0, 0, -4, u"two lines"_s, 32767, 9, 8, 7}));
}

TEST_F(Editing, AModeShowsItsPanelAloneAndSelectsNothing) {
    SetWaypoints({{}});
    SetItems({{0, 0, 2, 0, {}, 0, 0, 0, 0}});
    mdlEdit.NumStartPoints = 1;
    const auto modes = {std::pair{"optWaypoints", "tabWaypoint"},
                        {"optItems", "tabObjects"},
                        {"optStart", "tabSpawnPoints"}};
    QImage before;
    for (const auto& [option, panel] : modes) {
        SetMode(option);
        EXPECT_EQ(view().curpoint, -1);
        EXPECT_NE(std::exchange(before, Drawn()), Drawn());
        for (const auto& [otherOption, other] : modes) {
            EXPECT_EQ(Setting<QWidget>(other).isVisible(), other == panel);
        }
        Press(Qt::LeftButton, {1, 1});
        SetMode(option);
        EXPECT_EQ(view().curpoint, 0) << "the option was on already";
    }
    // With a start point selected the controls of the other panels change nothing.
    Setting<QAbstractButton>("chkReload").toggle();
    Setting<QComboBox>("cmbType").setCurrentIndex(3);
    Setting("txtName").setText(u"other"_s);
    EXPECT_EQ(mdlEdit.WayPoints[0].Flags, 0);
    EXPECT_EQ(mdlEdit.Items[0], (ItemRec{0, 0, 2, 0, {}, 0, 0, 0, 0}));
}

TEST_F(Editing, OnlyTheKeypadZoomsAndTheSelectionStays) {
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(Ground);
    picture.setPixel(399, 299, 0xff000000); // seen in the view's last pixel unless it is left out
    mdlEdit.LevelPicture = Picture(picture);
    mdlEdit.NumStartPoints = 2;
    Press(Qt::LeftButton, {0, 0});
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Backspace}) {
        Key(key);
        EXPECT_EQ(mdlEdit.Zoom, 1);
    }
    int presses = 0;
    for (const float zoom : {2.0F, 4.0F, 8.0F, 8.0F, 4.0F, 2.0F, 1.0F, 0.5F, 0.25F, 0.25F}) {
        Key(++presses <= 4 ? Qt::Key_Plus : Qt::Key_Minus, Qt::KeypadModifier);
        EXPECT_EQ(mdlEdit.Zoom, zoom);
        const QSize size = QSize(400, 300) * zoom;
        EXPECT_EQ(view().ClientSize(), size);
        EXPECT_EQ(Drawn().pixel(size.width() - 1, size.height() - 1),
                  zoom < 1 ? Ground : 0xff000000);
    }
    EXPECT_EQ(mdlEdit.NumStartPoints, 2);
    Key(Qt::Key_Delete);
    EXPECT_EQ(mdlEdit.NumStartPoints, 1);
    Press(Qt::LeftButton, {0, 0});
    Type(u"F7"_s);
    Type(u"F7"_s);
    EXPECT_EQ(view().curpoint, -1) << "a view that is shown again";
}

TEST_F(Editing, ASettingsWindowMadeAnewCountsAsAChangeOfTheMode) {
    SetItems({{10, 0, 4, 5, {}, 0, 0, 0, 0}});
    Press(Qt::LeftButton, {10, 0});
    const QImage items = Drawn();
    settings().close();
    Move(Qt::LeftButton, {90, 0});
    EXPECT_EQ(view().curpoint, -1);
    EXPECT_NE(Drawn(), items) << "start points are seen at once";
    EXPECT_FALSE(settings().isVisible());
    EXPECT_TRUE(Setting<QRadioButton>("optStart").isChecked());
    EXPECT_EQ(ItemFields(), "MEDIKIT||||||");
    EXPECT_EQ(mdlEdit.Items[0].Type, 4);
}

} // namespace
} // namespace editor
