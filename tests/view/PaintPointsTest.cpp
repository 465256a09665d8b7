// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "view/PaintPoints.h"

#include <QImage>

#include <gtest/gtest.h>

namespace editor::test {

constexpr std::uint32_t Ground = 0xff123456, White = 0xffffffff, Black = 0xff000000,
                        Blue = 0xff0000ff, Magenta = 0xffff00ff, Cyan = 0xff00ffff;

using Colours = std::vector<std::uint32_t>;

class PaintPoints : public testing::Test {
  protected:
    void Paint(EditingMode mode, int curpoint) {
        QImage ground(200, 100, QImage::Format_RGB32);
        ground.fill(Ground);
        image.SetBackground(Picture(ground), ground.size());
        PaintEntities(image, model, mode, curpoint);
        image.Paint(reinterpret_cast<std::uint32_t*>(seen.bits()), 200, seen.rect());
    }

    /// From the centre of a mark downwards: inside, rim, the wide rim of a selection, beyond.
    [[nodiscard]] Colours Mark(int x, int y) const {
        return {seen.pixel(x, y), seen.pixel(x, y + 2), seen.pixel(x, y + 3), seen.pixel(x, y + 4)};
    }

    PersistentImage image;
    LevelModel model;
    QImage seen = QImage(200, 100, QImage::Format_RGB32);
};

TEST_F(PaintPoints, WaypointsShowTheirFlagsAndTheColourOfEachLink) {
    model.NumWayPoints = 6;
    for (std::int16_t i = 0; i < 5; ++i) {
        model.WayPointTable()[i] = {160, static_cast<std::int16_t>(10 + 15 * i), i, {}, {}, -1};
    }
    model.WayPoints[5] = {20, 10, 0, {0, 1, 2, 3, 4}, {0, 1, 2, 3, 4}, 4};
    const Colours links = {White, Cyan, 0xffc0c0c0, 0xff008080, Magenta};
    for (const int selected : {-1, 5}) {
        Paint(EditingMode::Waypoints, selected);
        // The links of a later waypoint end in the centres, over the earlier marks.
        EXPECT_EQ(Colours({seen.pixel(161, 11), seen.pixel(160, 25), seen.pixel(161, 41)}),
                  Colours({Black, Cyan, White}));
        // Half way along each link: dots and gaps, or a solid line three pixels wide.
        for (int i = 0; i < 5; ++i) {
            int dots = 0;
            for (int pixel = 0; pixel < 100; ++pixel) {
                const int y = 10 + (15 * i + 1) / 2 + pixel / 10 - 5;
                dots += seen.pixel(85 + pixel % 10, y) == links[static_cast<std::size_t>(i)];
            }
            EXPECT_EQ(dots, selected < 0 ? 5 : 30) << i;
        }
    }
}

TEST_F(PaintPoints, ItemsAndStartPointsAreDrawnInTheirModeOnly) {
    model.NumItems = 7;
    for (std::int16_t i = 0; i < 7; ++i) {
        const auto x = static_cast<std::int16_t>(10 + 20 * i);
        model.ItemTable()[i] = {x, 20, static_cast<std::int16_t>(i - 1), 0, {}, 0, 0, 0, 0};
    }
    model.NumStartPoints = 2;
    model.StartPoints = {{{15, 60}, {45, 60}}};
    Paint(EditingMode::Items, 6); // the last one
    const Colours fills = {Magenta, Black, 0xff000080, 0xff008000, 0xff008080, 0xff800000, Magenta};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(Mark(10 + 20 * i, 20), Colours({fills[static_cast<std::size_t>(i)], White,
                                                  i == 6 ? White : Ground, Ground}));
    }
    EXPECT_EQ(seen.pixel(15, 60), Ground);
    Paint(EditingMode::StartPoints, 1);
    EXPECT_EQ(Mark(15, 60), Colours({Black, White, Ground, Ground}));
    EXPECT_EQ(Mark(45, 60), Colours({Black, White, White, Ground}));
    EXPECT_EQ(seen.pixel(10, 20), Ground);
    Paint(EditingMode::None, 0);
    EXPECT_EQ(seen.pixel(15, 60), Ground);
}

TEST_F(PaintPoints, MarksKeepTheirSizeAtEveryZoomAndOddLinksAndSelectionsCountForNothing) {
    model.WayPoints[0] = {10, 11, 0, {-1, 1, 200, 32767, -32768}, {}, 4};
    const Colours plain = {Black, Blue, Ground, Ground}, nothing(4, Ground);
    using Row = std::tuple<int, float, int, QPoint, Colours>; // count, zoom, selected, the mark
    for (const auto& [count, zoom, selected, at, colours] :
         {Row{1, 8, 0, {80, 88}, {White, Black, Black, Ground}}, Row{1, 8, -1, {80, 88}, plain},
          Row{1, 8, 1, {80, 88}, plain}, Row{1, 8, 200, {80, 88}, plain},
          Row{1, 8, -5, {80, 88}, plain}, Row{1, 0.25F, -1, {2, 3}, plain}, // (2.5, 2.75)
          Row{-1, 1, 0, {10, 11}, nothing}}) {
        model.NumWayPoints = count;
        model.Zoom = zoom;
        Paint(EditingMode::Waypoints, selected);
        EXPECT_EQ(Mark(at.x(), at.y()), colours) << zoom << ' ' << selected;
    }
}

} // namespace editor::test
