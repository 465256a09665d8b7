// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/Picture.h"

#include <QString>

namespace editor {

/// Largest width and height of a level's pictures in pixels: a level's size has 16 bits.
inline constexpr int MaximumPictureSide = 32767;

/// Loads the three graphics that mdlEdit names, each one although another cannot be read. True when
/// all could be: then GraphicsLoaded and the level's size are those of the new pictures. The level
/// picture from before goes first; the background and the material are not kept. A picture that
/// would take more than three quarters of the free memory cannot be read. Throws nothing.
[[nodiscard]] bool LoadPictures();

/// Decodes a PNG file into `target`. Throws std::runtime_error, or what the decoder throws, when
/// the file cannot be shown; `target` is then left as it was.
void LoadPNGPicture(const QString& path, Picture& target);

} // namespace editor
