// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/EveryKind.h"

#include <QImage>

#include <gtest/gtest.h>
#include <span>

namespace editor {
namespace {

/// What is seen of the picture's pixel (x, y), if it has that, over a background: 16-bit samples
/// are cut to their upper halves.
std::uint32_t Over(std::uint32_t background, const QImage& picture, std::int64_t x,
                   std::int64_t y) {
    if (x < 0 || x >= picture.width() || y < 0 || y >= picture.height()) {
        return background;
    }
    const QRgba64 pixel =
        reinterpret_cast<const QRgba64*>(picture.constScanLine(static_cast<int>(y)))[x];
    const QRgb colour = qRgb(pixel.red() >> 8, pixel.green() >> 8, pixel.blue() >> 8);
    const unsigned alpha = pixel.alpha() >> 8;
    std::uint32_t blended = Opaque;
    for (const int shift : {0, 8, 16}) {
        const unsigned old = background >> shift & 255, sample = colour >> shift & 255;
        blended |= ((255 - alpha) * old + alpha * sample + 255) / 256 << shift;
    }
    return blended;
}

TEST(PictureTest, OfEveryKindIsDrawnAtItsPlaceAsAnIndependentReaderSeesIt) {
    const std::array<int, 4> places[] = {
        // how much wider and higher than the picture the surface is, left, top
        {0, 0, 0, 0},  {1, 2, 1, 1},         {1, 2, -1, -1},       {1, 2, 2, 2}, {1, 2, -5, 0},
        {1, 2, -2, 3}, {1, 2, INT32_MAX, 0}, {1, 2, 0, INT32_MIN}, {0, 2, 0, 1}, {0, 2, 0, -1}};
    for (const Kind& kind : EveryKind) {
        for (const int width : {1, 2, 3, 4, 5, 8, 17, 61, 701}) {
            const int height = width == 5 ? 2 : 503; // the widest are larger than a cache
            const Bytes file = NoisePng(kind, width, height);
            ASSERT_EQ(Load(file), "accepted");
            ASSERT_EQ(Load(file), "accepted"); // in memory that is no longer all 0
            const QImage read = QImage::fromData(file.data(), static_cast<int>(file.size()), "png")
                                    .convertToFormat(QImage::Format_RGBA64);
            for (const auto& [wider, higher, left, top] :
                 std::span(places).first(width == 5 ? std::size(places) : 1)) {
                for (const std::uint32_t background : {NeutralGrey, 0xff102030}) {
                    SCOPED_TRACE(testing::Message()
                                 << "colour type " << kind.type << ", " << int{kind.depth}
                                 << " bits, " << width << " wide, at " << left << ", " << top);
                    std::vector<std::uint32_t> expected;
                    for (std::int64_t y = 0; y < height + higher; ++y) {
                        for (std::int64_t x = 0; x < width + wider; ++x) {
                            expected.push_back(Over(background, read, x - left, y - top));
                        }
                    }
                    LargeBuffer::ReleaseKept(); // memory used before might have that colour
                    ASSERT_EQ(Drawn(width + wider, height + higher, background, left, top),
                              expected);
                }
            }
        }
    }
}

TEST(PictureTest, IsHeldAsABottomUpBitmapWithPaddedRows) {
    const Bytes PLTE = Chunk("PLTE", {1, 2, 3, 4, 5, 6}), alpha = Chunk("tRNS", {128});
    const std::tuple<Bytes, std::uint16_t, std::uint32_t, Bytes> rows[] = {
        // the file, the bits of a pixel, the colours used, the pixels
        {PngOf({2, 2, 8, Truecolour}, {0, 10, 20, 30, 11, 21, 31, 0, 1, 2, 3, 4, 5, 6}),
         24,
         0,
         {3, 2, 1, 6, 5, 4, 0, 0, 30, 20, 10, 31, 21, 11, 0, 0}},
        // With an alpha; what stands behind the last pixel of the row is no index.
        {PngOf({3, 1, 4, PaletteIndex}, {0, 0x01, 0x0F}, Join({PLTE, alpha})),
         32,
         0,
         {3, 2, 1, 128, 6, 5, 4, 255, 3, 2, 1, 128}},
        // An unknown filter type, which changes nothing, and no data for the other row.
        {PngOf({3, 2, 8, PaletteIndex}, {7, 1, 2, 0}, PLTE), 8, 2, {0, 0, 0, 0, 1, 2, 0, 0}}};
    for (const auto& [file, bitCount, colours, pixels] : rows) {
        LargeBuffer::ReleaseKept();
        ASSERT_EQ(Load(NoisePng({TruecolourAlpha, 8}, 9, 9)), "accepted"); // leaves memory not 0
        ASSERT_EQ(Load(file), "accepted");
        const auto& [width, height] = std::pair(cPNG().Width(), cPNG().Height());
        EXPECT_EQ(mdlPNG.PngImage.Header,
                  (BITMAPINFOHEADER{40, width, height, 1, bitCount, 0, 0, 0, 0, colours, 0}));
        EXPECT_TRUE(std::ranges::equal(mdlPNG.PngImage.Pixels.bytes(), pixels)) << bitCount;
    }
    const std::uint32_t first = 0xff010203, second = 0xff040506; // all others are black
    EXPECT_EQ(Drawn(3, 2), (std::vector{second, Opaque, first, first, first, first}));
}

} // namespace
} // namespace editor
