// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "inflate/Adler32.h"
#include "pictures/InstructionSet.h"

#ifdef EDITOR_SSE2

#include <emmintrin.h>

namespace editor {
namespace {

constexpr std::size_t Width = sizeof(__m128i);

std::uint32_t SumOfLanes(__m128i lanes) {
    lanes = _mm_add_epi32(lanes, _mm_shuffle_epi32(lanes, _MM_SHUFFLE(1, 0, 3, 2)));
    lanes = _mm_add_epi32(lanes, _mm_shuffle_epi32(lanes, _MM_SHUFFLE(2, 3, 0, 1)));
    return static_cast<std::uint32_t>(_mm_cvtsi128_si32(lanes));
}

} // namespace

// Over 16 bytes, the high sum grows by 16 times the low sum before them, and by every byte as often
// as it is counted until their end: 16 times the first, once the last.
std::size_t AddToSums(std::span<const std::uint8_t> bytes, std::uint32_t& low,
                      std::uint32_t& high) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i firstWeights = _mm_setr_epi16(16, 15, 14, 13, 12, 11, 10, 9);
    const __m128i lastWeights = _mm_setr_epi16(8, 7, 6, 5, 4, 3, 2, 1);
    __m128i sum = zero;        // of the bytes, in two lanes
    __m128i sumsBefore = zero; // of `sum` before each 16 bytes
    __m128i weighted = zero;
    const std::size_t wide = bytes.size() / Width * Width;
    for (std::size_t i = 0; i < wide; i += Width) {
        const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data() + i));
        sumsBefore = _mm_add_epi32(sumsBefore, sum);
        sum = _mm_add_epi32(sum, _mm_sad_epu8(next, zero));
        weighted = _mm_add_epi32(
            weighted, _mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi8(next, zero), firstWeights),
                                    _mm_madd_epi16(_mm_unpackhi_epi8(next, zero), lastWeights)));
    }
    high += static_cast<std::uint32_t>(wide) * low + SumOfLanes(weighted) +
            static_cast<std::uint32_t>(Width) * SumOfLanes(sumsBefore);
    low += SumOfLanes(sum);
    return wide;
}

} // namespace editor

#endif
