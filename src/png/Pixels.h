// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/mdlPNG.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace editor {

// Conversions of reconstructed pixels: of one row, or of any number of rows without gaps. `out` has
// room for the result and does not overlap the input.

struct RGBTriple {
    std::uint8_t Red;
    std::uint8_t Green;
    std::uint8_t Blue;
};

/// The first byte of every 16-bit sample, which is its more significant half.
void Strip16Bit(std::span<const std::uint8_t> data, std::uint8_t* out);

/// `width` samples of 2 bits, the first in a byte's highest bits, as one byte from 0 to 3 each.
void Unpack2Bit(std::int32_t width, std::span<const std::uint8_t> row, std::uint8_t* out);

/// (grey, alpha) pairs as (grey, grey, grey, alpha).
void GrayAlphaToBGRA(std::span<const std::uint8_t> data, std::uint8_t* out);

/// Copies pixels of 3 or 4 bytes with the first and the third byte exchanged.
void SwapRGB(std::span<const std::uint8_t> data, std::uint8_t* out);
void SwapRGBA(std::span<const std::uint8_t> data, std::uint8_t* out);

/// A grey ramp from 0 to 255 for samples of `bitDepth` bits (for 16 bits as for 8), as a colour
/// table of 4 bytes per entry.
[[nodiscard]] std::vector<std::uint8_t> MakeGrayPalette(std::int16_t bitDepth);

/// The entries of the stored PLTE chunk; none without one.
[[nodiscard]] std::vector<RGBTriple> GetPalette();

/// A colour table of 4 bytes per entry: blue, green, red, 0.
[[nodiscard]] std::vector<std::uint8_t> PaletteToQuads(std::span<const RGBTriple> palette);

/// A palette with the alphas of a tRNS chunk: blue, green, red, alpha by index.
struct AlphaPalette {
    AlphaPalette(std::span<const RGBTriple> palette, std::span<const std::uint8_t> tRNS);

    std::array<std::array<std::uint8_t, 4>, 256> Colours{};
    std::size_t NumColours;
};

/// `width` palette indices of 1, 2, 4 or 8 bits as 32-bit pixels. Throws std::runtime_error when
/// one lies beyond the palette.
void ApplyPaletteAlpha(std::int32_t width, std::int16_t bits, std::span<const std::uint8_t> row,
                       const AlphaPalette& palette, std::uint8_t* out);

} // namespace editor
