// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/EveryKind.h"

#include <QImage>
#include <QTemporaryDir>

#include <cstdlib>
#include <gtest/gtest.h>
#include <span>
#include <tuple>

namespace editor {
namespace {

// A file as words: "IHDR8.2" is the header of one pixel of 8 bits and colour type 2, behind which
// the width, the height, the other fields and the length of the chunk may stand; "DATA2" an IDAT
// chunk of 2 deflated bytes. Others are a type and the number of bytes. All of the bytes are 9.
Bytes File(const std::string& words) {
    std::istringstream in(words);
    Bytes file = Signature;
    for (std::string word; in >> word;) {
        const std::string type = word.substr(0, 4);
        const char* numbers = word.c_str() + 4;
        Bytes bytes(std::strtoul(numbers, nullptr, 10), 9);
        HeaderRec header = {1, 1, 0, 0};
        int length = 13;
        if (std::sscanf(numbers, "%hhu.%hhu.%d.%d.%hhu.%hhu.%hhu.%d", &header.BitDepth,
                        &header.ColorType, &header.Width, &header.Height, &header.Compression,
                        &header.Filter, &header.Interlace, &length) > 1) {
            const Bytes chunk = IHDR(header); // the fields are behind its length and type
            bytes.assign(chunk.begin() + 8, chunk.begin() + 8 + length);
        }
        file = Join({file, type == "DATA" ? Chunk("IDAT", Deflated(bytes)) : Chunk(type, bytes)});
    }
    return file;
}

// All of them end with IEND.
const std::pair<const char*, std::vector<const char*>> FilesByOutcome[] = {
    {"accepted",
     {"IHDR8.0 teXt1 DATA2 teXt1", "IHDR8.2 PLTE768 DATA4", "IHDR8.0 tRNS1 DATA2",
      "IHDR8.3 PLTE3 bKGD0 DATA2", "IHDR8.3 PLTE15 DATA2", "IHDR8.2 tRNS6 DATA4",
      "IHDR1.0.300.200 teXt751000 DATA2"}},
    {"refused",
     {// The order of chunks
      "teXt1 IHDR8.0 DATA2", "IHDR8.0 IHDR8.0 DATA2", "PLTE3", "IHDR8.2 DATA4 PLTE3",
      "IHDR8.0 DATA2 tRNS2", "IHDR8.0 DATA2 bKGD0", "IHDR8.3 tRNS0 PLTE6 DATA2",
      "IHDR8.3 bKGD0 PLTE3 DATA2", "IHDR8.0 DATA2 teXt1 DATA2", "IHDR8.2 PLTE3 PLTE3 DATA4",
      // Headers
      "IHDR16.3 PLTE3 DATA2", "IHDR4.2 DATA2", "IHDR8.5 DATA2", "IHDR0.0 DATA2",
      "IHDR8.0.0.1 DATA2", "IHDR8.0.1.0 DATA2", "IHDR8.0.-2147483648.1 DATA2",
      "IHDR8.0.1.1.1 DATA2", "IHDR8.0.1.1.0.1 DATA2", "IHDR8.0.1.1.0.0.2 DATA2",
      "IHDR8.0.1.1.0.0.0.12 DATA2", "IHDR8.0.1.1.0.0.0.14 DATA2",
      // Sizes of palettes, and chunks that a colour type must or must not have
      "IHDR8.2 PLTE0 DATA4", "IHDR8.2 PLTE2 DATA4", "IHDR8.2 PLTE301 DATA4",
      "IHDR8.2 PLTE771 DATA4", "IHDR2.3 PLTE15 DATA2", "IHDR8.0 PLTE3 DATA2", "IHDR8.4 PLTE3 DATA3",
      "IHDR8.3 DATA2", "IHDR8.3 PLTE3 tRNS2 DATA2", "IHDR8.4 tRNS2 DATA3", "IHDR8.6 tRNS2 DATA5",
      // Types: an unknown critical one, a small third letter, a digit, a sign
      "IHDR8.0 TeXt0 DATA2", "IHDR8.0 text0 DATA2", "IHDR8.0 teX10 DATA2", "IHDR8.0 te_t0 DATA2"}},
    {"corrupt",
     {"IHDR8.0", "IHDR8.0 IDAT0", "IHDR8.0 DATA2 IDAT0", "IHDR8.0 IDAT9", "IHDR8.0 DATA0",
      "IHDR8.0 DATA3", "IHDR8.3 PLTE27 tRNS1 DATA2", "IHDR1.0.67108865.1 DATA2",
      "IHDR1.0.1.67108865 DATA2"}},
    {"2^31 or more",
     {// A row, an image, and a row and an image of the bitmap
      "IHDR8.6.67108864.1 DATA2", "IHDR8.0.65536.32768 DATA2",
      "IHDR8.3.67108864.1 PLTE3 tRNS1 DATA2", "IHDR8.3.32768.16384 PLTE3 tRNS1 DATA2"}},
    {"too much memory", {"IHDR1.0.300.200 teXt752000 DATA2"}}};

TEST(ChunkRulesTest, ARefusedFileLeavesTheLastOneInPlaceAndAnErrorItsImage) {
    std::vector<std::tuple<std::string, Bytes, std::string>> files; // name, contents, outcome
    for (const auto& [outcome, words] : FilesByOutcome) {
        for (const char* file : words) {
            files.emplace_back(file, File(std::string(file) + " IEND"), outcome);
        }
    }
    const Bytes whole = File("IHDR8.0 DATA2 IEND");
    for (auto end = whole.begin(); end != whole.end(); ++end) {
        files.emplace_back("cut off", Bytes(whole.begin(), end), "refused");
    }
    const Bytes claim = {127, 0, 0, 255, 't', 'e', 'X', 't'};
    files.emplace_back("a length beyond the end", Join({File("IHDR8.0"), claim}), "refused");
    std::get<Bytes>(files.emplace_back("a wrong signature", whole, "refused"))[0] ^= 1;
    std::get<Bytes>(files.emplace_back("a wrong CRC of IHDR", whole, "accepted"))[32] ^= 1;
    const PictureLimits limits = {.MaximumSide = 67108864, .MaximumBytes = 1000000};
    for (const auto& [name, file, outcome] : files) {
        SCOPED_TRACE(name);
        ASSERT_EQ(Load(NoisePng({Truecolour, 16}, 7, 5)), "accepted");
        const HeaderRec header = mdlPNG.PngHeader;
        const std::uint8_t* pixels = mdlPNG.PngImage.Pixels.data();
        EXPECT_EQ(Load(file, limits), outcome);
        EXPECT_EQ(mdlPNG.PngHeader == header, outcome == "refused");
        EXPECT_EQ(mdlPNG.PngImage.Pixels.data() == pixels, outcome != "accepted");
    }
    std::istringstream shorterThanItWas(std::string(whole.begin(), whole.end() - 4));
    EXPECT_EQ(LoadContents(shorterThanItWas, whole.size(), {}), NotAcceptable);
    EXPECT_EQ(Load(File("IHDR8.0 te_t999999"), {.MaximumBytes = 900000}), "too much memory");
}

TEST(ChunkRulesTest, WithoutAnImageToHoldNothingIsDrawn) {
    cPNG png;
    ASSERT_EQ(Load(File("IHDR8.0 DATA2 IEND")), "accepted");
    png.Release();
    EXPECT_THROW(static_cast<void>(Drawn(1, 1)), std::runtime_error);
    for (const auto& [words, header] :
         {std::pair{"IHDR4.0.7.5.0.0.1 IEND", std::array{7, 5, 4, 0, 1}}, {"DATA2 IEND", {}}}) {
        ASSERT_EQ(Load(NoisePng({Truecolour, 8}, 1, 1)), "accepted");
        ASSERT_EQ(Load(File(words)), "accepted");
        EXPECT_EQ((std::array{png.Width(), png.Height(), png.BitDepth(), png.ColorType(),
                              int{png.Interlaced()}}),
                  header);
        EXPECT_THROW(static_cast<void>(Drawn(1, 1)), std::runtime_error);
    }
}

TEST(ChunkRulesTest, AMillionChunksOfAsManyTypesAreReadInNoMoreThanLinearTime) {
    Bytes file = File("IHDR8.0 teXt1 teXt2");
    const auto letter = [](int i) { return static_cast<std::uint8_t>(i < 26 ? 'A' + i : 71 + i); };
    for (int i = 0; i < 1000000; ++i) {
        file.insert(file.end(), {0, 0, 0, 0, letter(26 + i % 26), letter(i / 26 % 52),
                                 letter(i / 1352 % 26), letter(i / 35152 % 52), 0, 0, 0, 0});
    }
    EXPECT_EQ(Load(file, {.MaximumBytes = 2 * file.size()}), "too much memory");
    ASSERT_EQ(Load(Join({file, Chunk("IDAT", Deflated({0, 0})), Chunk("IEND")})), "accepted");
    EXPECT_EQ(mdlPNG.Chunks.size(), 1000006U);
    EXPECT_TRUE(mdlPNG.ChunkExists({'a', 'A', 'A', 'A'}));
    EXPECT_FALSE(mdlPNG.ChunkExists(chunks::IDAT, 2));
    EXPECT_EQ(mdlPNG.GetChunk({'t', 'e', 'X', 't'}, 2).Data.size(), 2U);
}

TEST(ChunkRulesTest, AFileIsReadToItsEndMarkWhateverItsSize) {
    const QTemporaryDir folder;
    const std::filesystem::path file = folder.path().toStdString() + "/picture.png";
    const auto outcome = [&] { return OutcomeOf([&] { return cPNG().LoadPNGFile(file); }); };
    const Bytes grey = File("IHDR8.0"), whole = File("IHDR8.0 DATA2 IEND");
    const std::pair<Bytes, const char*> starts[] = {
        {Join({grey, {127, 255, 255, 255, 't', 'e', 'X', 't'}}), "2^31 or more"},
        {Join({grey, {128, 0, 0, 0, 't', 'e', 'X', 't'}}), "2^31 or more"},
        {whole, "accepted"}};
    for (const auto& [start, expected] : starts) {
        WriteFile(file, start);
        std::filesystem::resize_file(file, 0x80001000); // takes no room on the disk
        EXPECT_EQ(outcome(), expected);
    }
    EXPECT_LT(mdlPNG.FileBytes.size(), whole.size());
    std::filesystem::remove(file);
    EXPECT_EQ(outcome(), "no file");
    EXPECT_FALSE(mdlPNG.ChunkExists(chunks::IHDR));
    // Opening a pipe would block. Not every system has them as files.
    const bool pipe = std::system(("mkfifo " + file.string()).c_str()) == 0;
    EXPECT_EQ(outcome(), pipe ? "refused" : "no file");
}

/// What is seen of a picture on a surface of one colour: 16-bit samples are cut to their upper
/// halves, and blended.
std::vector<std::uint32_t> Seen(const QImage& picture, int width, int height,
                                std::uint32_t background, std::int64_t left, std::int64_t top) {
    std::vector<std::uint32_t> pixels;
    for (std::int64_t i = 0; i < std::int64_t{width} * height; ++i) {
        pixels.push_back(background);
        const std::int64_t x = i % width - left, y = i / width - top;
        if (x < 0 || x >= picture.width() || y < 0 || y >= picture.height()) {
            continue;
        }
        const auto* row = picture.constScanLine(static_cast<int>(y));
        const QRgba64 pixel = reinterpret_cast<const QRgba64*>(row)[x];
        const unsigned alpha = pixel.alpha() >> 8;
        pixels.back() = Opaque;
        for (const auto& [sample, shift] :
             {std::pair(pixel.red(), 16), {pixel.green(), 8}, {pixel.blue(), 0}}) {
            const unsigned old = background >> shift & 255;
            pixels.back() |= ((255 - alpha) * old + alpha * (sample >> 8U) + 255) / 256 << shift;
        }
    }
    return pixels;
}

TEST(PictureTest, OfEveryKindIsDrawnAtItsPlaceAsAnIndependentReaderSeesIt) {
    const std::array<int, 4> places[] = {
        // how much wider and higher than the picture the surface is, left, top
        {0, 0, 0, 0},  {1, 2, 1, 1},         {1, 2, -1, -1},       {1, 2, 2, 2}, {1, 2, -5, 0},
        {1, 2, -2, 3}, {1, 2, INT32_MAX, 0}, {1, 2, 0, INT32_MIN}, {0, 2, 0, 1}, {0, 2, 0, -1}};
    for (const Kind& kind : EveryKind) {
        for (const int width : {1, 2, 3, 4, 5, 8, 17, 63, 701}) {
            // The widest are larger than a cache, and drawn by two threads.
            const int height = width == 5 ? 2 : width == 701 ? 1601 : 503;
            const Bytes file = NoisePng(kind, width, height);
            ASSERT_EQ(Load(file), "accepted");
            ASSERT_EQ(Load(file), "accepted"); // in memory that is no longer all 0
            const QImage read = QImage::fromData(file.data(), static_cast<int>(file.size()), "png")
                                    .convertToFormat(QImage::Format_RGBA64);
            for (const auto& [wider, higher, left, top] :
                 std::span(places).first(width == 5 ? std::size(places) : 1)) {
                for (const std::uint32_t background : {NeutralGrey, 0xff102030}) {
                    LargeBuffer::ReleaseKept(); // memory used before might have that colour
                    ASSERT_EQ(Drawn(width + wider, height + higher, background, left, top),
                              Seen(read, width + wider, height + higher, background, left, top))
                        << "colour type " << kind.type << ", " << int{kind.depth} << " bits, "
                        << width << " wide, at " << left << ", " << top;
                }
            }
        }
    }
    EXPECT_EQ(Clip(9 - INT32_MAX, INT32_MAX, 20).count, 9); // no picture of a test is that large
}

TEST(PictureTest, IsHeldAsABottomUpBitmapWithPaddedRows) {
    const Bytes PLTE = Chunk("PLTE", {1, 2, 3, 4, 5, 6}), alpha = Chunk("tRNS", {128});
    const std::tuple<Bytes, BITMAPINFOHEADER, Bytes> rows[] = {
        // With an alpha; what stands behind the last pixel of the row is no index.
        {PngOf({3, 1, 4, PaletteIndex}, {0, 0x01, 0x0F}, Join({PLTE, alpha})),
         {40, 3, 1, 1, 32},
         {3, 2, 1, 128, 6, 5, 4, 255, 3, 2, 1, 128}},
        // An unknown filter type, which changes nothing, and no data for the other row.
        {PngOf({3, 2, 8, PaletteIndex}, {7, 1, 2, 0}, PLTE),
         {40, 3, 2, 1, 8, 0, 0, 0, 0, 2},
         {0, 0, 0, 0, 1, 2, 0, 0}}};
    for (const auto& [file, header, pixels] : rows) {
        LargeBuffer::ReleaseKept();
        ASSERT_EQ(Load(NoisePng({TruecolourAlpha, 8}, 9, 9)), "accepted"); // leaves memory not 0
        ASSERT_EQ(Load(file), "accepted");
        EXPECT_EQ(mdlPNG.PngImage.Header, header);
        EXPECT_TRUE(std::ranges::equal(mdlPNG.PngImage.Pixels.bytes(), pixels));
    }
    const std::uint32_t first = 0xff010203, second = 0xff040506; // all others are black
    EXPECT_EQ(Drawn(3, 2), (std::vector{second, Opaque, first, first, first, first}));
}

} // namespace
} // namespace editor
