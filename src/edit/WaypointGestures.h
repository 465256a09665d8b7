// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "edit/Gesture.h"
#include "edit/HitTest.h"
#include "model/mdlEdit.h"

#include <functional>

namespace editor {

// The gestures of waypoint mode. `curpoint` is the selection; outside the table it counts as none.

/// What the settings window gives to new waypoints and links.
struct WaypointChoices {
    bool reload = false;
    bool jump = false;
    bool rope = false;
};

/// Left press: selects the waypoint of the highest index that is hit, or none. `show` is called
/// with NoSelection and then at every hit, one after the other, when `curpoint` is set to it: the
/// settings window may change that waypoint before the next is looked at.
void SelectWaypoint(const LevelModel& model, std::int16_t& curpoint, const LevelPoint& point,
                    const std::function<void(int index)>& show);

/// Left drag: moves the selected waypoint.
[[nodiscard]] GestureResult MoveWaypoint(LevelModel& model, int curpoint, const LevelPoint& point);

/// Right release: links the selected waypoint to the one of the lowest index that is hit, or
/// removes that link when it exists. Creates and selects a waypoint when none is selected or hit.
[[nodiscard]] GestureResult LinkOrCreateWaypoint(LevelModel& model, std::int16_t& curpoint,
                                                 const LevelPoint& point,
                                                 const WaypointChoices& choices);

/// DEL: removes the selected waypoint and every link to it; the last waypoint takes its place and
/// the links to that one follow it.
[[nodiscard]] GestureResult DeleteWaypoint(LevelModel& model, std::int16_t& curpoint);

} // namespace editor
