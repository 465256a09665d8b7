// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/Pixels.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace editor {
namespace {

constexpr std::uint8_t Opaque = 255;

// Pixel x of a row with `Bits` bits a pixel, the first one in a byte's highest bits.
template <int Bits>
std::size_t Sample(const std::uint8_t* row, std::int32_t x) {
    constexpr int PerByte = 8 / Bits;
    const int shift = Bits * (PerByte - 1 - x % PerByte);
    return static_cast<std::size_t>(row[x / PerByte] >> shift & ((1 << Bits) - 1));
}

// The largest index of the row, after all of it was converted: any byte may index the colours.
template <int Bits>
std::size_t ApplyColours(std::int32_t width, const std::uint8_t* row, const AlphaPalette& palette,
                         std::uint8_t* out) {
    std::size_t largest = 0;
    for (std::int32_t x = 0; x < width; ++x, out += 4) {
        const std::size_t index = Sample<Bits>(row, x);
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
        out[x] = static_cast<std::uint8_t>(Sample<2>(row.data(), x));
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
    const std::uint8_t* in = data.data();
    const std::uint8_t* end = in + data.size();
#ifdef __SSE2__
    // Five pixels at a time; the sixteenth byte is written again, and rightly, with the next ones.
    const __m128i greens = _mm_setr_epi8(0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0);
    const __m128i thirds = _mm_slli_si128(greens, 1);
    const __m128i firsts = _mm_srli_si128(greens, 1);
    for (; end - in >= 18; in += 15, out += 15) {
        const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
        const __m128i swapped = _mm_or_si128(_mm_and_si128(_mm_srli_si128(pixels, 2), firsts),
                                             _mm_and_si128(_mm_slli_si128(pixels, 2), thirds));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out),
                         _mm_or_si128(swapped, _mm_and_si128(pixels, greens)));
    }
#endif
    for (; in != end; in += 3, out += 3) {
        const std::uint8_t pixel[3] = {in[2], in[1], in[0]};
        std::memcpy(out, pixel, sizeof pixel);
    }
}

void SwapRGBA(std::span<const std::uint8_t> data, std::uint8_t* out) {
    const std::uint8_t* in = data.data();
    for (std::size_t i = 0; i + 3 < data.size(); i += 4) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, in + i, sizeof pixel);
        // The outer bytes of either half change places, in both byte orders.
        pixel = (pixel & 0xff00ff00) | (pixel & 0xff) << 16 | (pixel >> 16 & 0xff);
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
    const std::span<const std::uint8_t> data = mdlPNG.GetChunk("PLTE1").Data;
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
                      i < tRNS.size() ? tRNS[i] : Opaque};
    }
}

void ApplyPaletteAlpha(std::int32_t width, std::int16_t bits, std::span<const std::uint8_t> row,
                       const AlphaPalette& palette, std::uint8_t* out) {
    if (ApplyColours(width, bits, row.data(), palette, out) >= palette.NumColours) {
        throw std::runtime_error("a palette index beyond the palette");
    }
}

} // namespace editor
