// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/Pixel.h"
#include "png/PngFixture.h"

namespace editor {
namespace {

using DrawingTest = PngFixture;

TEST_F(DrawingTest, AnImageIsPutAtItsPositionAndCutOffAtTheEdges) {
    const Bytes blended = {0, 17, 255, 34, 255, 51, 255, 0, 68, 255, 85, 255, 102, 255};
    for (const Bytes& file : {PngOf(Header(3, 2, 4, Greyscale), {0, 0x12, 0x30, 0, 0x45, 0x60}),
                              PngOf(Header(3, 2, 8, GreyscaleAlpha), blended)}) {
        ASSERT_EQ(Load(file), 0);
        const std::array<int, 3> rows[] = {
            // the surface's width, left, top
            {4, 0, 0}, {4, 1, 1},         {4, -1, -1},       {4, 2, 2}, {4, -3, 0},
            {4, 0, 3}, {4, INT32_MAX, 0}, {4, 0, INT32_MIN}, {3, 0, 1}, {3, 0, -1}};
        for (const auto& [width, left, top] : rows) {
            {
                DrawingSurface before(width, 4); // leaves its pixels in the memory used again
                std::fill_n(before.row(3) - 3 * width, 4 * width, 0U);
            }
            DrawingSurface surface(width, 4);
            png_.DrawToDC(surface, left, top);
            for (std::int64_t y = 0; y < 4; ++y) {
                for (std::int64_t x = 0; x < width; ++x) {
                    const std::int64_t column = x - left, row = y - top;
                    const bool covered = column >= 0 && column < 3 && row >= 0 && row < 2;
                    const auto pixel = static_cast<std::uint32_t>(row * 3 + column + 1);
                    EXPECT_EQ(surface.row(static_cast<std::int32_t>(y))[x],
                              covered ? 0xff000000U + 0x111111U * pixel : NeutralGrey)
                        << left << ", " << top;
                }
            }
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
