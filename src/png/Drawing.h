// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/DrawingSurface.h"
#include "png/mdlPNG.h"

#include <cstdint>

namespace editor {

// Drawing of an image with its top-left pixel at (x, y); what lies outside the surface is dropped.

/// Copies an image of less than 32 bits per pixel.
void DrawPlain(DrawingSurface& hDC, std::int32_t x, std::int32_t y, const BitmapRec& image);

/// Blends an image of 32 bits per pixel with what the surface shows.
void DrawBlended(DrawingSurface& hDC, std::int32_t x, std::int32_t y, const BitmapRec& image);

/// Blends `count` pixels (blue, green, red, alpha) with the pixels 0xffRRGGBB at `background` and
/// writes the result to `out`, which may be the same place. Each sample becomes
/// ((255 - alpha) x old + alpha x new + 255) / 256, which is the old one at alpha 0 and the new
/// one at alpha 255.
void BlendRow(std::uint32_t* out, const std::uint32_t* background, const std::uint8_t* pixels,
              std::int32_t count);

} // namespace editor
