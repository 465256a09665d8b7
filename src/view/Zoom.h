// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <array>

namespace editor {

class frmWaypoint;

/// The values of mdlEdit.Zoom: view pixels per level pixel.
inline constexpr std::array ZoomSteps = {0.25F, 0.5F, 1.0F, 2.0F, 4.0F, 8.0F};

// The next step up or down from `zoom`, which is one of them; `zoom` itself where it is the last.
[[nodiscard]] float LargerZoom(float zoom);
[[nodiscard]] float SmallerZoom(float zoom);

/// Gives the view the size of the level picture at mdlEdit.Zoom.
void SizeView(frmWaypoint& view);

/// Stretches the level picture over the view's whole client area and makes that the background.
/// Does nothing while no graphics are loaded.
void DrawLevelPicture(frmWaypoint& view);

/// Makes `zoom` the level's zoom and shows the view with it at once, the level pixel that the user
/// looks at where it was, as far as the view can be scrolled there.
void SetZoom(frmWaypoint& view, float zoom);

} // namespace editor
