// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "edit/Gesture.h"
#include "edit/HitTest.h"
#include "model/mdlEdit.h"

#include <cstdint>
#include <functional>

namespace editor {

// The gestures that only waypoints have. `curpoint` is the selection; outside the table it counts
// as none.

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

/// Right release: links the selected waypoint to the one of the lowest index that is hit, or
/// removes that link when it exists. Creates and selects a waypoint when none is selected or hit.
[[nodiscard]] GestureResult LinkOrCreateWaypoint(LevelModel& model, std::int16_t& curpoint,
                                                 const LevelPoint& point,
                                                 const WaypointChoices& choices);

/// Mends the links after the waypoint `removed` was taken out of the table: those to it are
/// removed, and those to the waypoint that was the last one and took its place lead to `removed`.
void FixLinks(LevelModel& model, int removed);

} // namespace editor
