// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/LargeBuffer.h"

#include <cstdint>
#include <functional>
#include <span>

namespace editor {

/// The part of `length` pixels laid from `position` on that falls within 0 to `limit` - 1.
struct VisiblePart {
    std::int32_t first = 0; // of the pixels laid
    std::int32_t count = 0;
};
[[nodiscard]] VisiblePart Clip(std::int32_t position, std::int32_t length, std::int32_t limit);

/// An off-screen surface to draw pictures on, in the place of the platform's device context:
/// rows of 32-bit pixels 0xffRRGGBB, top row first, without padding. It starts out in NeutralGrey.
///
/// Rows are filled with that grey only when something else than a picture of the whole width is to
/// be seen in them, so that a picture never covers what has just been filled.
class DrawingSurface {
  public:
    /// Sizes in pixels, at least 0. Throws std::bad_alloc when the memory cannot be had.
    DrawingSurface(std::int32_t width, std::int32_t height);

    [[nodiscard]] std::int32_t width() const { return width_; }
    [[nodiscard]] std::int32_t height() const { return height_; }

    /// Row y, 0 at the top: width() pixels, to be read and changed.
    [[nodiscard]] std::uint32_t* row(std::int32_t y);

    /// Sets the pixels from `out` on to what `columns` of row `row` of a picture make of the pixels
    /// from `shown` on, which may be the same place.
    using RowDrawer = std::function<void(std::int32_t row, VisiblePart columns, std::uint32_t* out,
                                         const std::uint32_t* shown)>;

    /// Calls `draw` for each visible row of a picture of `width` x `height` pixels whose top-left
    /// one is at (x, y); what lies outside the surface is dropped. Of large pictures, two threads
    /// draw rows at the same time.
    void Draw(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
              const RowDrawer& draw);

    /// The pixels, handed over; the surface is empty afterwards.
    [[nodiscard]] LargeBuffer TakePixels();

  private:
    [[nodiscard]] std::uint32_t* RowAt(std::int32_t y);
    void FillRowsBelow(std::int32_t end);

    std::int32_t width_;
    std::int32_t height_;
    std::int32_t filledRows_ = 0; // rows from here on are still to be filled with grey
    LargeBuffer pixels_;
};

/// The header of a device-independent bitmap, field by field as the platform documents it.
struct BITMAPINFOHEADER {
    std::uint32_t biSize = 0;
    std::int32_t biWidth = 0;
    std::int32_t biHeight = 0; // positive: the bottom row comes first
    std::uint16_t biPlanes = 0;
    std::uint16_t biBitCount = 0;
    std::uint32_t biCompression = 0;
    std::uint32_t biSizeImage = 0;
    std::int32_t biXPelsPerMeter = 0;
    std::int32_t biYPelsPerMeter = 0;
    std::uint32_t biClrUsed = 0;
    std::uint32_t biClrImportant = 0;

    bool operator==(const BITMAPINFOHEADER&) const = default;
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

/// Bytes of one row of a device-independent bitmap: the pixels, rounded up to a multiple of 4.
/// Throws std::overflow_error when width x bits leaves the signed 32-bit range.
[[nodiscard]] std::int32_t DibStride(std::int32_t width, std::int16_t bitsPerPixel);

/// Copies all of a bottom-up bitmap of 1, 4, 8 or 24 bits per pixel to the surface, its top-left
/// pixel to (x, y); what lies outside the surface is dropped. `palette` has 4 bytes per entry,
/// blue, green, red, 0, of which at most 256 count; an index beyond it is drawn black. `pixels` are
/// biHeight rows of DibStride() bytes.
void SetDIBitsToDevice(DrawingSurface& hDC, std::int32_t x, std::int32_t y,
                       const BITMAPINFOHEADER& header, std::span<const std::uint8_t> palette,
                       std::span<const std::uint8_t> pixels);

} // namespace editor
