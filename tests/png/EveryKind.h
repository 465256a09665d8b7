// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/Pixel.h"
#include "png/PngFile.h"
#include "png/cPNG.h"
#include "support/PngBuilder.h"

#include <algorithm>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>

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

/// A file of that kind, whose pixels, colours, alphas and filters are noise.
[[nodiscard]] inline Bytes NoisePng(const Kind& kind, std::int32_t width, std::int32_t height) {
    const HeaderRec header = {width, height, kind.depth, kind.type};
    Bytes before;
    if (kind.type == PaletteIndex) {
        before = Chunk("PLTE", Noise(3 << kind.depth, 1));
    }
    if (kind.transparentEntries > 0) {
        before = Join({before, Chunk("tRNS", Noise(kind.transparentEntries, 2))});
    }
    return PngOf(header, NoiseRows(header, static_cast<std::uint32_t>(width)), before);
}

/// What came of a load, in words.
template <class Loading>
[[nodiscard]] std::string OutcomeOf(const Loading& load) {
    try {
        const std::int32_t code = load();
        return code == Accepted ? "accepted" : code == NoSuchFile ? "no file" : "refused";
    } catch (const std::bad_alloc&) {
        return "too much memory";
    } catch (const std::overflow_error&) {
        return "2^31 or more";
    } catch (const std::runtime_error&) {
        return "corrupt";
    }
}

[[nodiscard]] inline std::string Load(const Bytes& bytes, const PictureLimits& limits = {}) {
    std::istringstream file(std::string(bytes.begin(), bytes.end()));
    return OutcomeOf([&] { return LoadContents(file, bytes.size(), limits); });
}

/// The pixels of a surface of that size, filled with `colour`, with the picture drawn at (x, y).
[[nodiscard]] inline std::vector<std::uint32_t> Drawn(std::int32_t width, std::int32_t height,
                                                      std::uint32_t colour = NeutralGrey,
                                                      std::int32_t x = 0, std::int32_t y = 0) {
    DrawingSurface surface(width, height);
    for (std::int32_t row = 0; row < height && colour != NeutralGrey; ++row) {
        std::fill_n(surface.row(row), width, colour);
    }
    cPNG().DrawToDC(surface, x, y);
    const LargeBuffer pixels = surface.TakePixels();
    const auto* first = reinterpret_cast<const std::uint32_t*>(pixels.data());
    return {first, first + pixels.size() / sizeof(std::uint32_t)};
}

} // namespace editor
