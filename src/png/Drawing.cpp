// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/Drawing.h"

#include "pictures/Pixel.h"
#include "pictures/WideRows.h"

#include <cstddef>

namespace editor {
namespace {

constexpr std::uint32_t FullAlpha = 255;

std::uint32_t BlendSample(std::uint32_t background, std::uint32_t sample, std::uint32_t alpha) {
    return ((FullAlpha - alpha) * background + alpha * sample + 255) / 256;
}

std::uint32_t BlendPixel(std::uint32_t background, const std::uint8_t* pixel) {
    const std::uint32_t alpha = pixel[3];
    std::uint32_t result = Opaque;
    for (int i = 0; i < 3; ++i) {
        result |= BlendSample(background >> 8 * i & 0xff, pixel[i], alpha) << 8 * i;
    }
    return result;
}

} // namespace

void BlendRow(std::uint32_t* out, const std::uint32_t* background, const std::uint8_t* pixels,
              std::int32_t count) {
    // Alphas 0 and 255 need no case of their own: the formula gives the old or the new sample.
    for (std::int32_t i = BlendPixels(out, background, pixels, count); i < count; ++i) {
        out[i] = BlendPixel(background[i], pixels + std::ptrdiff_t{4} * i);
    }
}

void DrawPlain(DrawingSurface& hDC, std::int32_t x, std::int32_t y, const BitmapRec& image) {
    SetDIBitsToDevice(hDC, x, y, image.Header, image.Palette, image.Pixels.bytes());
}

void DrawBlended(DrawingSurface& hDC, std::int32_t x, std::int32_t y, const BitmapRec& image) {
    const std::ptrdiff_t stride = DibStride(image.Header.biWidth, 32);
    hDC.Draw(x, y, image.Header.biWidth, image.Header.biHeight,
             [&](std::int32_t r, VisiblePart part, std::uint32_t* out, const std::uint32_t* shown) {
                 const std::uint8_t* row =
                     BottomUpRow(image.Pixels.data(), stride, image.Header.biHeight, r);
                 BlendRow(out, shown, row + std::ptrdiff_t{4} * part.first, part.count);
             });
}

} // namespace editor
