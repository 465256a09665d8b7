// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "support/PngBuilder.h"

namespace editor {

/// A colour type with a bit depth, and how many of its palette's entries have an alpha.
struct Kind {
    ColourType type;
    std::uint8_t depth;
    std::int32_t transparentEntries = 0;
};

inline constexpr Kind EveryKind[] = {
    {Greyscale, 1},       {Greyscale, 2},       {Greyscale, 4},        {Greyscale, 8},
    {Greyscale, 16},      {Truecolour, 8},      {Truecolour, 16},      {PaletteIndex, 1},
    {PaletteIndex, 2},    {PaletteIndex, 4},    {PaletteIndex, 8},     {PaletteIndex, 1, 1},
    {PaletteIndex, 2, 2}, {PaletteIndex, 4, 9}, {PaletteIndex, 8, 77}, {GreyscaleAlpha, 8},
    {GreyscaleAlpha, 16}, {TruecolourAlpha, 8}, {TruecolourAlpha, 16}};

/// Each filter alone; every two that look back, one below the other; and Paeth four times, where
/// four rows begin and end and where some are left.
inline const Bytes FilterSequences[] = {
    {0},
    {1},
    {2},
    {3},
    {4},
    {1, 1, 2, 1, 3, 2, 1, 4, 2, 3, 1, 2, 3, 3, 2, 3, 4, 2, 4, 1, 2, 4, 3, 2, 4, 4, 2},
    {4, 4, 1, 3, 4, 2, 0, 3, 3, 4, 4, 4, 4, 4, 4}};

/// A file of that kind, whose pixels, colours and alphas are noise, in two IDAT chunks.
[[nodiscard]] inline Bytes NoisePng(const Kind& kind, std::int32_t width, std::int32_t height,
                                    const Bytes& filters) {
    Bytes before;
    if (kind.type == PaletteIndex) {
        before = Chunk("PLTE", NoiseRows(Header(1 << kind.depth, 1, 8, Truecolour), 1));
    }
    if (kind.transparentEntries > 0) {
        const HeaderRec alphas = Header(kind.transparentEntries, 1, 8, Greyscale);
        before = Join({before, Chunk("tRNS", NoiseRows(alphas, 2))});
    }
    const HeaderRec header = Header(width, height, kind.depth, kind.type);
    const Bytes rows = NoiseRows(header, static_cast<std::uint32_t>(width));
    const Bytes stream = Deflated(Filtered(header, rows, filters));
    const auto middle = stream.begin() + static_cast<std::ptrdiff_t>(stream.size() / 2);
    return Join({Signature(), IHDR(header), before, Chunk("IDAT", {stream.begin(), middle}),
                 Chunk("IDAT", {middle, stream.end()}), IEND()});
}

} // namespace editor
