// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/EveryKind.h"

#include <QTemporaryDir>

#include <cstdlib>
#include <gtest/gtest.h>
#include <tuple>

namespace editor {
namespace {

// A file as words: "IHDR8.2" is the header of one pixel of 8 bits and colour type 2, behind which
// the width, the height and the other fields may stand; "DATA2" an IDAT chunk of 2 deflated bytes.
// Others are a type and the number of bytes. All of the bytes are 9.
Bytes File(const std::string& words) {
    std::istringstream in(words);
    Bytes file = Signature();
    for (std::string word; in >> word;) {
        const std::string type = word.substr(0, 4);
        HeaderRec header = {1, 1, 0, 0};
        const int fields = std::sscanf(
            word.c_str() + 4, "%hhu.%hhu.%d.%d.%hhu.%hhu.%hhu", &header.BitDepth, &header.ColorType,
            &header.Width, &header.Height, &header.Compression, &header.Filter, &header.Interlace);
        const Bytes bytes(std::strtoul(word.c_str() + 4, nullptr, 10), 9);
        file = Join({file, fields > 1       ? IHDR(header)
                           : type == "DATA" ? IDAT(bytes)
                                            : Chunk(type, bytes)});
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
            files.emplace_back(file, Join({File(file), IEND()}), outcome);
        }
    }
    const Bytes whole = File("IHDR8.0 DATA2 IEND"), rest = Join({IDAT({0, 0}), IEND()});
    for (auto end = whole.begin(); end != whole.end(); ++end) {
        files.emplace_back("cut off", Bytes(whole.begin(), end), "refused");
    }
    const Bytes fields = {0, 0, 0, 1, 0, 0, 0, 1, 8, 0, 0, 0, 0, 0};
    const Bytes shortFields(fields.begin(), fields.end() - 2), huge = {127, 0, 0, 255};
    for (const Bytes& begin : {Chunk("IHDR", fields), Chunk("IHDR", shortFields),
                               Join({Chunk("IHDR", {fields.begin(), fields.end() - 1}), huge})}) {
        files.emplace_back("lengths", Join({Signature(), begin, rest}), "refused");
    }
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
    ASSERT_EQ(Load(OnePixelPng()), "accepted");
    png.Release();
    EXPECT_THROW(static_cast<void>(Drawn(1, 1)), std::runtime_error);
    for (const auto& [words, header] :
         {std::pair{"IHDR4.0.7.5.0.0.1 IEND", std::array{7, 5, 4, 0, 1}}, {"DATA2 IEND", {}}}) {
        ASSERT_EQ(Load(OnePixelPng()), "accepted");
        ASSERT_EQ(Load(File(words)), "accepted");
        EXPECT_EQ((std::array{png.Width(), png.Height(), png.BitDepth(), png.ColorType(),
                              int{png.Interlaced()}}),
                  header);
        EXPECT_THROW(static_cast<void>(Drawn(1, 1)), std::runtime_error);
    }
}

TEST(ChunkRulesTest, AMillionChunksOfAsManyTypesAreReadInNoMoreThanLinearTime) {
    Bytes file = File("IHDR8.0");
    const auto letter = [](int i) { return static_cast<std::uint8_t>(i < 26 ? 'A' + i : 71 + i); };
    for (int i = 0; i < 1000000; ++i) {
        file.insert(file.end(), {0, 0, 0, 0, letter(26 + i % 26), letter(i / 26 % 52),
                                 letter(i / 1352 % 26), letter(i / 35152 % 52), 0, 0, 0, 0});
    }
    EXPECT_EQ(Load(file, {.MaximumBytes = 2 * file.size()}), "too much memory");
    file = Join({file, Chunk("teXt", {1}), Chunk("teXt", {1, 2}), IDAT({0, 0}), IEND()});
    ASSERT_EQ(Load(file), "accepted");
    EXPECT_EQ(mdlPNG.Chunks.size(), 1000006U);
    EXPECT_TRUE(mdlPNG.ChunkExists({'a', 'A', 'A', 'A'}));
    EXPECT_FALSE(mdlPNG.ChunkExists(chunks::IDAT, 2));
    EXPECT_EQ(mdlPNG.GetChunk({'t', 'e', 'X', 't'}, 2).Data.size(), 2U);
}

TEST(ChunkRulesTest, AFileIsReadToItsEndMarkWhateverItsSize) {
    const QTemporaryDir folder;
    const std::filesystem::path file = folder.path().toStdString() + "/picture.png";
    const auto outcome = [&] { return OutcomeOf([&] { return cPNG().LoadPNGFile(file); }); };
    const Bytes grey = File("IHDR8.0");
    const std::pair<Bytes, const char*> starts[] = {
        {{'B', 'M'}, "refused"},
        {Join({grey, {127, 255, 255, 255, 't', 'e', 'X', 't'}}), "2^31 or more"},
        {Join({grey, {128, 0, 0, 0, 't', 'e', 'X', 't'}}), "2^31 or more"},
        {OnePixelPng(), "accepted"}};
    for (const auto& [start, expected] : starts) {
        WriteFile(file, start);
        std::filesystem::resize_file(file, 0x80001000); // takes no room on the disk
        EXPECT_EQ(outcome(), expected);
    }
    EXPECT_LT(mdlPNG.FileBytes.size(), OnePixelPng().size());
    std::filesystem::remove(file);
    EXPECT_EQ(outcome(), "no file");
    EXPECT_FALSE(mdlPNG.ChunkExists(chunks::IHDR));
    // Opening a pipe would block. Not every system has them as files.
    const bool pipe = std::system(("mkfifo " + file.string()).c_str()) == 0;
    EXPECT_EQ(outcome(), pipe ? "refused" : "no file");
}

} // namespace
} // namespace editor
