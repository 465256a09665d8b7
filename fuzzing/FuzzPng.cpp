// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// The PNG decoder from the bytes of a file to drawn pixels.

#include "PngRecipe.h"
#include "png/PngFile.h"
#include "png/Sizes.h"
#include "png/cPNG.h"
#include "png/mdlPNG.h"
#include "support/PngBuilder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <sstream>
#include <string>
#include <utility>

namespace editor {
namespace {

// Pictures beyond this size take their time and show nothing that smaller ones do not.
constexpr std::int64_t MaximumPixels = 1 << 20;
constexpr std::size_t WidthOffset = 16; // in a file whose first chunk is IHDR

void Require(bool holds, const char* rule) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", rule);
        std::abort();
    }
}

bool IsTooLarge(const Bytes& file) {
    if (file.size() < WidthOffset + 8) {
        return false;
    }
    const auto bigEndian = [&](std::size_t offset) {
        std::int64_t value = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            value = value * 256 + file[offset + i];
        }
        return value;
    };
    const std::int64_t width = bigEndian(WidthOffset);
    const std::int64_t height = bigEndian(WidthOffset + 4);
    return width > 0 && height > MaximumPixels / width;
}

// The first `size` bytes of the rest, or what there is of them.
Bytes Take(std::span<const std::uint8_t>& rest, std::size_t size) {
    const auto part = rest.first(std::min(size, rest.size()));
    rest = rest.subspan(part.size());
    return {part.begin(), part.end()};
}

Bytes Cook(const PngRecipe& recipe, std::span<const std::uint8_t> rest) {
    constexpr std::pair<ColourType, std::uint8_t> Kinds[] = {
        {Greyscale, 1},       {Greyscale, 2},       {Greyscale, 4},       {Greyscale, 8},
        {Greyscale, 16},      {Truecolour, 8},      {Truecolour, 16},     {PaletteIndex, 1},
        {PaletteIndex, 2},    {PaletteIndex, 4},    {PaletteIndex, 8},    {GreyscaleAlpha, 8},
        {GreyscaleAlpha, 16}, {TruecolourAlpha, 8}, {TruecolourAlpha, 16}};
    const auto [type, depth] = Kinds[recipe.kind % std::size(Kinds)];
    const auto or256 = [](std::uint8_t value) { return value == 0 ? 256 : value; };
    const HeaderRec header = {or256(recipe.width), or256(recipe.height), depth, type};
    Bytes file = Join({Signature, IHDR(header)});
    if (recipe.paletteEntries > 0) {
        file = Join({file, Chunk("PLTE", Take(rest, std::size_t{3} * recipe.paletteEntries))});
    }
    if (recipe.alphas > 0) {
        file = Join({file, Chunk("tRNS", Take(rest, recipe.alphas))});
    }
    const std::size_t size =
        static_cast<std::size_t>(RowBytes(header)) * static_cast<std::size_t>(header.Height);
    const Bytes stream = Deflated(Take(rest, size), 1);
    std::span<const std::uint8_t> unwritten = stream;
    while (!unwritten.empty()) {
        const auto idatBytes = static_cast<std::size_t>(or256(recipe.idatBytes));
        file = Join({file, Chunk("IDAT", Take(unwritten, idatBytes))});
    }
    return Join({file, Chunk("IEND")});
}

void RequireWholeImage() {
    const BitmapRec& image = mdlPNG.PngImage;
    if (image.Pixels.empty()) {
        return;
    }
    Require(image.Header.biWidth == mdlPNG.PngHeader.Width &&
                image.Header.biHeight == mdlPNG.PngHeader.Height,
            "the image has the header's size");
    const auto stride = static_cast<std::size_t>(
        DibStride(image.Header.biWidth, static_cast<std::int16_t>(image.Header.biBitCount)));
    Require(image.Pixels.size() == stride * static_cast<std::size_t>(image.Header.biHeight),
            "the bitmap has all of its rows");
}

// Reads every pixel, so that one that was never written is noticed where a sanitizer looks for it.
void RequireOpaque(DrawingSurface& surface) {
    for (std::int32_t y = 0; y < surface.height(); ++y) {
        for (std::int32_t x = 0; x < surface.width(); ++x) {
            Require(surface.row(y)[x] >= 0xff000000, "drawing leaves the surface opaque");
        }
    }
}

void LoadAndDraw(const Bytes& file, std::int32_t x, std::int32_t y) {
    const HeaderRec before = mdlPNG.PngHeader;
    cPNG png;
    std::istringstream contents(std::string(file.begin(), file.end()));
    if (LoadContents(contents, file.size(), {}) != Accepted) {
        Require(mdlPNG.PngHeader == before, "a refused file leaves the header alone");
        return;
    }
    RequireWholeImage();
    DrawingSurface surface(std::min(png.Width(), 300), std::min(png.Height(), 300));
    png.DrawToDC(surface, x, y);
    RequireOpaque(surface);
}

} // namespace
} // namespace editor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace editor;
    Bytes file(data, data + size);
    PngRecipe recipe = {};
    if (size >= sizeof recipe && data[0] != Signature[0]) {
        std::memcpy(&recipe, data, sizeof recipe);
        file = Cook(recipe, std::span(data, size).subspan(sizeof recipe));
    }
    if (IsTooLarge(file)) {
        return 0;
    }
    mdlPNG = {};
    try {
        LoadAndDraw(file, recipe.x, recipe.y);
    } catch (const std::exception&) {
        // A failed load like any other.
    }
    return 0;
}
