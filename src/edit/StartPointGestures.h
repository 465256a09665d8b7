// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "edit/Gesture.h"
#include "edit/HitTest.h"
#include "model/mdlEdit.h"

namespace editor {

// The gestures of start point mode. `curpoint` is the selection; outside the table it counts as
// none.

/// Left press: selects the start point of the highest index that is hit, or none.
void SelectStartPoint(const LevelModel& model, std::int16_t& curpoint, const LevelPoint& point);

/// Left drag: moves the selected start point.
[[nodiscard]] GestureResult MoveStartPoint(LevelModel& model, int curpoint,
                                           const LevelPoint& point);

/// Right release: creates a start point, whatever lies there, and selects it.
[[nodiscard]] GestureResult CreateStartPoint(LevelModel& model, std::int16_t& curpoint,
                                             const LevelPoint& point);

/// DEL: removes the selected start point; the last one takes its place.
[[nodiscard]] GestureResult DeleteStartPoint(LevelModel& model, std::int16_t& curpoint);

} // namespace editor
