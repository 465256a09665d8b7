// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

class QMdiArea;

namespace editor {

class FormArea;
class frmLevel;
class frmMain;
class frmWaypoint;
class frmWaypointSettings;

// The one place in which the windows are wired to each other.

/// Fills what the lower rooms ask of the windows around them.
void WireWindows(frmMain& main);

/// A new window in the area, hidden, its events connected to those who answer them.
[[nodiscard]] frmWaypoint* MakeMapView(FormArea& area);
[[nodiscard]] frmWaypointSettings* MakeEntitySettings(FormArea& area);
[[nodiscard]] frmLevel* MakeLevelSettings(FormArea& area);

} // namespace editor
