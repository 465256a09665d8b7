// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

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

/// A file of that kind, whose pixels, colours, alphas and filters are noise, in two IDAT chunks.
[[nodiscard]] inline Bytes NoisePng(const Kind& kind, std::int32_t width, std::int32_t height) {
    const HeaderRec header = Header(width, height, kind.depth, kind.type);
    Bytes before;
    if (kind.type == PaletteIndex) {
        before = Chunk("PLTE", NoiseRows(Header(1 << kind.depth, 1, 8, Truecolour), 1));
    }
    if (kind.transparentEntries > 0) {
        const HeaderRec alphas = Header(kind.transparentEntries, 1, 8, Greyscale);
        before = Join({before, Chunk("tRNS", NoiseRows(alphas, 2))});
    }
    const auto seed = static_cast<std::uint32_t>(width);
    Bytes filters = NoiseRows(Header(height, 1, 8, Greyscale), seed);
    for (std::uint8_t& filter : filters) {
        filter = std::min<std::uint8_t>(filter % 8, 4); // every other one is Paeth, often in fours
    }
    const Bytes stream = Deflated(Filtered(header, NoiseRows(header, seed), filters));
    const auto middle = stream.begin() + static_cast<std::ptrdiff_t>(stream.size() / 2);
    return Join({Signature(), IHDR(header), before, Chunk("IDAT", {stream.begin(), middle}),
                 Chunk("IDAT", {middle, stream.end()}), IEND()});
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

[[nodiscard]] inline std::vector<std::uint32_t> PixelsOf(DrawingSurface& surface) {
    std::uint32_t* end = surface.row(surface.height() - 1) + surface.width();
    return {surface.row(0), end};
}

/// What DrawToDC() makes of a surface of the image's size.
[[nodiscard]] inline std::vector<std::uint32_t> Drawn() {
    const cPNG png{};
    DrawingSurface surface(png.Width(), png.Height());
    png.DrawToDC(surface, 0, 0);
    return PixelsOf(surface);
}

} // namespace editor
