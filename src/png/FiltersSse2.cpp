// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/InstructionSet.h"
#include "png/Filters.h"

#ifdef EDITOR_SSE2

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <emmintrin.h>
#include <type_traits>

namespace editor {
namespace {

// The bytes of a pixel do not depend on each other, but each pixel depends on the one before it. So
// the loops below keep a pixel of `Size` bytes in the low bytes of a register, and their speed is
// decided by how many instructions lead from one pixel's result to the next one's.

template <class Integer>
int LoadInteger(const std::uint8_t* bytes) {
    Integer value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return static_cast<int>(value);
}

// `AnotherFollows` says that this is not the last pixel of the row. Pixels of 3 and 6 bytes are
// then read together with the first bytes of the next one, which do no harm in the register. The
// last pixel is put together from two parts, in registers: from memory, the processor would have to
// wait until both are written.
template <int Size, bool AnotherFollows>
__m128i LoadPixel(const std::uint8_t* bytes) {
    if constexpr (Size == 8 || (Size == 6 && AnotherFollows)) {
        return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(bytes));
    } else if constexpr (Size == 6) {
        return _mm_unpacklo_epi32(_mm_cvtsi32_si128(LoadInteger<std::int32_t>(bytes)),
                                  _mm_cvtsi32_si128(LoadInteger<std::uint16_t>(bytes + 4)));
    } else if constexpr (Size == 4 || (Size == 3 && AnotherFollows)) {
        return _mm_cvtsi32_si128(LoadInteger<std::int32_t>(bytes));
    } else if constexpr (Size == 3) {
        return _mm_cvtsi32_si128(LoadInteger<std::uint16_t>(bytes) | bytes[2] << 16);
    } else if constexpr (Size == 2) {
        return _mm_cvtsi32_si128(LoadInteger<std::uint16_t>(bytes));
    } else {
        return _mm_cvtsi32_si128(*bytes);
    }
}

template <int Size>
void StorePixel(std::uint8_t* bytes, __m128i pixel) {
    if constexpr (Size == 8) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(bytes), pixel);
        return;
    }
    const int first = _mm_cvtsi128_si32(pixel);
    std::memcpy(bytes, &first, std::min(Size, 4));
    if constexpr (Size == 6) {
        const int rest = _mm_extract_epi16(pixel, 2);
        std::memcpy(bytes + 4, &rest, 2);
    }
}

// Calls `kernel` with the size of a pixel as a constant.
template <class Kernel>
void WithPixelSize(std::int32_t bytesPerPixel, Kernel kernel) {
    switch (bytesPerPixel) {
    case 1:
        return kernel(std::integral_constant<int, 1>());
    case 2:
        return kernel(std::integral_constant<int, 2>());
    case 3:
        return kernel(std::integral_constant<int, 3>());
    case 4:
        return kernel(std::integral_constant<int, 4>());
    case 6:
        return kernel(std::integral_constant<int, 6>());
    default:
        return kernel(std::integral_constant<int, 8>());
    }
}

// What a filter remembers from one pixel to the next. Next() returns the reconstructed pixel of the
// filtered pixel x; b is the pixel above.

struct SubStep {
    __m128i Next(__m128i x, __m128i) {
        a = _mm_add_epi8(a, x);
        return a;
    }

    __m128i a = _mm_setzero_si128();
};

// _mm_avg_epu8 rounds up, but the filter rounds down. Rounding up complements is rounding down:
// with a' = ~a and b' = ~b, x + (a + b) / 2 = x + ~avg(a', b'). The complement of that, which is
// the next pixel's a', is avg(a', b') - x: two instructions from pixel to pixel.
struct AverageStep {
    __m128i Next(__m128i x, __m128i b) {
        const __m128i ones = _mm_set1_epi8(-1);
        notA = _mm_sub_epi8(_mm_avg_epu8(notA, _mm_xor_si128(b, ones)), x);
        return _mm_xor_si128(notA, ones);
    }

    __m128i notA = _mm_set1_epi8(-1);
};

// x + the Paeth predictor of a, b and c, in 16-bit lanes that hold 0 to 255 each.
//
// Let lo and hi be the smaller and the larger of a and b, u = c - lo and v = hi - c. For c between
// them, p = a + b - c lies v from lo, u from hi and |u - v| from c: lo is as near as c when
// 2v <= u, and hi when 2u <= v. For c beyond hi or lo the same two inequalities tell which of them
// is nearest. With t = 3c - a - b they read t >= hi and t <= lo, and both hold only when a = b = c.
// So the predictor is c plus one of two differences, or neither.
__m128i AddPaeth(__m128i x, __m128i a, __m128i b, __m128i c) {
    const __m128i lo = _mm_min_epi16(a, b);
    const __m128i hi = _mm_max_epi16(a, b);
    const __m128i t = _mm_sub_epi16(_mm_sub_epi16(_mm_add_epi16(c, _mm_add_epi16(c, c)), b), a);
    const __m128i toLo = _mm_andnot_si128(_mm_cmpgt_epi16(hi, t), _mm_sub_epi16(lo, c));
    const __m128i toHi = _mm_andnot_si128(_mm_cmpgt_epi16(t, lo), _mm_sub_epi16(hi, c));
    const __m128i sum = _mm_add_epi16(_mm_add_epi16(x, c), _mm_or_si128(toLo, toHi));
    return _mm_and_si128(sum, _mm_set1_epi16(0xff));
}

