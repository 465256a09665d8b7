// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

namespace editor {

class FormArea;
class frmLevel;
class frmMain;
class frmWaypoint;
class frmWaypointSettings;

// The one place in which the windows are wired to each other: what one of them has to say to
// another is a signal that is connected here, and what one has to know of another is handed to it
// here.

/// A new window in the area, hidden, its events connected to those who answer them.
[[nodiscard]] frmWaypoint* MakeMapView(frmMain& main, FormArea& area);
[[nodiscard]] frmWaypointSettings* MakeEntitySettings(frmMain& main, FormArea& area);
[[nodiscard]] frmLevel* MakeLevelSettings(frmMain& main, FormArea& area);

} // namespace editor
