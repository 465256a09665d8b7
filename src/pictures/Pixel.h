// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>

namespace editor {

// Pixels in memory are 32-bit numbers 0xffRRGGBB.

/// The bits that every pixel has set; alone, they are black.
inline constexpr std::uint32_t Opaque = 0xff000000;

/// What shows where there is no picture: marks and links of every colour can be told from it.
inline constexpr std::uint32_t NeutralGrey = 0xff808080;

/// Sample x of a row of samples of 1, 2, 4 or 8 bits, the first of which is in the highest bits of
/// the first byte.
template <int Bits>
[[nodiscard]] std::size_t PackedSample(const std::uint8_t* row, std::int32_t x) {
    constexpr int PerByte = 8 / Bits;
    const int shift = Bits * (PerByte - 1 - x % PerByte);
    return static_cast<std::size_t>(row[x / PerByte] >> shift & ((1 << Bits) - 1));
}

/// Row y, counted from the top, of `height` rows that are stored bottom row first, `stride` bytes
/// each.
template <class Byte>
[[nodiscard]] Byte* BottomUpRow(Byte* pixels, std::ptrdiff_t stride, std::int32_t height,
                                std::int32_t y) {
    return pixels + (height - 1 - y) * stride;
}

} // namespace editor
