// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/Drawing.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

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

#ifdef __SSE2__

constexpr std::int32_t PixelsAtATime = 4;

// One half of the bytes of `pixels` and `background` as 16-bit lanes; (255 - alpha) x old + alpha x
// new + 255 is at most 255 x 256 and so fits in them.
__m128i BlendLanes(__m128i background, __m128i pixels) {
    const __m128i all255 = _mm_set1_epi16(255);
    const __m128i alpha = _mm_shufflehi_epi16(_mm_shufflelo_epi16(pixels, _MM_SHUFFLE(3, 3, 3, 3)),
                                              _MM_SHUFFLE(3, 3, 3, 3));
    const __m128i sum = _mm_add_epi16(_mm_mullo_epi16(_mm_sub_epi16(all255, alpha), background),
                                      _mm_mullo_epi16(alpha, pixels));
    return _mm_srli_epi16(_mm_add_epi16(sum, all255), 8);
}

__m128i BlendFour(__m128i background, __m128i pixels) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i low =
        BlendLanes(_mm_unpacklo_epi8(background, zero), _mm_unpacklo_epi8(pixels, zero));
    const __m128i high =
        BlendLanes(_mm_unpackhi_epi8(background, zero), _mm_unpackhi_epi8(pixels, zero));
    return _mm_or_si128(_mm_packus_epi16(low, high), _mm_set1_epi32(static_cast<int>(OpaqueBits)));
}

// True when the fourth byte of each pixel, its alpha, is that of `value`.
bool AllAlphasAre(__m128i value, __m128i pixels) {
    constexpr int AlphaBytes = 0x8888;
    return (_mm_movemask_epi8(_mm_cmpeq_epi8(pixels, value)) & AlphaBytes) == AlphaBytes;
}

// Blends the pixels up to the last multiple of four and says how many they were.
std::int32_t BlendFours(std::uint32_t* out, const std::uint32_t* background,
                        const std::uint8_t* pixels, std::int32_t count) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i full = _mm_set1_epi8(-1);
    std::int32_t i = 0;
    for (; i <= count - PixelsAtATime; i += PixelsAtATime) {
        const __m128i old = _mm_loadu_si128(reinterpret_cast<const __m128i*>(background + i));
        __m128i four =
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels + std::ptrdiff_t{4} * i));
        if (AllAlphasAre(zero, four)) {
            four = old;
        } else if (!AllAlphasAre(full, four)) {
            four = BlendFour(old, four);
        }
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i), four);
    }
    return i;
}

#else

std::int32_t BlendFours(std::uint32_t*, const std::uint32_t*, const std::uint8_t*, std::int32_t) {
    return 0;
}

#endif

} // namespace

void BlendRow(std::uint32_t* out, const std::uint32_t* background, const std::uint8_t* pixels,
              std::int32_t count) {
    // The formula keeps the background at alpha 0 and takes the sample at alpha 255 of itself.
    for (std::int32_t i = BlendFours(out, background, pixels, count); i < count; ++i) {
        out[i] = BlendPixel(background[i], pixels + std::ptrdiff_t{4} * i);
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
        const std::uint8_t* pixels = row + std::ptrdiff_t{4} * columns.first;
        if (columns.count == hDC.width()) {
            const std::uint32_t* background = hDC.ShownRow(y + r);
            BlendRow(hDC.RowToCover(y + r), background, pixels, columns.count);
        } else {
            std::uint32_t* out = hDC.row(y + r) + x + columns.first;
            BlendRow(out, out, pixels, columns.count);
        }
    }
}

} // namespace editor
