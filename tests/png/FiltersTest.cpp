// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/Filters.h"

#include "support/PngBuilder.h"

#include <array>
#include <gtest/gtest.h>

namespace editor {
namespace {

// Rows to filter: noise, and the values at which sums wrap and predictors tie.
Bytes Row(std::size_t size, std::uint32_t seed) {
    Bytes row = NoiseRows(Header(static_cast<std::int32_t>(size), 1, 8, Greyscale), seed);
    for (std::size_t i = seed % 5; i < size; i += 5) {
        row[i] = static_cast<std::uint8_t>((seed + i) % 3 * 127 + (seed + i) % 2);
    }
    return row;
}

Bytes PlainlyFiltered(FilterType type, Bytes row, const Bytes& previous, std::int32_t pixelBytes) {
    type == FilterType::Sub       ? plain::FilterSub(row, pixelBytes)
    : type == FilterType::Up      ? plain::FilterUp(row, previous)
    : type == FilterType::Average ? plain::FilterAverage(row, previous, pixelBytes)
    : type == FilterType::Paeth   ? plain::FilterPaeth(row, previous, pixelBytes)
                                  : void();
    return row;
}

class FastFilters : public testing::TestWithParam<std::int32_t> {};

TEST_P(FastFilters, GiveTheBytesOfThePlainOnes) {
    const std::int32_t bytesPerPixel = GetParam();
    constexpr FilterType Sub = FilterType::Sub, Average = FilterType::Average,
                         Paeth = FilterType::Paeth;
    for (std::uint32_t pixels = 1; pixels < 40; ++pixels) {
        SCOPED_TRACE(pixels);
        const std::size_t size = static_cast<std::size_t>(bytesPerPixel) * pixels;
        const Bytes above = Row(size, pixels);
        for (const FilterType type : {FilterType::None, Sub, FilterType::Up, Average, Paeth}) {
            for (const Bytes& previous : {above, Bytes()}) {
                Bytes row = Row(size, pixels + 100);
                const Bytes expected = PlainlyFiltered(type, row, previous, bytesPerPixel);
                FilterRow(type, row, previous, bytesPerPixel);
                ASSERT_EQ(row, expected) << static_cast<int>(type);
            }
        }
        std::array<Bytes, 4> rows, expected;
        const auto prepare = [&](const std::array<FilterType, 4>& types) {
            for (std::uint32_t i = 0; i < 4; ++i) {
                rows[i] = Row(size, pixels + 200 + i);
                expected[i] = PlainlyFiltered(types[i], rows[i], i == 0 ? above : expected[i - 1],
                                              bytesPerPixel);
            }
        };
        for (const FilterType first : {Sub, Average, Paeth}) {
            for (const FilterType second : {Sub, Average, Paeth}) {
                prepare({first, second, second, second});
                FilterPair(first, rows[0], second, rows[1], above, bytesPerPixel);
                ASSERT_TRUE(rows[0] == expected[0] && rows[1] == expected[1]);
            }
        }
        prepare({Paeth, Paeth, Paeth, Paeth});
        FilterPaethFour({rows[0], rows[1], rows[2], rows[3]}, above, bytesPerPixel);
        ASSERT_EQ(rows, expected);
    }
}

INSTANTIATE_TEST_SUITE_P(EveryPixelSize, FastFilters, testing::Values(1, 2, 3, 4, 6, 8));

} // namespace
} // namespace editor
