#include "png/Drawing.h"

namespace editor {
namespace {

constexpr std::uint32_t OpaqueBits = 0xff000000;
constexpr std::uint32_t FullAlpha = 255;

std::uint32_t BlendSample(std::uint32_t background, std::uint32_t sample, std::uint32_t alpha) {
    return ((FullAlpha - alpha) * background + alpha * sample + 255) / 256;
}

std::uint32_t BlendPixel(std::uint32_t background, const std::uint8_t* pixel) {
    const std::uint32_t alpha = pixel[3];
    std::uint32_t result = OpaqueBits;
    for (int i = 0; i < 3; ++i) {
        result |= BlendSample(background >> 8 * i & 0xff, pixel[i], alpha) << 8 * i;
    }
    return result;
}

} // namespace

void BlendRow(std::uint32_t* out, const std::uint8_t* pixels, std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i, pixels += 4) {
        if (pixels[3] == FullAlpha) {
            out[i] = OpaqueBits |
                     static_cast<std::uint32_t>(pixels[2] << 16 | pixels[1] << 8 | pixels[0]);
        } else if (pixels[3] != 0) {
            out[i] = BlendPixel(out[i], pixels);
        }
    }
}

void DrawPlain(DrawingSurface& hDC, std::int32_t x, std::int32_t y, const BitmapRec& image) {
    SetDIBitsToDevice(hDC, x, y, image.Header, image.Palette, image.Pixels.bytes());
}

void DrawBlended(DrawingSurface& hDC, std::int32_t x, std::int32_t y, const BitmapRec& image) {
    const VisiblePart columns = Clip(x, image.Header.biWidth, hDC.width());
    const VisiblePart rows = Clip(y, image.Header.biHeight, hDC.height());
    if (columns.count == 0) {
        return;
    }
    const std::ptrdiff_t stride = DibStride(image.Header.biWidth, 32);
    for (std::int32_t r = rows.first; r < rows.first + rows.count; ++r) {
        const std::uint8_t* row = image.Pixels.data() + (image.Header.biHeight - 1 - r) * stride;
        BlendRow(hDC.row(y + r) + x + columns.first, row + std::ptrdiff_t{4} * columns.first,
                 columns.count);
    }
}

} // namespace editor
