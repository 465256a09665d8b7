// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Table.h"
#include "pictures/Picture.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <tuple>

namespace editor {

// Capacities of the tables, as the game has them.
inline constexpr int MaxStartPoints = 51;
inline constexpr int MaxItems = 51;
inline constexpr int MaxWayPoints = 201;
inline constexpr int MaxLinks = 5;

/// One player start point. Positions are pixels of the level graphics, (0, 0) at its top left.
struct StartPointRec {
    std::int16_t X = 0;
    std::int16_t Y = 0;

    bool operator==(const StartPointRec&) const = default;
};

/// The kinds of items: the values of ItemRec::Type that have a meaning.
enum ItemType : std::int16_t { Medikit, Flag, TeamSpawn, Domination, KickerPad, NumItemTypes };

/// One item. What the numbers mean belongs to the game.
struct ItemRec {
    std::int16_t PosX = 0;
    std::int16_t PosY = 0;
    std::int16_t Type = Medikit; // a file may hold any number
    std::int16_t Amount = 0;
    QString Name; // empty: no name
    std::int16_t Respawn = 0;
    std::int16_t Bounce = 0;
    std::int16_t Gravity = 0;
    std::int16_t DetectDist = 0;

    bool operator==(const ItemRec&) const = default;
};

/// Values of an item's fields with a rule of their own in the level files and in the settings.
namespace StandardItem {
inline constexpr std::int16_t Position = 10; // when the file gives none
inline constexpr std::int16_t Amount = 1;
inline constexpr std::int16_t UnwrittenAmount = -1; // the Amount that is left out of the file
inline constexpr std::int16_t Respawn = 600;
inline constexpr std::int16_t Bounce = 500;
inline constexpr std::int16_t Gravity = 50;
inline constexpr std::int16_t DetectDist = 0;
} // namespace StandardItem

/// Requirements of a link: the bits of WaypointRec::LinkFlags.
inline constexpr std::int16_t JumpRequired = 1;
inline constexpr std::int16_t RopeRequired = 2;

/// Waypoint flag: the bot reloads here.
inline constexpr std::int16_t ReloadWaypoint = 1;

/// One node of the bots' waypoint graph with its outgoing, directed links.
struct WaypointRec {
    std::int16_t X = 0;
    std::int16_t Y = 0;
    std::int16_t Flags = 0; // a file may hold any number
    /// The index in WayPoints of each link's target; a file may hold any number.
    std::array<std::int16_t, MaxLinks> LinkDest{};
    std::array<std::int16_t, MaxLinks> LinkFlags{};
    /// The index of the last link slot in use, not a count: -1 (no links) to MaxLinks - 1.
    std::int16_t NumLinks = 0;

    /// The number of link slots in use; these are the first ones.
    [[nodiscard]] std::size_t LinkCount() const {
        return static_cast<std::size_t>(std::clamp(NumLinks + 1, 0, MaxLinks));
    }

    bool operator==(const WaypointRec&) const = default;
};

/// Both coordinates of an entity of any table, as references into its record.
template <class Record>
[[nodiscard]] auto PositionOf(Record& record) {
    if constexpr (requires { record.PosX; }) {
        return std::tie(record.PosX, record.PosY);
    } else {
        return std::tie(record.X, record.Y);
    }
}

/// The level being edited, and the view state that the windows share. Its member initialisers are
/// the state at program start. The first `count` records of each table are in use; the others
/// hold leftovers that nothing reads.
struct LevelModel {
    /// The level folder, absolute and clean, no separator at its end (a root keeps its own); empty
    /// while none was chosen.
    QString LevelPath;
    // Graphics files relative to the level folder, as in the file: "\" separates.
    QString LevelFile;
    QString MaterialFile;
    QString BackFile;
    QString ParallaxFile; // empty: none
    bool ParallaxScroll = false;
    std::int32_t JumperForce = 0;
    std::int32_t KickerForce = 0;

    // A count read from a file may be negative; StartPointTable() and so on see to that.
    std::array<StartPointRec, MaxStartPoints> StartPoints{};
    std::int16_t NumStartPoints = 0;
    std::array<ItemRec, MaxItems> Items{};
    std::int16_t NumItems = 0;
    std::array<WaypointRec, MaxWayPoints> WayPoints{};
    std::int32_t NumWayPoints = 0;

    /// View pixels per level pixel, one of the view's ZoomSteps.
    float Zoom = 1;
    bool GraphicsLoaded = false;
    // The size of the level graphics in pixels, -1 while none is loaded.
    std::int16_t LevelWidth = 0;
    std::int16_t LevelHeight = 0;
    Picture LevelPicture;

    [[nodiscard]] auto StartPointTable() {
        return Table(StartPoints, NumStartPoints, "start points");
    }
    [[nodiscard]] auto StartPointTable() const {
        return Table(StartPoints, NumStartPoints, "start points");
    }
    [[nodiscard]] auto ItemTable() { return Table(Items, NumItems, "items"); }
    [[nodiscard]] auto ItemTable() const { return Table(Items, NumItems, "items"); }
    [[nodiscard]] auto WayPointTable() { return Table(WayPoints, NumWayPoints, "waypoints"); }
    [[nodiscard]] auto WayPointTable() const { return Table(WayPoints, NumWayPoints, "waypoints"); }
};

/// The one level model of the program.
extern LevelModel mdlEdit;

} // namespace editor
