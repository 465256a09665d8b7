#include "png/Filters.h"

#include "png/Sizes.h"
#include "support/PngBuilder.h"

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
    for (const Row& row : {Row{{.Width = 1, .BitDepth = 1, .ColorType = Greyscale}, 2, 1},
                           Row{{.Width = 5, .BitDepth = 8, .ColorType = Greyscale}, 6, 1},
                           Row{{.Width = 3, .BitDepth = 16, .ColorType = TruecolourAlpha}, 25, 8},
                           Row{{.Width = 9, .BitDepth = 4, .ColorType = PaletteIndex}, 6, 1},
                           Row{{.Width = 2, .BitDepth = 16, .ColorType = GreyscaleAlpha}, 9, 4},
                           Row{{.Width = 2, .BitDepth = 8, .ColorType = Truecolour}, 7, 3}}) {
        EXPECT_EQ(RowBytes(row.header), row.rowBytes);
        EXPECT_EQ(BytesPerPixel(row.header), row.bytesPerPixel);
    }
}

} // namespace
} // namespace editor
