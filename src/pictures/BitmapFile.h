// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/Picture.h"
#include "pictures/PictureLimits.h"

class QIODevice;

namespace editor {

/// Loads a BMP file, recognised by its content and not by its name: 1, 4, 8, 16, 24 and 32 bits per
/// pixel, bit fields, both run-length codings, rows in either order, headers of Windows and of
/// OS/2. Channels of fewer than 8 bits are stretched to 0..255; of wider ones the upper 8 bits are
/// used. Alpha is ignored. Pixels that a run-length coding leaves out get the first colour.
///
/// `file` must be open for reading and seekable. Throws std::runtime_error when it is not a bitmap,
/// is truncated, or is wider or higher than `limits` allow, and std::bad_alloc when it would take
/// more memory than they allow or than can be had. A run-length encoded file that claims more
/// pixels than its bytes can cover is loaded up to 4096 x 4096 pixels and refused above.
[[nodiscard]] Picture LoadBitmap(QIODevice& file, const PictureLimits& limits);

} // namespace editor
