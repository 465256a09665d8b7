// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/PictureLimits.h"
#include "png/mdlPNG.h"

namespace editor {

/// The image of the file in the chunk table, whose header is mdlPNG.PngHeader: inflated,
/// unfiltered and converted to a bitmap of 1, 4, 8, 24 or 32 bits per pixel. Empty when the file
/// has no IHDR chunk.
///
/// Throws std::runtime_error when the image is wider or higher than `limits` allow, when the image
/// data are missing or corrupt, or when an index lies beyond the palette of an image with
/// transparency; std::overflow_error when a size leaves signed 32 bits; and std::bad_alloc when the
/// bitmap, a surface to draw it on and the file would take more memory than `limits` allow, or
/// memory cannot be had. Sizes and limits are checked before memory for pixels is asked for.
[[nodiscard]] BitmapRec DecodeImage(const PictureLimits& limits);

/// Always empty: interlaced images are accepted but not decoded.
[[nodiscard]] BitmapRec DecodeInterlaced();

} // namespace editor
