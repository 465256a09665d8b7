// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/mdlPNG.h"

#include <cstdint>

namespace editor {

// Sizes of a non-interlaced image, all in signed 32 bits; std::overflow_error where one leaves that
// range.

/// `size` as a 32-bit number.
[[nodiscard]] std::int32_t To32Bit(std::int64_t size);

/// Bits of one pixel in the file; 0 for a colour type that does not exist.
[[nodiscard]] std::int32_t BitsPerPixel(const HeaderRec& header);

/// Bytes of one filtered row, its filter-type byte included.
[[nodiscard]] std::int32_t RowBytes(const HeaderRec& header);

/// The distance in bytes over which the filters look back; at least 1.
[[nodiscard]] std::int32_t BytesPerPixel(const HeaderRec& header);

} // namespace editor
