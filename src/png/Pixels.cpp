// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/Pixels.h"

#include "pictures/Pixel.h"
#include "pictures/WideRows.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <stdexcept>

namespace editor {
namespace {

constexpr std::uint8_t FullAlpha = 255;

// Converts a row and returns the largest index in it. There are colours for all values of a byte,
// so that indices need not be checked one by one.
template <int Bits>
std::size_t ApplyColours(std::int32_t width, const std::uint8_t* row, const AlphaPalette& palette,
                         std::uint8_t* out) {
    std::size_t largest = 0;
    for (std::int32_t x = 0; x < width; ++x, out += 4) {
        const std::size_t index = PackedSample<Bits>(row, x);
        largest = std::max(largest, index);
        std::memcpy(out, palette.Colours[index].data(), 4);
    }
    return largest;
}

std::size_t ApplyColours(std::int32_t width, std::int16_t bits, const std::uint8_t* row,
                         const AlphaPalette& palette, std::uint8_t* out) {
    switch (bits) {
    case 1:
        return ApplyColours<1>(width, row, palette, out);
    case 2:
        return ApplyColours<2>(width, row, palette, out);
    case 4:
        return ApplyColours<4>(width, row, palette, out);
    default:
        return ApplyColours<8>(width, row, palette, out);
    }
}

} // namespace

void Strip16Bit(std::span<const std::uint8_t> data, std::uint8_t* out) {
    for (std::size_t i = 0; i < data.size() / 2; ++i) {
        out[i] = data.data()[2 * i];
    }
}

void Unpack2Bit(std::int32_t width, std::span<const std::uint8_t> row, std::uint8_t* out) {
    for (std::int32_t x = 0; x < width; ++x) {
        out[x] = static_cast<std::uint8_t>(PackedSample<2>(row.data(), x));
    }
}

void GrayAlphaToBGRA(std::span<const std::uint8_t> data, std::uint8_t* out) {
    for (std::size_t i = 0; i + 1 < data.size(); i += 2) {
        const std::uint8_t grey = data.data()[i];
        const std::uint8_t alpha = data.data()[i + 1];
        const std::uint8_t pixel[4] = {grey, grey, grey, alpha};
        std::memcpy(out + 2 * i, pixel, sizeof pixel);
    }
}

void SwapRGB(std::span<const std::uint8_t> data, std::uint8_t* out) {
    const auto count = static_cast<std::int32_t>(data.size() / 3);
    const std::ptrdiff_t done = std::ptrdiff_t{3} * SwapTriples(out, data.data(), count);
    const std::uint8_t* end = data.data() + data.size();
    out += done;
    for (const std::uint8_t* in = data.data() + done; in != end; in += 3, out += 3) {
        const std::uint8_t pixel[3] = {in[2], in[1], in[0]};
        std::memcpy(out, pixel, sizeof pixel);
    }
}

void SwapRGBA(std::span<const std::uint8_t> data, std::uint8_t* out) {
    // Turned by two bytes, a pixel has its first and third byte in each other's place, whichever
    // way round the machine reads numbers.
    constexpr auto Swapped =
        std::bit_cast<std::uint32_t>(std::array<std::uint8_t, 4>{255, 0, 255, 0});
    const std::uint8_t* in = data.data();
    for (std::size_t i = 0; i + 3 < data.size(); i += 4) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, in + i, sizeof pixel);
        pixel = (pixel & ~Swapped) | (std::rotl(pixel, 16) & Swapped);
        std::memcpy(out + i, &pixel, sizeof pixel);
    }
}

std::vector<std::uint8_t> MakeGrayPalette(std::int16_t bitDepth) {
    const std::size_t entries = bitDepth == 16 ? 256 : std::size_t{1} << bitDepth;
    const std::size_t step = 255 / (entries - 1);
    std::vector<std::uint8_t> quads;
    for (std::size_t i = 0; i < entries; ++i) {
        const auto grey = static_cast<std::uint8_t>(i * step);
        quads.insert(quads.end(), {grey, grey, grey, 0});
    }
    return quads;
}

std::vector<RGBTriple> GetPalette() {
    const std::span<const std::uint8_t> data = mdlPNG.GetChunk(chunks::PLTE).Data;
    std::vector<RGBTriple> palette;
    for (std::size_t i = 0; i + 2 < data.size(); i += 3) {
        palette.push_back({.Red = data[i], .Green = data[i + 1], .Blue = data[i + 2]});
    }
    return palette;
}

std::vector<std::uint8_t> PaletteToQuads(std::span<const RGBTriple> palette) {
    std::vector<std::uint8_t> quads;
    for (const RGBTriple& entry : palette) {
        quads.insert(quads.end(), {entry.Blue, entry.Green, entry.Red, 0});
    }
    return quads;
}

AlphaPalette::AlphaPalette(std::span<const RGBTriple> palette, std::span<const std::uint8_t> tRNS)
    : NumColours(std::min(palette.size(), Colours.size())) {
    for (std::size_t i = 0; i < NumColours; ++i) {
        Colours[i] = {palette[i].Blue, palette[i].Green, palette[i].Red,
                      i < tRNS.size() ? tRNS[i] : FullAlpha};
    }
}

void ApplyPaletteAlpha(std::int32_t width, std::int16_t bits, std::span<const std::uint8_t> row,
                       const AlphaPalette& palette, std::uint8_t* out) {
    if (ApplyColours(width, bits, row.data(), palette, out) >= palette.NumColours) {
        throw std::runtime_error("a palette index beyond the palette");
    }
}

} // namespace editor
