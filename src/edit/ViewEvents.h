// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

namespace editor {

class frmWaypoint;
class frmWaypointSettings;

// What answers the signals of frmWaypoint, whose buttons, view pixels and keys these are. The mode
// is read from the settings afresh at every event.

void Form_MouseDown(frmWaypoint& view, frmWaypointSettings& settings, int button, float x, float y);
void Form_MouseMove(frmWaypoint& view, frmWaypointSettings& settings, int buttons, float x,
                    float y);
void Form_MouseUp(frmWaypoint& view, frmWaypointSettings& settings, int button, float x, float y);
void Form_KeyDown(frmWaypoint& view, frmWaypointSettings& settings, int key, bool keypad);

} // namespace editor
