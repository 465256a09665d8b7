// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

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

class EveryKindOfPicture : public PngFixture, public testing::WithParamInterface<Kind> {};

TEST_P(EveryKindOfPicture, IsDrawnAsTheReferenceReaderSeesIt) {
    constexpr int LargerThanACache = 701;
    for (const std::int32_t width : {1, 2, 3, 4, 5, 8, 17, 61, LargerThanACache}) {
        for (const Bytes& filters : FilterSequences) {
            if (width < LargerThanACache || filters.size() > 20) {
                const std::int32_t height = width < LargerThanACache ? 29 : 503;
                const Bytes file = NoisePng(GetParam(), width, height, filters);
                ASSERT_EQ(Load(file), 0);
                EXPECT_EQ(Drawn(), DrawnByQt(file))
                    << "width " << width << " filter " << int{filters.front()};
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, EveryKindOfPicture, testing::ValuesIn(EveryKind));

class HeldPictures : public PngFixture {
  protected:
    // `pixels`: the bottom row first, padded; `before`: the chunks between IHDR and IDAT.
    void Expect(const char* name, const HeaderRec& header, const Bytes& filtered,
                std::uint16_t bitCount, const Bytes& pixels, const Bytes& palette = {},
                const Bytes& before = {}) {
        SCOPED_TRACE(name);
        ASSERT_EQ(Load(PngOf(header, filtered, before)), 0);
        const std::size_t colours = bitCount <= 8 ? palette.size() / 4 : 0;
        EXPECT_EQ(mdlPNG.PngImage.Header,
                  (BITMAPINFOHEADER{40, header.Width, header.Height, 1, bitCount, 0, 0, 0, 0,
                                    static_cast<std::uint32_t>(colours), 0}));
        EXPECT_EQ(mdlPNG.PngImage.Palette, palette);
        EXPECT_EQ(HeldPixels(), pixels);
    }
};

TEST_F(HeldPictures, AreBottomUpBitmapsWithPaddedRows) {
    const Bytes PLTE = Chunk("PLTE", {1, 2, 3, 4, 5, 6});
    const Bytes quads = {3, 2, 1, 0, 6, 5, 4, 0};
    Expect("truecolour rows are blue, green, red", Header(2, 2, 8, Truecolour),
           {0, 10, 20, 30, 11, 21, 31, 0, 1, 2, 3, 4, 5, 6}, 24,
           {3, 2, 1, 6, 5, 4, 0, 0, 30, 20, 10, 31, 21, 11, 0, 0});
    Expect("1-bit rows stay packed", Header(9, 1, 1, PaletteIndex), {0, 0xA5, 0x80}, 1,
           {0xA5, 0x80, 0, 0}, quads, PLTE);
    Expect("a palette with alpha becomes 32 bits, whatever stands behind a row's last pixel",
           Header(3, 1, 4, PaletteIndex), {0, 0x01, 0x0F}, 32,
           {3, 2, 1, 128, 6, 5, 4, 255, 3, 2, 1, 128}, quads, Join({PLTE, Chunk("tRNS", {128})}));
    Expect("an empty tRNS chunk leaves the palette opaque", Header(1, 1, 8, PaletteIndex), {0, 1},
           8, {1, 0, 0, 0}, quads, Join({PLTE, Chunk("tRNS")}));
    Expect("tRNS of a truecolour image counts for nothing", Header(1, 1, 8, Truecolour),
           {0, 10, 20, 30}, 24, {30, 20, 10, 0}, {}, Chunk("tRNS", {0, 10, 0, 20, 0, 30}));
    Expect("an unknown filter type changes nothing, and a short stream leaves zeros",
           Header(4, 2, 8, PaletteIndex), {7, 1, 2, 3, 4}, 8, {0, 0, 0, 0, 1, 2, 3, 4}, quads,
           PLTE);
}

} // namespace
} // namespace editor
