// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "edit/Gesture.h"
#include "edit/HitTest.h"
#include "model/EditingMode.h"
#include "model/mdlEdit.h"

#include <cstdint>
#include <functional>

namespace editor {

// The gestures of start points and items, and those that are the same in every mode. `curpoint` is
// the selection, an index into the table of the mode; outside the table it counts as none.

/// Left press: selects the start point of the highest index that is hit, or none.
void SelectStartPoint(const LevelModel& model, std::int16_t& curpoint, const LevelPoint& point);

/// What the settings show while no item is selected; without a position.
[[nodiscard]] ItemRec StandardItemSettings();

/// Left press: selects the item of the lowest index that is hit, or none, and then calls `show`
/// with that item or with the standard settings.
void SelectItem(const LevelModel& model, std::int16_t& curpoint, const LevelPoint& point,
                const std::function<void(const ItemRec& item)>& show);

/// Right release: creates a start point, whatever lies there, and selects it.
[[nodiscard]] GestureResult CreateStartPoint(LevelModel& model, std::int16_t& curpoint,
                                             const LevelPoint& point);

/// Right release: creates an item with the given settings, whatever lies there, and selects it.
[[nodiscard]] GestureResult CreateItem(LevelModel& model, std::int16_t& curpoint,
                                       const LevelPoint& point, const ItemRec& settings);

/// Left drag: moves the selected entity.
[[nodiscard]] GestureResult MoveSelected(LevelModel& model, EditingMode mode, int curpoint,
                                         const LevelPoint& point);

/// DEL: removes the selected entity; the last one takes its place. Links to a removed waypoint go
/// with it, links to the one that took its place follow that.
[[nodiscard]] GestureResult DeleteSelected(LevelModel& model, EditingMode mode,
                                           std::int16_t& curpoint);

} // namespace editor
