// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/DrawingSurface.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <stdexcept>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace editor {
namespace {

constexpr std::uint32_t Opaque = 0xff000000;
constexpr std::uint32_t Black = Opaque;

// A table that any byte may index.
using ColourTable = std::array<std::uint32_t, 256>;

std::uint32_t ColourOf(const std::uint8_t* triple) {
    return Opaque | static_cast<std::uint32_t>(triple[2] << 16 | triple[1] << 8 | triple[0]);
}

ColourTable ColoursOf(std::span<const std::uint8_t> palette) {
    ColourTable colours;
    colours.fill(Black);
    const std::size_t entries = std::min(palette.size() / 4, colours.size());
    for (std::size_t i = 0; i < entries; ++i) {
        colours[i] = ColourOf(&palette[4 * i]);
    }
    return colours;
}

// Pixels `part` of a bitmap row with `Bits` bits a pixel, the first one in a byte's highest bits.
template <int Bits>
void DrawIndices(std::uint32_t* out, const std::uint8_t* row, VisiblePart part,
                 const ColourTable& colours) {
    constexpr int PerByte = 8 / Bits;
    constexpr int Mask = (1 << Bits) - 1;
    for (std::int32_t i = 0; i < part.count; ++i) {
        const std::int32_t x = part.first + i;
        const int shift = Bits * (PerByte - 1 - x % PerByte);
        out[i] = colours[static_cast<std::size_t>(row[x / PerByte] >> shift & Mask)];
    }
}

#ifdef __SSE2__

// Four pixels at a time, as long as 16 bytes are left, and says how many pixels they were.
std::int32_t DrawTriplesByFour(std::uint32_t* out, const std::uint8_t* in, std::int32_t count) {
    constexpr std::int32_t PixelsRead = 6; // the last of them in part
    const __m128i opaque = _mm_set1_epi32(static_cast<int>(Opaque));
    std::int32_t i = 0;
    for (; i <= count - PixelsRead; i += 4, in += 12) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
        const __m128i two = _mm_unpacklo_epi32(bytes, _mm_srli_si128(bytes, 3));
        const __m128i others =
            _mm_unpacklo_epi32(_mm_srli_si128(bytes, 6), _mm_srli_si128(bytes, 9));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i),
                         _mm_or_si128(_mm_unpacklo_epi64(two, others), opaque));
    }
    return i;
}

#else

std::int32_t DrawTriplesByFour(std::uint32_t*, const std::uint8_t*, std::int32_t) {
    return 0;
}

#endif

void DrawTriples(std::uint32_t* out, const std::uint8_t* row, VisiblePart part) {
    const std::uint8_t* in = row + std::ptrdiff_t{3} * part.first;
    for (std::int32_t i = DrawTriplesByFour(out, in, part.count); i < part.count; ++i) {
        out[i] = ColourOf(in + std::ptrdiff_t{3} * i);
    }
}

} // namespace

DrawingSurface::DrawingSurface(std::int32_t width, std::int32_t height)
    : width_(width), height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
              sizeof(std::uint32_t)) {}

std::uint32_t* DrawingSurface::RowAt(std::int32_t y) {
    return reinterpret_cast<std::uint32_t*>(pixels_.data()) +
           static_cast<std::ptrdiff_t>(y) * width_;
}

void DrawingSurface::FillRowsBelow(std::int32_t end) {
    if (filledRows_ < end) {
        std::fill(RowAt(filledRows_), RowAt(end), InitialColour);
        filledRows_ = end;
    }
}

std::uint32_t* DrawingSurface::row(std::int32_t y) {
    FillRowsBelow(y + 1);
    return RowAt(y);
}

const std::uint32_t* DrawingSurface::ShownRow(std::int32_t y) {
    if (y < filledRows_) {
        return RowAt(y);
    }
    initialRow_.resize(static_cast<std::size_t>(width_), InitialColour);
    return initialRow_.data();
}

std::uint32_t* DrawingSurface::RowToCover(std::int32_t y) {
    FillRowsBelow(y);
    filledRows_ = std::max(filledRows_, y + 1);
    return RowAt(y);
}

LargeBuffer DrawingSurface::TakePixels() {
    FillRowsBelow(height_);
    width_ = 0;
    height_ = 0;
    filledRows_ = 0;
    return std::move(pixels_);
}

std::int32_t DibStride(std::int32_t width, std::int16_t bitsPerPixel) {
    const std::int64_t bits = std::int64_t{bitsPerPixel} * width + 31;
    if (bits > std::numeric_limits<std::int32_t>::max()) {
        throw std::overflow_error("a bitmap row leaves the 32-bit range");
    }
    return static_cast<std::int32_t>(bits / 32 * 4);
}

VisiblePart Clip(std::int32_t position, std::int32_t length, std::int32_t limit) {
    const std::int64_t first = std::max<std::int64_t>(0, -std::int64_t{position});
    const std::int64_t end = std::min<std::int64_t>(length, std::int64_t{limit} - position);
    if (end <= first) {
        return {};
    }
    return {static_cast<std::int32_t>(first), static_cast<std::int32_t>(end - first)};
}

void SetDIBitsToDevice(DrawingSurface& hDC, std::int32_t x, std::int32_t y,
                       const BITMAPINFOHEADER& header, std::span<const std::uint8_t> palette,
                       std::span<const std::uint8_t> pixels) {
    const ColourTable colours = ColoursOf(palette);
    const VisiblePart columns = Clip(x, header.biWidth, hDC.width());
    const VisiblePart rows = Clip(y, header.biHeight, hDC.height());
    if (columns.count == 0) {
        return;
    }
    const std::ptrdiff_t stride =
        DibStride(header.biWidth, static_cast<std::int16_t>(header.biBitCount));
    for (std::int32_t r = rows.first; r < rows.first + rows.count; ++r) {
        const std::uint8_t* row = pixels.data() + (header.biHeight - 1 - r) * stride;
        std::uint32_t* out = columns.count == hDC.width() ? hDC.RowToCover(y + r)
                                                          : hDC.row(y + r) + x + columns.first;
        switch (header.biBitCount) {
        case 1:
            DrawIndices<1>(out, row, columns, colours);
            break;
        case 4:
            DrawIndices<4>(out, row, columns, colours);
            break;
        case 8:
            DrawIndices<8>(out, row, columns, colours);
            break;
        default:
            DrawTriples(out, row, columns);
            break;
        }
    }
}

} // namespace editor
