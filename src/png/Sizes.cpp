// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/Sizes.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace editor {

std::int32_t To32Bit(std::int64_t size) {
    if (size > std::numeric_limits<std::int32_t>::max()) {
        throw std::overflow_error("an image size leaves the 32-bit range");
    }
    return static_cast<std::int32_t>(size);
}

std::int32_t BitsPerPixel(const HeaderRec& header) {
    switch (header.ColorType) {
    case Greyscale:
    case PaletteIndex:
        return header.BitDepth;
    case Truecolour:
        return 3 * header.BitDepth;
    case GreyscaleAlpha:
        return 2 * header.BitDepth;
    case TruecolourAlpha:
        return 4 * header.BitDepth;
    default:
        return 0;
    }
}

std::int32_t RowBytes(const HeaderRec& header) {
    return To32Bit(std::int64_t{header.Width} * BitsPerPixel(header) + 7) / 8 + 1;
}

std::int32_t BytesPerPixel(const HeaderRec& header) {
    return std::max(BitsPerPixel(header) / 8, 1);
}

} // namespace editor
