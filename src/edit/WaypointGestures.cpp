// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "edit/WaypointGestures.h"

#include <cstddef>

namespace editor {
namespace {

/// A gesture adds no link to a waypoint that uses this slot: the game's files hold one link more
/// than the editor makes.
constexpr int LastSlotOfGestures = 3;

// The last link takes the freed slot.
void RemoveLink(WaypointRec& waypoint, std::size_t slot) {
    const std::size_t last = waypoint.LinkCount() - 1;
    waypoint.LinkDest[slot] = waypoint.LinkDest[last];
    waypoint.LinkFlags[slot] = waypoint.LinkFlags[last];
    --waypoint.NumLinks;
}

bool RemoveLinkTo(WaypointRec& waypoint, int target) {
    for (std::size_t slot = 0; slot < waypoint.LinkCount(); ++slot) {
        if (waypoint.LinkDest[slot] == target) {
            RemoveLink(waypoint, slot);
            return true;
        }
    }
    return false;
}

GestureResult Link(WaypointRec& from, std::int16_t target, bool toItself,
                   const WaypointChoices& choices) {
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
    const std::size_t slot = from.LinkCount();
    ++from.NumLinks;
    from.LinkDest[slot] = target;
    from.LinkFlags[slot] = static_cast<std::int16_t>((choices.jump ? JumpRequired : 0) +
                                                     (choices.rope ? RopeRequired : 0));
    return {.repaint = true};
}

} // namespace

void SelectWaypoint(const LevelModel& model, std::int16_t& curpoint, const LevelPoint& point,
                    const std::function<void(int index)>& show) {
    curpoint = NoSelection;
    show(NoSelection);
    SelectLastHit(model.WayPointTable(), curpoint, point, show);
}

GestureResult LinkOrCreateWaypoint(LevelModel& model, std::int16_t& curpoint,
                                   const LevelPoint& point, const WaypointChoices& choices) {
    WaypointRec* source = model.WayPointTable().Find(curpoint);
    const std::int16_t target = FirstHit(model.WayPointTable(), point);
    if (source != nullptr && target != NoSelection) {
        return Link(*source, target, target == curpoint, choices);
    }
    return CreateEntity(model.WayPointTable(), curpoint, point, [&choices](WaypointRec& created) {
        created.Flags = choices.reload ? ReloadWaypoint : std::int16_t{0};
        created.NumLinks = -1;
    });
}

void FixLinks(LevelModel& model, int removed) {
    const int moved = model.WayPointTable().Size();
    for (WaypointRec& waypoint : model.WayPointTable()) {
        for (std::size_t slot = 0; slot < waypoint.LinkCount();) {
            if (waypoint.LinkDest[slot] == removed) {
                // What takes the slot is looked at in its turn.
                RemoveLink(waypoint, slot);
                continue;
            }
            if (waypoint.LinkDest[slot] == moved) {
                waypoint.LinkDest[slot] = static_cast<std::int16_t>(removed);
            }
            ++slot;
        }
    }
}

} // namespace editor
