#include "png/Filters.h"

#include "png/Sizes.h"
#include "support/PngBuilder.h"

#include <array>
#include <gtest/gtest.h>

namespace editor {
namespace {

TEST(FiltersTest, ThePredictorTakesTheNearestAndOfEquallyNearOnesTheFirst) {
    EXPECT_EQ(PaethPredictor(5, 5, 5), 5);
    EXPECT_EQ(PaethPredictor(10, 20, 10), 20);
    EXPECT_EQ(PaethPredictor(10, 30, 20), 20);
    EXPECT_EQ(PaethPredictor(10, 14, 13), 10); // p = 11: 1, 3, 2
}

TEST(FiltersTest, SizesOfRowsFollowFromTheHeader) {
    struct Row {
        HeaderRec header;
        std::int32_t rowBytes;
        std::int32_t bytesPerPixel;
    };
    for (const Row& row :
         {Row{Header(1, 1, 1, Greyscale), 2, 1}, Row{Header(5, 1, 8, Greyscale), 6, 1},
          Row{Header(3, 1, 16, TruecolourAlpha), 25, 8}, Row{Header(9, 1, 4, PaletteIndex), 6, 1},
          Row{Header(2, 1, 16, GreyscaleAlpha), 9, 4}, Row{Header(2, 1, 8, Truecolour), 7, 3}}) {
        EXPECT_EQ(RowBytes(row.header), row.rowBytes);
        EXPECT_EQ(BytesPerPixel(row.header), row.bytesPerPixel);
    }
}

// Rows to filter: noise, and the values at which sums wrap and predictors tie.
Bytes Row(std::size_t size, std::uint32_t seed) {
    Bytes row = NoiseRows(Header(static_cast<std::int32_t>(size), 1, 8, Greyscale), seed);
    for (std::size_t i = seed % 5; i < size; i += 5) {
        row[i] = static_cast<std::uint8_t>((seed + i) % 3 * 127 + (seed + i) % 2);
    }
    return row;
}

Bytes PlainlyFiltered(FilterType type, Bytes row, const Bytes& previous,
                      std::int32_t bytesPerPixel) {
    switch (type) {
    case FilterType::Sub:
        plain::FilterSub(row, bytesPerPixel);
        break;
    case FilterType::Up:
        plain::FilterUp(row, previous);
        break;
    case FilterType::Average:
        plain::FilterAverage(row, previous, bytesPerPixel);
        break;
    case FilterType::Paeth:
        plain::FilterPaeth(row, previous, bytesPerPixel);
        break;
    default:
        break;
    }
    return row;
}

class FastFilters : public testing::TestWithParam<std::int32_t> {};

TEST_P(FastFilters, GiveTheBytesOfThePlainOnes) {
    const std::int32_t bytesPerPixel = GetParam();
    constexpr FilterType None = FilterType::None, Sub = FilterType::Sub, Up = FilterType::Up,
                         Average = FilterType::Average, Paeth = FilterType::Paeth;
    for (std::uint32_t pixels = 1; pixels < 40; ++pixels) {
        const std::size_t size = static_cast<std::size_t>(bytesPerPixel) * pixels;
        const Bytes above = Row(size, pixels);
        for (const FilterType type : {None, Sub, Up, Average, Paeth, FilterType{9}}) {
            for (const Bytes& previous : {above, Bytes()}) {
                Bytes row = Row(size, pixels + 100);
                const Bytes expected = PlainlyFiltered(type, row, previous, bytesPerPixel);
                FilterRow(type, row, previous, bytesPerPixel);
                ASSERT_EQ(row, expected) << static_cast<int>(type) << ", " << pixels << " pixels";
            }
        }
        for (const FilterType firstType : {Sub, Average, Paeth}) {
            for (const FilterType secondType : {Sub, Average, Paeth}) {
                Bytes first = Row(size, pixels + 200);
                Bytes second = Row(size, pixels + 300);
                const Bytes one = PlainlyFiltered(firstType, first, above, bytesPerPixel);
                const Bytes two = PlainlyFiltered(secondType, second, one, bytesPerPixel);
                FilterPair(firstType, first, secondType, second, above, bytesPerPixel);
                ASSERT_EQ(first, one) << pixels << " pixels";
                ASSERT_EQ(second, two) << pixels << " pixels";
            }
        }
        std::array<Bytes, 4> rows;
        std::array<Bytes, 4> expected;
        for (std::uint32_t i = 0; i < 4; ++i) {
            rows[i] = Row(size, pixels + 400 + i);
            expected[i] =
                PlainlyFiltered(Paeth, rows[i], i == 0 ? above : expected[i - 1], bytesPerPixel);
        }
        FilterPaethFour({rows[0], rows[1], rows[2], rows[3]}, above, bytesPerPixel);
        ASSERT_EQ(rows, expected) << pixels << " pixels";
    }
}

INSTANTIATE_TEST_SUITE_P(EveryPixelSize, FastFilters, testing::Values(1, 2, 3, 4, 6, 8));

} // namespace
} // namespace editor
