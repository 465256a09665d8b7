// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "view/PaintPoints.h"

#include <QImage>

#include <array>
#include <gtest/gtest.h>

namespace editor {
namespace {

constexpr std::uint32_t Ground = 0xff123456;
constexpr std::uint32_t White = 0xffffffff;
constexpr std::uint32_t Black = 0xff000000;
constexpr std::uint32_t Blue = 0xff0000ff;
constexpr std::uint32_t Magenta = 0xffff00ff;

class PaintPoints : public testing::Test {
  protected:
    PaintPoints() {
        QImage ground(200, 100, QImage::Format_RGB32);
        ground.fill(Ground);
        image.SetBackground(Picture(ground), ground.size());
    }

    void Paint(EditingMode mode, int curpoint) {
        PaintEntities(image, model, mode, curpoint);
        seen = QImage(200, 100, QImage::Format_RGB32);
        image.Paint(reinterpret_cast<std::uint32_t*>(seen.bits()), 200, seen.rect());
    }

    [[nodiscard]] std::uint32_t At(int x, int y) const { return seen.pixel(x, y); }

    /// Fill and rim of the mark at a place, and whether it is the wide one of a selection.
    void ExpectMark(int x, int y, std::uint32_t rim, std::uint32_t fill, bool selected) {
        const std::uint32_t beyond = selected ? rim : Ground;
        EXPECT_EQ((std::array{At(x, y), At(x + 1, y + 1), At(x, y - 2), At(x, y - 3),
                              At(x - 2, y - 2), At(x + 4, y)}),
                  (std::array{fill, selected ? rim : fill, rim, beyond, beyond, Ground}))
            << x << ' ' << y;
    }

    PersistentImage image;
    LevelModel model;
    QImage seen;
};

TEST_F(PaintPoints, WaypointsShowTheirFlagsAndTheColourOfEachLink) {
    model.NumWayPoints = 6;
    for (std::size_t i = 0; i < 5; ++i) {
        model.WayPoints[i] = {160, static_cast<std::int16_t>(10 + 15 * i), 0, {}, {}, -1};
    }
    model.WayPoints[5] = {20, 10, 0, {0, 1, 2, 3, 4}, {0, 1, 2, 3, 4}, 4};
    model.WayPoints[1].Flags = 1;
    Paint(EditingMode::Waypoints, -1);
    // The links of a later waypoint end in the centres, over the earlier marks.
    EXPECT_EQ((std::array{At(160, 8), At(161, 11), At(160, 25), At(161, 26)}),
              (std::array{Blue, Black, 0xff00ffff, White}));

    // Half way along the link to each target: dots and gaps in the colour of its flags.
    const std::uint32_t colours[] = {White, 0xff00ffff, 0xffc0c0c0, 0xff008080, Magenta};
    for (int i = 0; i < 5; ++i) {
        const int middle = 10 + (15 * i + 1) / 2;
        int dots = 0;
        for (int x = 85; x < 95; ++x) {
            for (int y = middle - 2; y <= middle + 2; ++y) {
                dots += At(x, y) == colours[i];
            }
        }
        EXPECT_EQ(dots, 5) << i;
    }

    Paint(EditingMode::Waypoints, 5);
    for (int x = 85; x < 95; ++x) {
        EXPECT_EQ(At(x, 9), White) << x; // solid and three pixels wide
        EXPECT_EQ(At(x, 11), White) << x;
    }
}

TEST_F(PaintPoints, ItemsAndStartPointsAreDrawnInTheirModeOnly) {
    model.NumItems = 7;
    for (std::size_t i = 0; i < 7; ++i) {
        const auto type = static_cast<std::int16_t>(i);
        model.Items[i] = {static_cast<std::int16_t>(10 + 20 * i), 20, type, 0, {}, 0, 0, 0, 0};
    }
    model.Items[6].Type = -1;
    model.NumStartPoints = 2;
    model.StartPoints[0] = {15, 60};
    model.StartPoints[1] = {45, 60};

    Paint(EditingMode::Items, 6); // the last one
    const std::uint32_t fills[] = {Black,      0xff000080, 0xff008000, 0xff008080,
                                   0xff800000, Magenta,    Magenta};
    for (int i = 0; i < 7; ++i) {
        ExpectMark(10 + 20 * i, 20, White, fills[i], i == 6);
    }
    EXPECT_EQ(At(15, 60), Ground);

    Paint(EditingMode::StartPoints, 1);
    ExpectMark(15, 60, White, Black, false);
    ExpectMark(45, 60, White, Black, true);
    EXPECT_EQ(At(10, 20), Ground);

    Paint(EditingMode::None, 0);
    EXPECT_EQ(At(15, 60), Ground);
}

TEST_F(PaintPoints, MarksKeepTheirSizeAtEveryZoomAndOddLinksAndSelectionsCountForNothing) {
    model.NumWayPoints = 1;
    model.WayPoints[0] = {10, 9, 0, {-1, 1, 200, 32767, -32768}, {}, 4};
    model.Zoom = 8;
    Paint(EditingMode::Waypoints, 0);
    ExpectMark(80, 72, Black, White, true);
    for (const int nothing : {-1, 1, 200, -5}) {
        Paint(EditingMode::Waypoints, nothing);
        ExpectMark(80, 72, Blue, Black, false);
    }
    model.Zoom = 0.25F; // (2.5, 2.25) goes to (2, 2)
    Paint(EditingMode::Waypoints, -1);
    EXPECT_EQ((std::array{At(2, 2), At(4, 2), At(5, 2)}), (std::array{Black, Blue, Ground}));
    model.Zoom = 1;
    model.WayPoints[0].LinkDest = {0, 0, 0, 0, 0}; // to itself: a point
    Paint(EditingMode::Waypoints, 0);
    EXPECT_EQ(At(10, 9), White);
    model.NumWayPoints = -1;
    Paint(EditingMode::Waypoints, 0);
    EXPECT_EQ(At(10, 9), Ground);
}

} // namespace
} // namespace editor
