// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/Pixel.h"
#include "png/EveryKind.h"
#include "png/PngFixture.h"

#include <QImage>

namespace editor {
namespace {

// The picture as Qt's reader sees it, with 16-bit samples cut to their upper halves and blended
// over the surface's initial grey.
std::vector<std::uint32_t> DrawnByQt(const Bytes& file) {
    const QImage image = QImage::fromData(file.data(), static_cast<int>(file.size()), "png")
                             .convertToFormat(QImage::Format_RGBA64);
    std::vector<std::uint32_t> pixels;
    for (int i = 0; i < image.height() * image.width(); ++i) {
        const auto* row = reinterpret_cast<const QRgba64*>(image.constScanLine(i / image.width()));
        const QRgba64 pixel = row[i % image.width()];
        const unsigned alpha = pixel.alpha() >> 8;
        pixels.push_back(0xff);
        for (const int wide : {pixel.red(), pixel.green(), pixel.blue()}) {
            const unsigned sample = static_cast<unsigned>(wide) >> 8;
            const unsigned blended = ((255 - alpha) * 0x80 + alpha * sample + 255) / 256;
            pixels.back() = pixels.back() << 8 | (alpha == 255 ? sample : blended);
        }
    }
    return pixels;
}

using PictureTest = PngFixture;

TEST_F(PictureTest, OfEveryKindIsDrawnAsAnIndependentReaderSeesIt) {
    constexpr int LargerThanACache = 701;
    for (const Kind& kind : EveryKind) {
        for (const std::int32_t width : {1, 2, 3, 4, 5, 8, 17, 61, LargerThanACache}) {
            for (const Bytes& filters : FilterSequences) {
                if (width < LargerThanACache || filters.size() > 20) {
                    const std::int32_t height = width < LargerThanACache ? 29 : 503;
                    const Bytes file = NoisePng(kind, width, height, filters);
                    ASSERT_EQ(Load(file), "accepted");
                    ASSERT_EQ(Drawn(), DrawnByQt(file))
                        << "colour type " << kind.type << ", " << int{kind.depth} << " bits, "
                        << width << " wide, filter " << int{filters.front()};
                }
            }
        }
    }
}

TEST_F(PictureTest, IsHeldAsABottomUpBitmapWithPaddedRows) {
    const Bytes PLTE = Chunk("PLTE", {1, 2, 3, 4, 5, 6});
    const std::tuple<Bytes, std::uint16_t, std::uint32_t, Bytes> rows[] = {
        // the file, the bits of a pixel, the colours used, the pixels
        {PngOf(Header(2, 2, 8, Truecolour), {0, 10, 20, 30, 11, 21, 31, 0, 1, 2, 3, 4, 5, 6}),
         24,
         0,
         {3, 2, 1, 6, 5, 4, 0, 0, 30, 20, 10, 31, 21, 11, 0, 0}},
        {PngOf(Header(9, 1, 1, PaletteIndex), {0, 0xA5, 0x80}, PLTE), 1, 2, {0xA5, 0x80, 0, 0}},
        // With an alpha; what stands behind the last pixel of the row is no index.
        {PngOf(Header(3, 1, 4, PaletteIndex), {0, 0x01, 0x0F}, Join({PLTE, Chunk("tRNS", {128})})),
         32,
         0,
         {3, 2, 1, 128, 6, 5, 4, 255, 3, 2, 1, 128}},
        // An unknown filter type, which changes nothing, and no data for the other row.
        {PngOf(Header(4, 2, 8, PaletteIndex), {7, 1, 2, 3, 4}, PLTE),
         8,
         2,
         {0, 0, 0, 0, 1, 2, 3, 4}}};
    for (const auto& [file, bitCount, colours, pixels] : rows) {
        ASSERT_EQ(Load(file), "accepted");
        EXPECT_EQ(mdlPNG.PngImage.Header, (BITMAPINFOHEADER{40, png_.Width(), png_.Height(), 1,
                                                            bitCount, 0, 0, 0, 0, colours, 0}));
        EXPECT_EQ(HeldPixels(), pixels);
    }
}

TEST_F(PictureTest, IsPutAtItsPositionAndCutOffAtTheEdges) {
    const Bytes triples = {0, 17, 17, 17, 34, 34, 34, 51,  51,  51,
                           0, 68, 68, 68, 85, 85, 85, 102, 102, 102};
    const Bytes blended = {0, 17, 255, 34, 255, 51, 255, 0, 68, 255, 85, 255, 102, 255};
    for (const Bytes& file : {PngOf(Header(3, 2, 4, Greyscale), {0, 0x12, 0x30, 0, 0x45, 0x60}),
                              PngOf(Header(3, 2, 8, Truecolour), triples),
                              PngOf(Header(3, 2, 8, GreyscaleAlpha), blended)}) {
        ASSERT_EQ(Load(file), "accepted");
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
            for (std::int32_t i = 0; i < 4 * width; ++i) {
                const std::int64_t column = i % width - std::int64_t{left};
                const std::int64_t row = i / width - std::int64_t{top};
                const bool covered = column >= 0 && column < 3 && row >= 0 && row < 2;
                const auto pixel = static_cast<std::uint32_t>(row * 3 + column + 1);
                EXPECT_EQ(surface.row(i / width)[i % width],
                          covered ? 0xff000000U + 0x111111U * pixel : NeutralGrey)
                    << left << ", " << top;
            }
        }
    }
}

TEST_F(PictureTest, IsBlendedWithWhatWasDrawnBefore) {
    DrawingSurface surface(5, 1);
    std::fill_n(surface.row(0), 5, 0xff102030);
    ASSERT_EQ(Load(PngOf(Header(5, 1, 8, GreyscaleAlpha), {0, 0, 0, 9, 1, 9, 128, 9, 255, 0, 128})),
              "accepted");
    png_.DrawToDC(surface, 0, 0);
    EXPECT_EQ(PixelsOf(surface), (std::vector<std::uint32_t>{0xff102030, 0xff102030, 0xff0d151d,
                                                             0xff090909, 0xff081018}));
}

TEST_F(PictureTest, IsBlackWhereAnIndexIsBeyondTheColourTable) {
    const HeaderRec header = Header(2, 1, 8, PaletteIndex);
    ASSERT_EQ(Load(PngOf(header, {0, 0, 200}, Chunk("PLTE", {1, 2, 3}))), "accepted");
    EXPECT_EQ(Drawn(), (std::vector<std::uint32_t>{0xff010203, 0xff000000}));
}

} // namespace
} // namespace editor
