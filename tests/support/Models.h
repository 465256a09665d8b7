// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/mdlEdit.h"

#include <random>
#include <tuple>

namespace editor::test {

/// Any level within the rules of the files: every table up to full, every number anywhere in its
/// range, texts of the code page without what reading drops (outer blanks and quotes).
inline LevelModel RandomLevel(std::mt19937& random) {
    const auto number = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    const auto any16 = [&] { return static_cast<std::int16_t>(number(-32768, 32767)); };
    const auto text = [&](int longest) {
        static const QString Characters =
            QStringLiteral("abcXYZ019 ._-\\/[]=;#'\"&%\u00e4\u00df\u20ac\u2026\u0081\u00ff");
        QString made;
        for (int i = number(0, longest); i > 0; --i) {
            made += Characters[number(0, static_cast<int>(Characters.size()) - 1)];
        }
        // A letter at each end keeps blanks and quotes from standing there.
        return made.isEmpty() ? made : u'x' + made + u'x';
    };
    LevelModel level;
    level.LevelFile = text(197);
    level.MaterialFile = text(20);
    level.BackFile = text(20);
    level.ParallaxFile = text(20);
    level.ParallaxScroll = number(0, 1) == 1;
    level.JumperForce = number(INT32_MIN, INT32_MAX);
    level.KickerForce = number(INT32_MIN, INT32_MAX);
    level.NumStartPoints = static_cast<std::int16_t>(number(0, MaxStartPoints));
    for (int n = 0; n < level.NumStartPoints; ++n) {
        level.StartPoints[static_cast<std::size_t>(n)] = {any16(), any16()};
    }
    level.NumItems = static_cast<std::int16_t>(number(0, MaxItems));
    for (int n = 0; n < level.NumItems; ++n) {
        ItemRec& item = level.Items[static_cast<std::size_t>(n)];
        item = {any16(), any16(), any16(), any16(), text(30), any16(), any16(), any16(), any16()};
        if (item.Amount == StandardItem::UnwrittenAmount) {
            item.Amount = 0;
        }
    }
    level.NumWayPoints = number(0, MaxWayPoints);
    for (int n = 0; n < level.NumWayPoints; ++n) {
        WaypointRec& waypoint = level.WayPoints[static_cast<std::size_t>(n)];
        waypoint = {any16(), any16(), any16(),
                    {},      {},      static_cast<std::int16_t>(number(-1, MaxLinks - 1))};
        for (int j = 0; j <= waypoint.NumLinks; ++j) {
            const auto slot = static_cast<std::size_t>(j);
            const std::int16_t target = any16();
            waypoint.LinkDest[slot] = target == -1 ? std::int16_t{0} : target;
            waypoint.LinkFlags[slot] = any16();
        }
    }
    return level;
}

/// True when both hold the same level: settings, counts and every record in use.
inline bool SameLevel(const LevelModel& a, const LevelModel& b) {
    const auto sameWaypoint = [](const WaypointRec& x, const WaypointRec& y) {
        bool same = x.X == y.X && x.Y == y.Y && x.Flags == y.Flags && x.NumLinks == y.NumLinks;
        for (int j = 0; same && j <= x.NumLinks; ++j) {
            const auto slot = static_cast<std::size_t>(j);
            same = x.LinkDest[slot] == y.LinkDest[slot] && x.LinkFlags[slot] == y.LinkFlags[slot];
        }
        return same;
    };
    const auto settings = [](const LevelModel& level) {
        return std::tie(level.LevelFile, level.MaterialFile, level.BackFile, level.ParallaxFile,
                        level.ParallaxScroll, level.JumperForce, level.KickerForce,
                        level.NumStartPoints, level.NumItems, level.NumWayPoints);
    };
    return settings(a) == settings(b) &&
           std::equal(a.StartPoints.begin(), a.StartPoints.begin() + a.StartPointCount(),
                      b.StartPoints.begin()) &&
           std::equal(a.Items.begin(), a.Items.begin() + a.ItemCount(), b.Items.begin()) &&
           std::equal(a.WayPoints.begin(), a.WayPoints.begin() + a.WayPointCount(),
                      b.WayPoints.begin(), sameWaypoint);
}

} // namespace editor::test
