// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/Pixel.h"
#include "png/EveryKind.h"

#include <QImage>

#include <gtest/gtest.h>
#include <span>

namespace editor {
namespace {

// The picture as Qt's reader sees it, with 16-bit samples cut to their upper halves and blended
// over a background.
std::vector<std::uint32_t> DrawnByQt(const Bytes& file, std::uint32_t background) {
    const QImage image = QImage::fromData(file.data(), static_cast<int>(file.size()), "png")
                             .convertToFormat(QImage::Format_RGBA64);
    const auto* first = reinterpret_cast<const QRgba64*>(image.constBits()); // without padding
    std::vector<std::uint32_t> pixels;
    for (const QRgba64 pixel :
         std::span(first, static_cast<std::size_t>(image.sizeInBytes()) / 8)) {
        const QRgb colour = qRgb(pixel.red() >> 8, pixel.green() >> 8, pixel.blue() >> 8);
        const unsigned alpha = pixel.alpha() >> 8;
        pixels.push_back(Opaque);
        for (const int shift : {0, 8, 16}) {
            const unsigned old = background >> shift & 255, sample = colour >> shift & 255;
            pixels.back() |= ((255 - alpha) * old + alpha * sample + 255) / 256 << shift;
        }
    }
    return pixels;
}

TEST(PictureTest, OfEveryKindIsDrawnAsAnIndependentReaderSeesIt) {
    const std::uint32_t dark = 0xff102030;
    for (const Kind& kind : EveryKind) {
        for (const std::int32_t width : {1, 2, 3, 4, 5, 8, 17, 61, 701}) {
            SCOPED_TRACE(testing::Message() << "colour type " << kind.type << ", "
                                            << int{kind.depth} << " bits, " << width << " wide");
            const std::int32_t height = 503; // the widest are larger than a cache
            const Bytes file = NoisePng(kind, width, height);
            ASSERT_EQ(Load(file), "accepted");
            ASSERT_EQ(Load(file), "accepted"); // in memory that is no longer all 0
            ASSERT_EQ(Drawn(), DrawnByQt(file, NeutralGrey));
            DrawingSurface surface(width, height);
            std::fill_n(surface.row(height - 1) - width * (height - 1), width * height, dark);
            cPNG().DrawToDC(surface, 0, 0);
            ASSERT_EQ(PixelsOf(surface), DrawnByQt(file, dark));
        }
    }
}

TEST(PictureTest, IsHeldAsABottomUpBitmapWithPaddedRows) {
    const Bytes PLTE = Chunk("PLTE", {1, 2, 3, 4, 5, 6}), alpha = Chunk("tRNS", {128});
    const std::tuple<Bytes, std::uint16_t, std::uint32_t, Bytes> rows[] = {
        // the file, the bits of a pixel, the colours used, the pixels
        {PngOf(Header(2, 2, 8, Truecolour), {0, 10, 20, 30, 11, 21, 31, 0, 1, 2, 3, 4, 5, 6}),
         24,
         0,
         {3, 2, 1, 6, 5, 4, 0, 0, 30, 20, 10, 31, 21, 11, 0, 0}},
        // With an alpha; what stands behind the last pixel of the row is no index.
        {PngOf(Header(3, 1, 4, PaletteIndex), {0, 0x01, 0x0F}, Join({PLTE, alpha})),
         32,
         0,
         {3, 2, 1, 128, 6, 5, 4, 255, 3, 2, 1, 128}},
        // An unknown filter type, which changes nothing, and no data for the other row.
        {PngOf(Header(3, 2, 8, PaletteIndex), {7, 1, 2, 0}, PLTE), 8, 2, {0, 0, 0, 0, 1, 2, 0, 0}}};
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
    EXPECT_EQ(Drawn(), (std::vector{second, Opaque, first, first, first, first}));
}

TEST(PictureTest, OfEveryKindIsPutAtItsPositionAndCutOffAtTheEdges) {
    const std::array<int, 3> places[] = {
        // the surface's width, left, top
        {4, 0, 0}, {4, 1, 1},         {4, -1, -1},       {4, 2, 2}, {4, -3, 0},
        {4, 0, 3}, {4, INT32_MAX, 0}, {4, 0, INT32_MIN}, {3, 0, 1}, {3, 0, -1}};
    for (const Kind& kind : EveryKind) {
        ASSERT_EQ(Load(NoisePng(kind, 3, 2)), "accepted");
        const std::vector<std::uint32_t> drawn = Drawn();
        for (const auto& [width, left, top] : places) {
            LargeBuffer::ReleaseKept(); // memory used before might be grey already
            DrawingSurface surface(width, 4);
            cPNG().DrawToDC(surface, left, top);
            std::vector<std::uint32_t> expected(static_cast<std::size_t>(4 * width), NeutralGrey);
            for (std::size_t i = 0; i < drawn.size(); ++i) {
                const std::int64_t x = left + static_cast<std::int64_t>(i % 3);
                const std::int64_t y = top + static_cast<std::int64_t>(i / 3);
                if (x >= 0 && x < width && y >= 0 && y < 4) {
                    expected[static_cast<std::size_t>(y * width + x)] = drawn[i];
                }
            }
            EXPECT_EQ(PixelsOf(surface), expected) << kind.type << ": " << left << ", " << top;
        }
    }
}

} // namespace
} // namespace editor
