// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/DrawingSurface.h"

#include "pictures/Pixel.h"
#include "pictures/WideRows.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <future>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

namespace editor {
namespace {

// A thread draws rows of about so many pixels at a time, which takes longer than to start it.
constexpr std::int32_t PixelsAtATime = 1 << 19;

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
    std::int32_t i = Bits == 8 ? LookUpColours(out, row + part.first, part.count, colours) : 0;
    for (; i < part.count; ++i) {
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

void DrawingSurface::Draw(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
                          const RowDrawer& draw) {
    const VisiblePart columns = Clip(x, width, width_);
    const VisiblePart rows = Clip(y, height, height_);
    if (columns.count == 0 || rows.count == 0) {
        return;
    }
    const std::int32_t top = y + rows.first;
    FillRowsBelow(columns.count == width_ ? top : top + rows.count);
    const std::vector<std::uint32_t> initialRow(static_cast<std::size_t>(columns.count),
                                                NeutralGrey);
    const std::int64_t most = std::max(1, PixelsAtATime / columns.count);
    std::atomic<std::int64_t> next = 0;
    const auto drawRows = [&] {
        for (std::int64_t from = next.fetch_add(most); from < rows.count;
             from = next.fetch_add(most)) {
            const std::int64_t end = std::min<std::int64_t>(from + most, rows.count);
            for (auto r = static_cast<std::int32_t>(from); r < end; ++r) {
                std::uint32_t* out = RowAt(top + r) + (x + columns.first);
                draw(rows.first + r, columns, out, top + r < filledRows_ ? out : initialRow.data());
            }
        }
    };
    std::future<void> other;
    if (rows.count > most) {
        // Where no thread can be started, this is put off until get() wants it.
        other = std::async(drawRows);
    }
    drawRows();
    if (other.valid()) {
        other.get();
    }
    filledRows_ = std::max(filledRows_, top + rows.count);
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
    const std::ptrdiff_t stride =
        DibStride(header.biWidth, static_cast<std::int16_t>(header.biBitCount));
    hDC.Draw(x, y, header.biWidth, header.biHeight,
             [&](std::int32_t r, VisiblePart part, std::uint32_t* out, const std::uint32_t*) {
                 const std::uint8_t* row = BottomUpRow(pixels.data(), stride, header.biHeight, r);
                 switch (header.biBitCount) {
                 case 1:
                     DrawIndices<1>(out, row, part, colours);
                     break;
                 case 4:
                     DrawIndices<4>(out, row, part, colours);
                     break;
                 case 8:
                     DrawIndices<8>(out, row, part, colours);
                     break;
                 default:
                     DrawTriples(out, row, part);
                     break;
                 }
             });
}

} // namespace editor
