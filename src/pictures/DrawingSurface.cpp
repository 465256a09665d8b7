// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/DrawingSurface.h"

#include "pictures/Pixel.h"
#include "pictures/WideRows.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <utility>

namespace editor {
namespace {

// A table that any byte may index.
using ColourTable = std::array<std::uint32_t, 256>;

std::uint32_t ColourOf(const std::uint8_t* triple) {
    return Opaque | static_cast<std::uint32_t>(triple[2] << 16 | triple[1] << 8 | triple[0]);
}

ColourTable ColoursOf(std::span<const std::uint8_t> palette) {
    ColourTable colours;
    colours.fill(Opaque);
    const std::size_t entries = std::min(palette.size() / 4, colours.size());
    for (std::size_t i = 0; i < entries; ++i) {
        colours[i] = ColourOf(&palette[4 * i]);
    }
    return colours;
}

// Pixels `part` of a bitmap row with `Bits` bits per pixel.
template <int Bits>
void DrawIndices(std::uint32_t* out, const std::uint8_t* row, VisiblePart part,
                 const ColourTable& colours) {
    for (std::int32_t i = 0; i < part.count; ++i) {
        out[i] = colours[PackedSample<Bits>(row, part.first + i)];
    }
}

void DrawTriples(std::uint32_t* out, const std::uint8_t* row, VisiblePart part) {
    const std::uint8_t* in = row + std::ptrdiff_t{3} * part.first;
    for (std::int32_t i = WidenTriples(out, in, part.count); i < part.count; ++i) {
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
        std::fill(RowAt(filledRows_), RowAt(end), NeutralGrey);
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
    initialRow_.resize(static_cast<std::size_t>(width_), NeutralGrey);
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
        const std::uint8_t* row = BottomUpRow(pixels.data(), stride, header.biHeight, r);
        std::uint32_t* out = columns.count == hDC.width() ? hDC.RowToCover(y + r)
                                                          : hDC.row(y + r) + (x + columns.first);
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