struct PaethStep {
    __m128i Next(__m128i x, __m128i b) {
        const __m128i zero = _mm_setzero_si128();
        const __m128i wideB = _mm_unpacklo_epi8(b, zero);
        a = AddPaeth(_mm_unpacklo_epi8(x, zero), a, wideB, c);
        c = wideB;
        return _mm_packus_epi16(a, a);
    }

    __m128i a = _mm_setzero_si128();
    __m128i c = _mm_setzero_si128();
};

template <int Size, class Step>
void Reconstruct(std::span<std::uint8_t> row, const std::uint8_t* previous, Step step) {
    std::uint8_t* x = row.data();
    const std::uint8_t* last = x + (row.size() - Size);
    for (; x != last; x += Size, previous += Size) {
        StorePixel<Size>(x, step.Next(LoadPixel<Size, true>(x), LoadPixel<Size, true>(previous)));
    }
    StorePixel<Size>(x, step.Next(LoadPixel<Size, false>(x), LoadPixel<Size, false>(previous)));
}

// Two rows in lockstep. The second is one pixel behind, because it needs the first one's result.
// While the processor waits for a pixel of one row, it works on the other.
template <int Size, class FirstStep, class SecondStep>
void ReconstructPair(std::span<std::uint8_t> first, FirstStep firstStep,
                     std::span<std::uint8_t> second, SecondStep secondStep,
                     const std::uint8_t* previous) {
    std::uint8_t* x1 = first.data();
    std::uint8_t* x2 = second.data();
    const std::uint8_t* last = x1 + (first.size() - Size);
    __m128i above = _mm_setzero_si128();
    if (x1 != last) {
        above = firstStep.Next(LoadPixel<Size, true>(x1), LoadPixel<Size, true>(previous));
        StorePixel<Size>(x1, above);
        for (x1 += Size, previous += Size; x1 != last; x1 += Size, x2 += Size, previous += Size) {
            const __m128i pixel =
                firstStep.Next(LoadPixel<Size, true>(x1), LoadPixel<Size, true>(previous));
            StorePixel<Size>(x2, secondStep.Next(LoadPixel<Size, true>(x2), above));
            StorePixel<Size>(x1, pixel);
            above = pixel;
        }
        StorePixel<Size>(x2, secondStep.Next(LoadPixel<Size, true>(x2), above));
        x2 += Size;
    }
    above = firstStep.Next(LoadPixel<Size, false>(x1), LoadPixel<Size, false>(previous));
    StorePixel<Size>(x1, above);
    StorePixel<Size>(x2, secondStep.Next(LoadPixel<Size, false>(x2), above));
}

// The Paeth filters of two rows in one register, for pixels of up to 4 bytes. The register's lower
// half is the upper row; its upper half is the lower row, one pixel behind, so that the pixel above
// is the lower half's previous result.
struct PaethTwinStep {
    // `x`, `b`: of the upper row in the low bytes, of the lower row's `x` in the bytes from 4 on.
    __m128i Next(__m128i x, __m128i b) {
        const __m128i zero = _mm_setzero_si128();
        const __m128i wideB = _mm_unpacklo_epi64(_mm_unpacklo_epi8(b, zero), a);
        a = AddPaeth(_mm_unpacklo_epi8(x, zero), a, wideB, c);
        c = wideB;
        return _mm_packus_epi16(a, a);
    }

    __m128i a = _mm_setzero_si128();
    __m128i c = _mm_setzero_si128();
};

using FourRows = std::array<std::uint8_t*, 4>;

