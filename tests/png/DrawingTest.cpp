#include "png/Drawing.h"

#include "png/PngFixture.h"

#include <cstring>
#include <limits>

namespace editor {
namespace {

using DrawingTest = PngFixture;

constexpr std::uint32_t Untouched = DrawingSurface::InitialColour;

TEST_F(DrawingTest, BlendingDividesBy256AndKeepsTheEndsExact) {
    struct Row {
        std::uint32_t background;
        Bytes pixel;
        std::uint32_t result;
    };
    for (const Row& row :
         {Row{0xff000000, {255, 255, 255, 128}, 0xff808080},
          Row{0xff123456, {9, 9, 9, 0}, 0xff123456}, Row{0xff123456, {30, 20, 10, 255}, 0xff0a141e},
          Row{0xffffffff, {255, 255, 255, 1}, 0xffffffff},
          Row{0xff000000, {0, 1, 255, 254}, 0xfffe0100}}) {
        std::uint32_t out = row.background;
        BlendRow(&out, row.pixel.data(), 1);
        EXPECT_EQ(out, row.result);
    }
}

TEST_F(DrawingTest, BlendingManyPixelsAtOnceIsBlendingEachAlone) {
    const HeaderRec header = Header(23, 256, 8, 6);
    Bytes pixels = NoiseRows(header, 1);
    const Bytes backgrounds = NoiseRows(header, 2);
    for (std::size_t row = 0; row < 256; ++row) {
        std::vector<std::uint32_t> together(23);
        std::vector<std::uint32_t> alone(23);
        std::uint8_t* first = &pixels[row * 92];
        for (std::size_t i = 0; i < 23; ++i) {
            // Every alpha once, and runs of both ends.
            first[4 * i + 3] = static_cast<std::uint8_t>(i < 8 ? row : i < 13 ? 0 : 255);
            std::memcpy(&together[i], &backgrounds[row * 92 + 4 * i], 4);
            together[i] |= 0xff000000;
            alone[i] = together[i];
            BlendRow(&alone[i], first + 4 * i, 1);
        }
        BlendRow(together.data(), first, 23);
        ASSERT_EQ(together, alone) << row;
    }
}

TEST_F(DrawingTest, AnImageIsPutAtItsPositionAndCutOffAtTheEdges) {
    const HeaderRec plain = Header(3, 2, 4, Greyscale);
    const HeaderRec blended = Header(3, 2, 8, GreyscaleAlpha);
    const Bytes plainRows = {0, 0x12, 0x30, 0, 0x45, 0x60};
    const Bytes blendedRows = {0, 17, 255, 34, 255, 51, 255, 0, 68, 255, 85, 255, 102, 255};
    struct Position {
        std::int32_t x;
        std::int32_t y;
    };
    for (const Bytes& file : {PngOf(plain, plainRows), PngOf(blended, blendedRows)}) {
        ASSERT_EQ(Load(file), 0);
        for (const Position at :
             {Position{0, 0}, Position{1, 1}, Position{-1, -1}, Position{2, 2}, Position{-3, 0},
              Position{0, 3}, Position{std::numeric_limits<std::int32_t>::max(), 0},
              Position{0, std::numeric_limits<std::int32_t>::min()}}) {
            DrawingSurface surface(4, 3);
            png_.DrawToDC(surface, at.x, at.y);
            std::vector<std::uint32_t> expected(12, Untouched);
            for (std::int64_t i = 0; i < 6; ++i) {
                const std::int64_t x = at.x + i % 3;
                const std::int64_t y = at.y + i / 3;
                if (x >= 0 && x < 4 && y >= 0 && y < 3) {
                    expected[static_cast<std::size_t>(y * 4 + x)] =
                        0xff000000U + 0x111111U * static_cast<std::uint32_t>(i + 1);
                }
            }
            EXPECT_EQ(PixelsOf(surface), expected) << at.x << ", " << at.y;
        }
    }
}

TEST_F(DrawingTest, AnIndexBeyondTheColourTableIsDrawnBlack) {
    const HeaderRec header = Header(2, 1, 8, PaletteIndex);
    ASSERT_EQ(Load(PngOf(header, {0, 0, 200}, Chunk("PLTE", {1, 2, 3}))), 0);
    EXPECT_EQ(Drawn(), (std::vector<std::uint32_t>{0xff010203, 0xff000000}));
}

} // namespace
} // namespace editor
