// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "edit/WaypointGestures.h"

#include <algorithm>

namespace editor {
namespace {

/// A waypoint gets no more links from a gesture when this slot is in use: the game's files hold
/// one more than the editor makes.
constexpr int LastSlotOfGestures = 3;

int FirstWaypointAt(const LevelModel& model, const LevelPoint& point) {
    for (int i = 0; i < model.WayPointCount(); ++i) {
        const WaypointRec& waypoint = model.WayPoints[static_cast<std::size_t>(i)];
        if (IsHit(point, waypoint.X, waypoint.Y)) {
            return i;
        }
    }
    return NoSelection;
}

int LastSlot(const WaypointRec& waypoint) {
    return std::min<int>(waypoint.NumLinks, MaxLinks - 1);
}

// The last link takes the freed slot.
void RemoveLink(WaypointRec& waypoint, std::size_t slot) {
    const auto last = static_cast<std::size_t>(LastSlot(waypoint));
    waypoint.LinkDest[slot] = waypoint.LinkDest[last];
    waypoint.LinkFlags[slot] = waypoint.LinkFlags[last];
    --waypoint.NumLinks;
}

bool RemoveLinkTo(WaypointRec& waypoint, int target) {
    for (int j = 0; j <= LastSlot(waypoint); ++j) {
        const auto slot = static_cast<std::size_t>(j);
        if (waypoint.LinkDest[slot] == target) {
            RemoveLink(waypoint, slot);
            return true;
        }
    }
    return false;
}

GestureResult Link(WaypointRec& from, int target, bool toItself, const WaypointChoices& choices) {
    // A file may hold a link of a waypoint to itself: it can be removed, but never made.
    if (RemoveLinkTo(from, target)) {
        return {.repaint = true};
    }
    if (toItself) {
        return {};
    }
    if (from.NumLinks >= LastSlotOfGestures) {
        return {.message = QStringLiteral("Maximum number of links reached")};
    }
    ++from.NumLinks;
    const auto slot = static_cast<std::size_t>(from.NumLinks);
    from.LinkDest[slot] = static_cast<std::int16_t>(target);
    from.LinkFlags[slot] = static_cast<std::int16_t>((choices.jump ? JumpRequired : 0) +
                                                     (choices.rope ? RopeRequired : 0));
    return {.repaint = true};
}

GestureResult CreateWaypoint(LevelModel& model, std::int16_t& curpoint, const LevelPoint& point,
                             const WaypointChoices& choices) {
    WaypointRec* waypoint = AddSelected(model.WayPoints, model.NumWayPoints, curpoint);
    if (waypoint == nullptr) {
        return TableFull(QStringLiteral("waypoints"), model.WayPoints.size());
    }
    waypoint->X = ToPosition(point.x);
    waypoint->Y = ToPosition(point.y);
    waypoint->Flags = choices.reload ? ReloadWaypoint : std::int16_t{0};
    waypoint->NumLinks = -1;
    return {.repaint = true};
}

// The waypoint `last` became the waypoint `removed`.
void FixLinks(WaypointRec& waypoint, int removed, int last) {
    for (int j = 0; j <= LastSlot(waypoint);) {
        const auto slot = static_cast<std::size_t>(j);
        if (waypoint.LinkDest[slot] == removed) {
            // What moved into the slot is looked at in its turn.
            RemoveLink(waypoint, slot);
            continue;
        }
        if (waypoint.LinkDest[slot] == last) {
            waypoint.LinkDest[slot] = static_cast<std::int16_t>(removed);
        }
        ++j;
    }
}

} // namespace

void SelectWaypoint(const LevelModel& model, std::int16_t& curpoint, const LevelPoint& point,
                    const std::function<void(int index)>& show) {
    curpoint = NoSelection;
    show(NoSelection);
    for (int i = 0; i < model.WayPointCount(); ++i) {
        const WaypointRec& waypoint = model.WayPoints[static_cast<std::size_t>(i)];
        if (IsHit(point, waypoint.X, waypoint.Y)) {
            curpoint = static_cast<std::int16_t>(i);
            show(i);
        }
    }
}

GestureResult MoveWaypoint(LevelModel& model, int curpoint, const LevelPoint& point) {
    WaypointRec* waypoint = SelectedRecord(model.WayPoints, model.NumWayPoints, curpoint);
    if (waypoint == nullptr) {
        return {};
    }
    waypoint->X = ToPosition(point.x);
    waypoint->Y = ToPosition(point.y);
    return {.repaint = true};
}

GestureResult LinkOrCreateWaypoint(LevelModel& model, std::int16_t& curpoint,
                                   const LevelPoint& point, const WaypointChoices& choices) {
    WaypointRec* source = SelectedRecord(model.WayPoints, model.NumWayPoints, curpoint);
    const int target = FirstWaypointAt(model, point);
    if (source == nullptr || target == NoSelection) {
        return CreateWaypoint(model, curpoint, point, choices);
    }
    return Link(*source, target, target == curpoint, choices);
}

GestureResult DeleteWaypoint(LevelModel& model, std::int16_t& curpoint) {
    const int removed = curpoint;
    if (!RemoveSelected(model.WayPoints, model.NumWayPoints, curpoint)) {
        return {};
    }
    const int last = model.NumWayPoints; // where the waypoint came from that is now at `removed`
    for (int i = 0; i < last; ++i) {
        FixLinks(model.WayPoints[static_cast<std::size_t>(i)], removed, last);
    }
    return {.repaint = true};
}

} // namespace editor
