// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/Picture.h"

#include <QString>

#include <cstdint>

namespace editor {

class frmWaypoint;

/// Largest width and height of a level's pictures in pixels: a level's size has 16 bits.
inline constexpr int MaximumPictureSide = 32767;

/// Loads the three graphics of mdlEdit and shows the map view when all could be read; otherwise
/// nothing is shown of them and no message appears. Does nothing while a name is empty.
void LoadGraphics();

/// Decodes a PNG file into `target`. Throws std::runtime_error, or what the decoder throws, when
/// the file cannot be shown; `target` is then left as it was.
void LoadPNGPicture(const QString& path, Picture& target);

/// Stretches the level picture over the view's whole client area and makes that the background.
void DrawLevelPicture(frmWaypoint& view);

/// Gives the view the size of the level picture at the current zoom.
void SizeView(frmWaypoint& view);

} // namespace editor
