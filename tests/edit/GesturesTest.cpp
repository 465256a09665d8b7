// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "edit/EntityGestures.h"
#include "edit/WaypointGestures.h"

#include <QStringList>

#include <cmath>
#include <gtest/gtest.h>

namespace editor {
namespace {

constexpr EditingMode Modes[] = {EditingMode::StartPoints, EditingMode::Items,
                                 EditingMode::Waypoints};

// The links of a graph as a text: a word for each waypoint with "target.flags" for each slot in
// use, or "-". Waypoint i lies at (10 i, 0).
LevelModel Graph(const std::string& text) {
    LevelModel model;
    for (const QString& word : QString::fromStdString(text).split(u' ', Qt::SkipEmptyParts)) {
        WaypointRec& waypoint = *model.WayPointTable().Add();
        waypoint = {static_cast<std::int16_t>(10 * model.NumWayPoints - 10), 0, 0, {}, {}, -1};
        for (const QString& link : word == u'-' ? QStringList() : word.split(u',')) {
            waypoint.LinkDest.at(waypoint.LinkCount()) = link.section(u'.', 0, 0).toShort();
            waypoint.LinkFlags.at(waypoint.LinkCount()) = link.section(u'.', 1).toShort();
            ++waypoint.NumLinks;
        }
    }
    return model;
}

std::string Text(const LevelModel& model) {
    QStringList words;
    for (const WaypointRec& waypoint : model.WayPointTable()) {
        QStringList links;
        for (std::size_t j = 0; j < waypoint.LinkCount(); ++j) {
            links += QStringLiteral("%1.%2").arg(waypoint.LinkDest[j]).arg(waypoint.LinkFlags[j]);
        }
        words += links.isEmpty() ? QStringLiteral("-") : links.join(u',');
    }
    return words.join(u' ').toStdString();
}

std::string Text(const GestureResult& result) {
    return result.repaint ? "repaint" : result.message.toStdString();
}

TEST(HitTest, TakesLessThanFourLevelPixelsAtEveryZoom) {
    using Row = std::tuple<float, float, float>; // zoom, a view position that misses, one that hits
    const StartPointRec entity = {100, 100};
    for (const auto& [zoom, miss, hit] : {Row{1, 96, 96.1F}, Row{1, 104, 103.9F}, Row{2, 192, 193},
                                          Row{2, 208, 207}, Row{0.25F, 24, 24.1F}}) {
        EXPECT_TRUE(IsHit(ToLevel(hit, hit, zoom), entity)) << hit;
        EXPECT_FALSE(IsHit(ToLevel(miss, hit, zoom), entity)) << miss;
        EXPECT_FALSE(IsHit(ToLevel(hit, miss, zoom), entity)) << miss;
    }
}

TEST(Gestures, MoveToTheRoundedPointerWithoutLimitsButThoseOfSixteenBits) {
    LevelModel model = Graph("- -");
    model.NumItems = model.NumStartPoints = 2;
    using Row = std::pair<float, std::int16_t>;
    for (const auto& [at, stored] : {Row{2.5F, 2}, Row{3.5F, 4}, Row{-2.5F, -2}, Row{-3.5F, -4},
                                     Row{40000, 32767}, Row{-1e9F, -32768}, Row{NAN, 0}}) {
        for (const EditingMode mode : Modes) {
            EXPECT_TRUE(MoveSelected(model, mode, 1, {at, 7}).repaint);
            EXPECT_FALSE(MoveSelected(model, mode, 2, {}).repaint);
            EXPECT_FALSE(MoveSelected(model, mode, -1, {}).repaint);
        }
        EXPECT_EQ(model.WayPoints[1], (WaypointRec{stored, 7, 0, {}, {}, -1}));
        EXPECT_EQ(model.Items[1], (ItemRec{stored, 7, 0, 0, {}, 0, 0, 0, 0}));
        EXPECT_EQ(model.StartPoints[1], (StartPointRec{stored, 7}));
    }
}

TEST(Gestures, SelectTheFirstItemTheLastStartPointAndEachWaypointInTurn) {
    LevelModel model = Graph("- - - -");
    model.NumItems = model.NumStartPoints = 3;
    model.Items[0].PosX = model.StartPoints[0].X = 50;
    model.Items[1].Name = QStringLiteral("first");
    model.WayPoints[2].X = 3;
    using Row = std::pair<float, const char*>; // waypoints are shown with the selection at the time
    for (const auto& [y, selected] :
         {Row{3, "1 first, 2, -1/-1 0/0 2/2"}, Row{4, "-1 , -1, -1/-1"}}) {
        std::int16_t item = 0, start = 0, waypoint = 1;
        QString name, waypoints;
        SelectItem(model, item, {3, y}, [&](const ItemRec& shown) { name = shown.Name; });
        SelectStartPoint(model, start, {3, y});
        SelectWaypoint(model, waypoint, {3, y}, [&](int index) {
            waypoints += QStringLiteral(" %1/%2").arg(index).arg(waypoint);
        });
        EXPECT_EQ(QStringLiteral("%1 %2, %3,%4").arg(item).arg(name).arg(start).arg(waypoints),
                  QString::fromLatin1(selected));
    }
}

TEST(Gestures, CreateOnTopUntilTheTableIsFullAndDeleteByTheLast) {
    LevelModel model;
    model.NumItems = model.NumStartPoints = -3; // a file may hold that; it counts as none
    std::int16_t curpoint = -1;
    const auto create = [&](std::int16_t i) {
        const LevelPoint at = {static_cast<float>(i), 3.5F};
        return Text(CreateItem(model, curpoint, at, {99, 99, i, 0, {}, 0, 0, 0, 0})) + " - " +
               Text(CreateStartPoint(model, curpoint, at));
    };
    for (std::int16_t i = 0; i < MaxItems; ++i) {
        EXPECT_EQ(create(i), "repaint - repaint");
        EXPECT_EQ(curpoint, i);
    }
    EXPECT_EQ(create(77), "Maximum number of items reached (51) - "
                          "Maximum number of start points reached (51)");
    for (curpoint = 0; DeleteSelected(model, EditingMode::Items, curpoint).repaint; curpoint = 40) {
        EXPECT_EQ(curpoint, -1);
    }
    EXPECT_EQ(model.NumItems, 40);
    EXPECT_EQ(model.Items[0], (ItemRec{50, 4, 50, 0, {}, 0, 0, 0, 0}));
    EXPECT_EQ(model.StartPoints[50], (StartPointRec{50, 4}));
}

TEST(WaypointGestures, LinkUnlinkRefuseOrCreate) {
    // The selection, the links of waypoint 0, where the pointer is, the jump (1), rope (2) and
    // reload (4) boxes.
    using Row = std::tuple<std::int16_t, std::string, float, int, std::string, std::string>;
    const char* tooMany = "Maximum number of links reached";
    for (const auto& [selected, before, x, boxes, after, result] :
         {Row{0, "-", 30, 0, "3.0 - - - - -", "repaint"},
          Row{0, "2.3", 30, 1, "2.3,3.1 - - - - -", "repaint"},
          Row{0, "-", 35, 2, "3.2 - - - - -", "repaint"},
          Row{0, "1.0,2.0,4.0", 30, 3, "1.0,2.0,4.0,3.3 - - - - -", "repaint"},
          Row{0, "1.0,2.1,3.2,4.3", 20, 0, "1.0,4.3,3.2 - - - - -", "repaint"},
          Row{0, "1.0,2.1,3.2,4.3,5.0", 10, 0, "5.0,2.1,3.2,4.3 - - - - -", "repaint"},
          Row{0, "1.0,2.1,3.2,4.3", 50, 0, "1.0,2.1,3.2,4.3 - - - - -", tooMany},
          Row{0, "3.0", 0, 0, "3.0 - - - - -", ""},
          Row{0, "0.1,3.0", 0, 0, "3.0 - - - - -", "repaint"},
          Row{-1, "1.1", 2, 0, "1.1 - - - - - -", "repaint"},
          Row{6, "-", 2, 4, "- - - - - - -", "repaint"},
          Row{0, "1.1", 17, 4, "1.1 - - - - - -", "repaint"}}) {
        LevelModel model = Graph(before + " - - - - -");
        model.WayPoints[4].X = 36; // beside waypoint 3; the lowest index wins
        model.WayPoints[6] = {0, 0, 7, {9, 8}, {}, 1};
        std::int16_t curpoint = selected;
        const WaypointChoices choices = {boxes == 4, boxes % 2 == 1, boxes / 2 == 1};
        EXPECT_EQ(Text(LinkOrCreateWaypoint(model, curpoint, {x - 2, 3}, choices)), result);
        EXPECT_EQ(Text(model), after);
        if (model.NumWayPoints == 7) {
            const auto created = static_cast<std::int16_t>(x - 2),
                       flags = static_cast<std::int16_t>(boxes / 4);
            EXPECT_EQ(model.WayPoints[6], (WaypointRec{created, 3, flags, {9, 8}, {}, -1}));
            EXPECT_EQ(curpoint, 6);
        }
    }
}

TEST(WaypointGestures, DeletingFixesTheLinksToTheRemovedAndToTheMovedWaypoint) {
    using Row = std::tuple<std::int16_t, const char*, const char*>;
    for (const auto& [removed, before, after] :
         {// A link to the removed one goes, one to the moved one follows it, of both one stays.
          Row{2, "2.1 4.2 0.0 2.1,4.2 1.3", "- 2.2 1.3 2.2"},
          // What takes a freed slot is looked at too; what was renumbered is not.
          Row{0, "- 0.0,1.1,0.2 3.1,0.0 -", "- 1.1 0.1"},
          // The moved waypoint carries links that need both.
          Row{1, "- - - 1.0,2.1,3.2,0.3", "- 0.3,2.1,1.2 -"}, Row{2, "2.0,1.1 2.2 0.0", "1.1 -"},
          Row{0, "0.1", ""}}) {
        LevelModel model = Graph(before);
        std::int16_t curpoint = removed;
        EXPECT_TRUE(DeleteSelected(model, EditingMode::Waypoints, curpoint).repaint);
        EXPECT_EQ(Text(model), after);
        EXPECT_FALSE(DeleteSelected(model, EditingMode::Waypoints, curpoint).repaint);
    }
}

} // namespace
} // namespace editor
