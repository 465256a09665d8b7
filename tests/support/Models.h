// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/LevelWriter.h"
#include "model/mdlEdit.h"

#include <algorithm>
#include <random>

namespace editor::test {

/// Any level within the rules of the files: every table from a negative count up to full, every
/// number anywhere in its range, texts of the code page without what reading drops (outer blanks
/// and quotes).
inline LevelModel RandomLevel(std::mt19937& random) {
    const auto number = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    const auto any16 = [&] { return static_cast<std::int16_t>(number(-32768, 32767)); };
    // Where -1 stands for nothing.
    const auto even16 = [&] { return static_cast<std::int16_t>(2 * number(-16384, 16383)); };
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
    level.NumStartPoints = static_cast<std::int16_t>(number(-1, MaxStartPoints));
    level.NumItems = static_cast<std::int16_t>(number(-1, MaxItems));
    level.NumWayPoints = number(-1, MaxWayPoints);
    for (StartPointRec& point : level.StartPoints) {
        point = {any16(), any16()};
    }
    for (ItemRec& item : level.Items) {
        item = {any16(), any16(), any16(), even16(), text(30), any16(), any16(), any16(), any16()};
    }
    for (WaypointRec& waypoint : level.WayPoints) {
        waypoint = {any16(), any16(), any16()};
        std::generate(waypoint.LinkDest.begin(), waypoint.LinkDest.end(), even16);
        std::generate(waypoint.LinkFlags.begin(), waypoint.LinkFlags.end(), any16);
        waypoint.NumLinks = static_cast<std::int16_t>(number(-1, MaxLinks - 1));
    }
    return level;
}

/// What a Save writes of the level: the same for two levels of the same settings, counts and
/// records in use.
inline QByteArray Text(const LevelModel& model) {
    return WriteLevelCfg(model) + WriteWaypointCfg(model);
}

} // namespace editor::test
