// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "edit/Gesture.h"
#include "edit/HitTest.h"
#include "model/mdlEdit.h"

#include <functional>

namespace editor {

// The gestures of item mode. `curpoint` is the selection; outside the table it counts as none.

/// What the settings show while no item is selected; without a position.
[[nodiscard]] ItemRec StandardItemSettings();

/// Left press: selects the item of the lowest index that is hit, or none, and then calls `show`
/// with that item or with the standard settings.
void SelectItem(const LevelModel& model, std::int16_t& curpoint, const LevelPoint& point,
                const std::function<void(const ItemRec& item)>& show);

/// Left drag: moves the selected item.
[[nodiscard]] GestureResult MoveItem(LevelModel& model, int curpoint, const LevelPoint& point);

/// Right release: creates an item with the given settings, whatever lies there, and selects it.
[[nodiscard]] GestureResult CreateItem(LevelModel& model, std::int16_t& curpoint,
                                       const LevelPoint& point, const ItemRec& settings);

/// DEL: removes the selected item; the last one takes its place.
[[nodiscard]] GestureResult DeleteItem(LevelModel& model, std::int16_t& curpoint);

} // namespace editor
