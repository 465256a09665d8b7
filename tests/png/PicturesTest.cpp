#include "png/PngFixture.h"

#include <QImage>

namespace editor {
namespace {

using PicturesTest = PngFixture;

// The picture as Qt's reader sees it, with 16-bit samples cut to their upper halves and blended
// over the surface's initial grey.
std::vector<std::uint32_t> DrawnByQt(const Bytes& file) {
    const QImage image = QImage::fromData(file.data(), static_cast<int>(file.size()), "png")
                             .convertToFormat(QImage::Format_RGBA64);
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgba64 pixel = reinterpret_cast<const QRgba64*>(image.constScanLine(y))[x];
            const int alpha = pixel.alpha() >> 8;
            std::uint32_t drawn = 0xff;
            for (const int sample : {pixel.red() >> 8, pixel.green() >> 8, pixel.blue() >> 8}) {
                const int blended = ((255 - alpha) * 0x80 + alpha * sample + 255) / 256;
                drawn = drawn << 8 | static_cast<std::uint32_t>(alpha == 0     ? 0x80
                                                                : alpha == 255 ? sample
                                                                               : blended);
            }
            pixels.push_back(drawn);
        }
    }
    return pixels;
}

Bytes Palette(std::size_t entries) {
    Bytes data;
    for (std::size_t i = 0; i < 3 * entries; ++i) {
        data.push_back(static_cast<std::uint8_t>(i * 37 + i / 7));
    }
    return Chunk("PLTE", data);
}

struct Kind {
    ColourType type;
    std::uint8_t depth;
    std::size_t transparentEntries = 0;
};

constexpr Kind Kinds[] = {
    {Greyscale, 1},       {Greyscale, 2},       {Greyscale, 4},        {Greyscale, 8},
    {Greyscale, 16},      {Truecolour, 8},      {Truecolour, 16},      {PaletteIndex, 1},
    {PaletteIndex, 2},    {PaletteIndex, 4},    {PaletteIndex, 8},     {PaletteIndex, 1, 1},
    {PaletteIndex, 2, 2}, {PaletteIndex, 4, 9}, {PaletteIndex, 8, 77}, {GreyscaleAlpha, 8},
    {GreyscaleAlpha, 16}, {TruecolourAlpha, 8}, {TruecolourAlpha, 16}};

const Bytes FilterSequences[] = {{0}, {1}, {2}, {3}, {4}, {4, 4, 1, 3, 4, 2, 0, 3, 3}};

class EveryKindOfPicture : public PngFixture, public testing::WithParamInterface<Kind> {};