// One step of four rows in lockstep: row r is at pixel `column` - r. In the middle, every row is at
// a pixel with another one after it. Near the ends some rows are not: one that has not begun is
// given zeros, which keep what its filter remembers at zero, and of one that has ended nothing is
// stored.
template <int Size, bool InTheMiddle>
void StepFour(const FourRows& rows, const std::uint8_t* previous, std::size_t column,
              std::size_t pixels, PaethTwinStep& upper, PaethTwinStep& lower) {
    const auto inside = [&](std::size_t r) {
        return InTheMiddle || (column >= r && column - r < pixels);
    };
    const auto at = [&](std::size_t r) { return rows[r] + (column - r) * Size; };
    const auto load = [&](std::size_t r) {
        return inside(r) ? LoadPixel<Size, InTheMiddle>(at(r)) : _mm_setzero_si128();
    };
    const __m128i above =
        inside(0) ? LoadPixel<Size, InTheMiddle>(previous + column * Size) : _mm_setzero_si128();
    const __m128i aboveLower = _mm_packus_epi16(_mm_srli_si128(upper.a, 8), _mm_setzero_si128());
    const __m128i two = upper.Next(_mm_unpacklo_epi32(load(0), load(1)), above);
    const __m128i others = lower.Next(_mm_unpacklo_epi32(load(2), load(3)), aboveLower);
    const __m128i results[] = {two, _mm_srli_si128(two, 4), others, _mm_srli_si128(others, 4)};
    for (std::size_t r = 0; r < rows.size(); ++r) {
        if (inside(r)) {
            StorePixel<Size>(at(r), results[r]);
        }
    }
}

template <int Size>
void PaethFour(const FourRows& rows, const std::uint8_t* previous, std::size_t length) {
    const std::size_t pixels = length / Size;
    constexpr std::size_t Behind = 3;
    PaethTwinStep upper;
    PaethTwinStep lower;
    std::size_t column = 0;
    for (; column < Behind; ++column) {
        StepFour<Size, false>(rows, previous, column, pixels, upper, lower);
    }
    for (; column + 1 < pixels; ++column) {
        StepFour<Size, true>(rows, previous, column, pixels, upper, lower);
    }
    for (; column < pixels + Behind; ++column) {
        StepFour<Size, false>(rows, previous, column, pixels, upper, lower);
    }
}

// Calls `kernel` with what the filter starts with.
template <class Kernel>
void WithStep(FilterType type, Kernel kernel) {
    switch (type) {
    case FilterType::Sub:
        return kernel(SubStep());
    case FilterType::Average:
        return kernel(AverageStep());
    default:
        return kernel(PaethStep());
    }
}

} // namespace

void FilterSub(std::span<std::uint8_t> row, std::int32_t bytesPerPixel) {
    // The row itself stands in for the one above, which this filter does not use.
    WithPixelSize(bytesPerPixel, [&](auto size) { Reconstruct<size>(row, row.data(), SubStep()); });
}

void FilterUp(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous) {
    constexpr std::size_t Width = sizeof(__m128i);
    std::size_t i = 0;
    for (; i + Width <= row.size(); i += Width) {
        auto* x = reinterpret_cast<__m128i*>(row.data() + i);
        const auto* b = reinterpret_cast<const __m128i*>(previous.data() + i);
        _mm_storeu_si128(x, _mm_add_epi8(_mm_loadu_si128(x), _mm_loadu_si128(b)));
    }
    for (; i < row.size(); ++i) {
        row[i] = static_cast<std::uint8_t>(row[i] + previous[i]);
    }
}

void FilterAverage(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                   std::int32_t bytesPerPixel) {
    WithPixelSize(bytesPerPixel,
                  [&](auto size) { Reconstruct<size>(row, previous.data(), AverageStep()); });
}

void FilterPaeth(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                 std::int32_t bytesPerPixel) {
    WithPixelSize(bytesPerPixel,
                  [&](auto size) { Reconstruct<size>(row, previous.data(), PaethStep()); });
}

void FilterPair(FilterType firstType, std::span<std::uint8_t> first, FilterType secondType,
                std::span<std::uint8_t> second, std::span<const std::uint8_t> previous,
                std::int32_t bytesPerPixel) {
    WithPixelSize(bytesPerPixel, [&](auto size) {
        WithStep(firstType, [&](auto firstStep) {
            WithStep(secondType, [&](auto secondStep) {
                ReconstructPair<size>(first, firstStep, second, secondStep, previous.data());
            });
        });
    });
}

void FilterPaethFour(const std::array<std::span<std::uint8_t>, 4>& rows,
                     std::span<const std::uint8_t> previous, std::int32_t bytesPerPixel) {
    const FourRows data = {rows[0].data(), rows[1].data(), rows[2].data(), rows[3].data()};
    WithPixelSize(bytesPerPixel, [&](auto size) {
        if constexpr (size <= 4) {
            PaethFour<size>(data, previous.data(), previous.size());
        } else {
            ReconstructPair<size>(rows[0], PaethStep(), rows[1], PaethStep(), previous.data());
            ReconstructPair<size>(rows[2], PaethStep(), rows[3], PaethStep(), rows[1].data());
        }
    });
}

} // namespace editor

#endif
