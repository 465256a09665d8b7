// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/mdlPNG.h"

namespace editor {

/// The image of the file in the chunk table, whose header is mdlPNG.PngHeader: inflated,
/// unfiltered and converted to a bitmap of 1, 4, 8, 24 or 32 bits a pixel. Empty when the file has
/// no IHDR chunk. Throws std::runtime_error when the image data are missing or corrupt or an index
/// lies beyond the palette of an image with transparency, std::overflow_error when a size leaves
/// signed 32 bits, and std::bad_alloc.
[[nodiscard]] BitmapRec DecodeImage();

/// Always empty: interlaced images are accepted but not decoded.
[[nodiscard]] BitmapRec DecodeInterlaced();

} // namespace editor
