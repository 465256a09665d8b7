// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/InstructionSet.h"
#include "pictures/WideRows.h"

#ifdef EDITOR_SSE2

#include "pictures/Pixel.h"

#include <cstddef>
#include <emmintrin.h>

namespace editor {
namespace {

__m128i Load(const void* bytes) {
    return _mm_loadu_si128(static_cast<const __m128i*>(bytes));
}

void Store(void* bytes, __m128i value) {
    _mm_storeu_si128(static_cast<__m128i*>(bytes), value);
}

constexpr std::int32_t PixelsPerCacheLine = 16;

// How far ahead of a loop memory is asked for: to wait for it takes longer than the loop's work.
constexpr std::uintptr_t BytesAhead = 4096;

// Starts to bring what lies so far behind `place` into the processor's cache, be it outside of any
// object.
void PrefetchAhead(const void* place) {
    const std::uintptr_t address = reinterpret_cast<std::uintptr_t>(place) + BytesAhead;
    _mm_prefetch(reinterpret_cast<const char*>(address), _MM_HINT_T0);
}

// A register holds five pixels of 3 bytes and the first byte of a sixth.
constexpr std::int32_t TriplesTouched = 6;

// Half of the bytes of `pixels` and `background`, one in each 16-bit lane. The largest sum,
// 255 x 255 + 255, still fits in a lane.
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
    return _mm_or_si128(_mm_packus_epi16(low, high), _mm_set1_epi32(static_cast<int>(Opaque)));
}

// True when the alphas of all four pixels, their fourth bytes, are those of `value`.
bool AllAlphasAre(__m128i value, __m128i pixels) {
    constexpr int AlphaBytes = 0x8888;
    return (_mm_movemask_epi8(_mm_cmpeq_epi8(pixels, value)) & AlphaBytes) == AlphaBytes;
}

} // namespace

std::int32_t LookUpColours(std::uint32_t* out, const std::uint8_t* indices, std::int32_t count,
                           const ColourTable& colours) {
    std::int32_t i = 0;
    for (; i <= count - PixelsPerCacheLine; i += PixelsPerCacheLine) {
        PrefetchAhead(out + i);
        for (std::int32_t k = i; k < i + PixelsPerCacheLine; ++k) {
            out[k] = colours[indices[k]];
        }
    }
    return i;
}

std::int32_t WidenTriples(std::uint32_t* out, const std::uint8_t* triples, std::int32_t count) {
    const __m128i opaque = _mm_set1_epi32(static_cast<int>(Opaque));
    std::int32_t i = 0;
    for (; i <= count - TriplesTouched; i += 4, triples += 12) {
        const __m128i bytes = Load(triples);
        const __m128i two = _mm_unpacklo_epi32(bytes, _mm_srli_si128(bytes, 3));
        const __m128i others =
            _mm_unpacklo_epi32(_mm_srli_si128(bytes, 6), _mm_srli_si128(bytes, 9));
        Store(out + i, _mm_or_si128(_mm_unpacklo_epi64(two, others), opaque));
    }
    return i;
}

std::int32_t SwapTriples(std::uint8_t* out, const std::uint8_t* triples, std::int32_t count) {
    const __m128i seconds = _mm_setr_epi8(0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0);
    const __m128i thirds = _mm_slli_si128(seconds, 1);
    const __m128i firsts = _mm_srli_si128(seconds, 1);
    std::int32_t i = 0;
    for (; i <= count - TriplesTouched; i += 5, triples += 15, out += 15) {
        const __m128i pixels = Load(triples);
        const __m128i swapped = _mm_or_si128(_mm_and_si128(_mm_srli_si128(pixels, 2), firsts),
                                             _mm_and_si128(_mm_slli_si128(pixels, 2), thirds));
        // The sixteenth byte is wrong; the next pixels overwrite it.
        Store(out, _mm_or_si128(swapped, _mm_and_si128(pixels, seconds)));
    }
    return i;
}

std::int32_t BlendPixels(std::uint32_t* out, const std::uint32_t* background,
                         const std::uint8_t* pixels, std::int32_t count) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i full = _mm_set1_epi8(-1);
    std::int32_t i = 0;
    for (; i <= count - 4; i += 4) {
        const __m128i old = Load(background + i);
        __m128i four = Load(pixels + std::ptrdiff_t{4} * i);
        if (AllAlphasAre(zero, four)) {
            four = old;
        } else if (!AllAlphasAre(full, four)) {
            four = BlendFour(old, four);
        }
        Store(out + i, four);
    }
    return i;
}

void Prefetch(const std::uint32_t* first, const std::uint32_t* last) {
    for (std::ptrdiff_t i = 0; i <= last - first; i += PixelsPerCacheLine) {
        _mm_prefetch(reinterpret_cast<const char*>(first + i), _MM_HINT_T0);
    }
}

} // namespace editor

#endif
