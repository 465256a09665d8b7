// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/Picture.h"

class QIODevice;

namespace editor {

/// Loads a BMP file, told by its content and not by its name: 1, 4, 8, 16, 24 and 32 bits a pixel,
/// bit fields, both run-length codings, either order of rows, the headers of Windows and of OS/2.
/// A channel of fewer than 8 bits is stretched to 0..255, of a wider one the upper 8 bits count;
/// alpha is ignored. Pixels that a run-length coding leaves out have the first colour.
///
/// `file` is open for reading and seekable. Throws std::runtime_error when it is no bitmap, is
/// truncated, or is wider or higher than `maximumSide` pixels, and std::bad_alloc when the memory
/// cannot be had. Pixels that are not compressed need memory in proportion to the file; a
/// run-length encoded file that claims more pixels than its bytes can cover is loaded up to
/// 4096 x 4096 pixels and refused above.
[[nodiscard]] Picture LoadBitmap(QIODevice& file, int maximumSide);

} // namespace editor
