// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace editor {

/// The first bytes of an input that is no PNG file: a file is made from them and from what follows,
/// so that mutations reach the filters and pixels, which they would not through a compressed
/// stream. Behind them lie the palette's and the tRNS chunk's bytes, then the filtered rows.
struct PngRecipe {
    std::uint8_t kind;           // colour type and bit depth, by their number
    std::uint8_t width;          // pixels, 0 counts as 256
    std::uint8_t height;         // pixels, 0 counts as 256
    std::uint8_t paletteEntries; // 0: no PLTE chunk
    std::uint8_t alphas;         // 0: no tRNS chunk
    std::uint8_t idatBytes;      // of an IDAT chunk, 0 counts as 256
    std::int8_t x;               // where the picture is drawn
    std::int8_t y;
};
static_assert(sizeof(PngRecipe) == 8);

} // namespace editor
