// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/EditingMode.h"

namespace editor {

// What the application connects to the map view and to its host. The mode is read afresh at every
// event.

/// The editing mode that the entity settings show.
[[nodiscard]] EditingMode CurrentMode();

// The signals of frmWaypoint, with its buttons, view pixels and keys.
void Form_MouseDown(int button, float x, float y);
void Form_MouseMove(int buttons, float x, float y);
void Form_MouseUp(int button, float x, float y);
void Form_KeyDown(int key, bool keypad);

/// The caption of the waypoint frame when nothing is selected.
void ResetWaypointCaption();

} // namespace editor