TEST_P(EveryKindOfPicture, IsDrawnAsTheReferenceReaderSeesIt) {
    const Kind kind = GetParam();
    Bytes before;
    if (kind.type == PaletteIndex) {
        before = Palette(std::size_t{1} << kind.depth);
    }
    if (kind.transparentEntries > 0) {
        Bytes alphas;
        for (std::size_t i = 0; i < kind.transparentEntries; ++i) {
            alphas.push_back(static_cast<std::uint8_t>(i * 51));
        }
        before = Join({before, Chunk("tRNS", alphas)});
    }
    for (const std::int32_t width : {1, 2, 3, 5, 8, 17, 61}) {
        const HeaderRec header = {
            .Width = width, .Height = 13, .BitDepth = kind.depth, .ColorType = kind.type};
        const Bytes rows = NoiseRows(header, static_cast<std::uint32_t>(width));
        for (const Bytes& filters : FilterSequences) {
            const Bytes file = PngOf(header, Filtered(header, rows, filters), before);
            ASSERT_EQ(Load(file), 0);
            EXPECT_EQ(Drawn(), DrawnByQt(file))
                << "width " << width << " filter " << int{filters.front()};
            const BITMAPINFOHEADER& held = mdlPNG.PngImage.Header;
            EXPECT_EQ(mdlPNG.PngImage.Pixels.size(),
                      static_cast<std::size_t>(
                          DibStride(width, static_cast<std::int16_t>(held.biBitCount)) * 13));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, EveryKindOfPicture, testing::ValuesIn(Kinds));

TEST_F(PicturesTest, LargerThanACacheIsDrawnAsTheReferenceReaderSeesIt) {
    for (const Kind kind : {Kind{Truecolour, 8}, Kind{TruecolourAlpha, 8},
                            Kind{TruecolourAlpha, 16}, Kind{GreyscaleAlpha, 16}}) {
        const HeaderRec header = {
            .Width = 701, .Height = 503, .BitDepth = kind.depth, .ColorType = kind.type};
        const Bytes file =
            PngOf(header, Filtered(header, NoiseRows(header, 5), {4, 4, 4, 3, 4, 1, 2}));
        ASSERT_EQ(Load(file), 0);
        EXPECT_EQ(Drawn(), DrawnByQt(file));
    }
}

Bytes GreyRamp() {
    Bytes quads;
    for (int i = 0; i < 256; ++i) {
        const auto grey = static_cast<std::uint8_t>(i);
        quads.insert(quads.end(), {grey, grey, grey, 0});
    }
    return quads;
}

struct HeldCase {
    const char* name;
    HeaderRec header;
    Bytes before;
    Bytes filtered;
    std::uint16_t bitCount;
    Bytes palette;
    Bytes pixels; // bottom row first, padded
};

TEST_F(PicturesTest, AreHeldAsBottomUpBitmapsWithPaddedRows) {
    const Bytes twoEntries = Chunk("PLTE", {1, 2, 3, 4, 5, 6});
    const HeldCase cases[] = {
        {"truecolour rows are blue, green, red",
         {.Width = 3, .Height = 2, .BitDepth = 8, .ColorType = Truecolour},
         {},
         {0, 10, 20, 30, 11, 21, 31, 12, 22, 32, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9},
         24,
         {},
         {3, 2, 1, 6, 5, 4, 9, 8, 7, 0, 0, 0, 30, 20, 10, 31, 21, 11, 32, 22, 12, 0, 0, 0}},
        {"2-bit samples are spread to bytes",
         {.Width = 5, .Height = 1, .BitDepth = 2, .ColorType = Greyscale},
         {},
         {0, 0x1B, 0xC0},
         8,
         {0, 0, 0, 0, 85, 85, 85, 0, 170, 170, 170, 0, 255, 255, 255, 0},
         {0, 1, 2, 3, 3, 0, 0, 0}},
        {"1-bit rows stay packed",
         {.Width = 9, .Height = 1, .BitDepth = 1, .ColorType = PaletteIndex},
         twoEntries,
         {0, 0xA5, 0x80},
         1,
         {3, 2, 1, 0, 6, 5, 4, 0},
         {0xA5, 0x80, 0, 0}},
        {"16-bit samples lose their lower half",
         {.Width = 2, .Height = 1, .BitDepth = 16, .ColorType = Truecolour},
         {},
         {0, 0x12, 0x34, 0xAB, 0xCD, 0x56, 0xFF, 1, 0, 2, 0, 3, 0},
         24,
         {},
         {0x56, 0xAB, 0x12, 3, 2, 1, 0, 0}},
        {"grey with alpha becomes 32 bits",
         {.Width = 1, .Height = 2, .BitDepth = 8, .ColorType = GreyscaleAlpha},
         {},
         {0, 7, 9, 0, 8, 200},
         32,
         {},
         {8, 8, 8, 200, 7, 7, 7, 9}},
        {"a palette with alpha becomes 32 bits and keeps its table",
         {.Width = 3, .Height = 1, .BitDepth = 4, .ColorType = PaletteIndex},
         Join({twoEntries, Chunk("tRNS", {128})}),
         {0, 0x01, 0x0F}, // the row's last 4 bits belong to no pixel
         32,
         {3, 2, 1, 0, 6, 5, 4, 0},
         {3, 2, 1, 128, 6, 5, 4, 255, 3, 2, 1, 128}},
        {"an empty tRNS chunk leaves the palette opaque",
         {.Width = 1, .Height = 1, .BitDepth = 8, .ColorType = PaletteIndex},
         Join({twoEntries, Chunk("tRNS")}),
         {0, 1},
         8,
         {3, 2, 1, 0, 6, 5, 4, 0},
         {1, 0, 0, 0}},
        {"tRNS of a truecolour image counts for nothing",
         {.Width = 1, .Height = 1, .BitDepth = 8, .ColorType = Truecolour},
         Chunk("tRNS", {0, 10, 0, 20, 0, 30}),
         {0, 10, 20, 30},
         24,
         {},
         {30, 20, 10, 0}},
        {"an unknown filter type changes nothing, and a short stream leaves zeros",
         {.Width = 4, .Height = 2, .BitDepth = 8, .ColorType = Greyscale},
         {},
         {7, 1, 2, 3, 4},
         8,
         GreyRamp(),
         {0, 0, 0, 0, 1, 2, 3, 4}}};
    for (const HeldCase& row : cases) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ(Load(PngOf(row.header, row.filtered, row.before)), 0);
        const BITMAPINFOHEADER& held = mdlPNG.PngImage.Header;
        EXPECT_EQ(held,
                  (BITMAPINFOHEADER{.biSize = 40,
                                    .biWidth = row.header.Width,
                                    .biHeight = row.header.Height,
                                    .biPlanes = 1,
                                    .biBitCount = row.bitCount,
                                    .biClrUsed = row.bitCount <= 8 ? static_cast<std::uint32_t>(
                                                                         row.palette.size() / 4)
                                                                   : 0}));
        EXPECT_EQ(mdlPNG.PngImage.Palette, row.palette);
        EXPECT_EQ(HeldPixels(), row.pixels);
    }
}

} // namespace
} // namespace editor
