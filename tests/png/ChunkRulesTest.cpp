// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/Pixel.h"
#include "png/PngFile.h"
#include "png/PngFixture.h"

#include <algorithm>
#include <sstream>

namespace editor {
namespace {

using ChunkRulesTest = PngFixture;

// Chunks as words: "IHDR8.2" is the header of one pixel of 8 bits and colour type 2, "IDAT" the
// data of one pixel of any kind; others are a type, "_" for a blank, and a number of bytes of data.
Bytes Chunks(const std::string& words) {
    std::istringstream in(words);
    Bytes chunks;
    for (std::string word; in >> word;) {
        std::replace(word.begin(), word.end(), '_', ' ');
        int first = 0, type = 0;
        const bool header = std::sscanf(word.c_str() + 4, "%d.%d", &first, &type) == 2;
        const auto depth = static_cast<std::uint8_t>(first);
        chunks = Join({chunks, word == "IDAT" ? IDAT({0, 0})
                               : header ? IHDR(Header(1, 1, depth, static_cast<std::uint8_t>(type)))
                                        : Chunk(word.substr(0, 4),
                                                Bytes(static_cast<std::size_t>(first), 9))});
    }
    return chunks;
}

const std::vector<std::uint32_t> OnePixelDrawn = {0xff0a141e};

const char* const RefusedChunks[] = {
    // The order of chunks, and a file that ends too early.
    "", "IHDR8.0 IDAT", "teXt1 IHDR8.0 IDAT IEND", "IHDR8.0 IHDR8.0 IDAT IEND", "PLTE3 IEND",
    "IHDR8.2 IDAT PLTE3 IEND", "IHDR8.0 IDAT tRNS2 IEND", "IHDR8.0 IDAT bKGD0 IEND",
    "IHDR8.3 tRNS0 PLTE6 IDAT IEND", "IHDR8.3 bKGD0 PLTE3 IDAT IEND",
    "IHDR8.0 IDAT teXt1 IDAT IEND", "IHDR8.2 PLTE3 PLTE3 IDAT IEND",
    // Depths and colour types.
    "IHDR16.3 PLTE3 IDAT IEND", "IHDR4.2 IDAT IEND", "IHDR8.5 IDAT IEND", "IHDR0.0 IDAT IEND",
    // Sizes of palettes, and chunks that a colour type must or must not have.
    "IHDR8.2 PLTE0 IDAT IEND", "IHDR8.2 PLTE2 IDAT IEND", "IHDR8.2 PLTE301 IDAT IEND",
    "IHDR8.2 PLTE771 IDAT IEND", "IHDR2.3 PLTE15 IDAT IEND", "IHDR8.0 PLTE3 IDAT IEND",
    "IHDR8.4 PLTE3 IDAT IEND", "IHDR8.3 IDAT IEND", "IHDR8.3 PLTE3 tRNS2 IDAT IEND",
    "IHDR8.4 tRNS2 IDAT IEND", "IHDR8.6 tRNS2 IDAT IEND",
    // Types: an unknown critical one, a small third letter, a digit, a blank.
    "IHDR8.0 TeXt0 IDAT IEND", "IHDR8.0 text0 IDAT IEND", "IHDR8.0 teX10 IDAT IEND",
    "IHDR8.0 te_t0 IDAT IEND"};

const HeaderRec RefusedHeaders[] = {{0, 1, 8, 0, 0, 0, 0}, {1, 0, 8, 0, 0, 0, 0},
                                    {1, 1, 8, 0, 1, 0, 0}, {1, 1, 8, 0, 0, 1, 0},
                                    {1, 1, 8, 0, 0, 0, 2}, {INT32_MIN, 1, 8, 0, 0, 0, 0}};

TEST_F(ChunkRulesTest, ARefusedFileLeavesTheLastAcceptedOneInPlace) {
    EXPECT_EQ(OutcomeOf(File("missing.png")), "no file");
    EXPECT_EQ(mdlPNG.PngHeader, HeaderRec{});
    ASSERT_EQ(Load(OnePixelPng()), "accepted");
    const HeaderRec header = mdlPNG.PngHeader;
    EXPECT_EQ(OutcomeOf(File("missing.png")), "no file");
    EXPECT_FALSE(mdlPNG.ChunkExists(chunks::IHDR));

    const Bytes grey = Chunks("IHDR8.0"), rest = Chunks("IDAT IEND");
    const Bytes fields = {0, 0, 0, 1, 0, 0, 0, 1, 8, 0, 0, 0};
    std::vector<Bytes> files = {
        {}, {137, 'P', 'N'}, Join({{'B', 'M', 1, 2, 3, 4, 5, 6}, grey, rest})};
    for (const char* words : RefusedChunks) {
        files.push_back(Join({Signature(), Chunks(words)}));
    }
    for (const HeaderRec& refused : RefusedHeaders) {
        files.push_back(Join({Signature(), IHDR(refused), rest}));
    }
    for (const Bytes& lengths :
         {Bytes{0, 0}, Join({grey, {0, 0, 0, 9, 'I', 'D', 'A', 'T', 1, 2, 3}}),
          Join({grey, {127, 0, 0, 255, 'I', 'D', 'A', 'T'}}),
          Join({grey, Chunks("IDAT"), {0, 0, 0, 0, 'I', 'E', 'N', 'D', 1, 2, 3}}),
          Join({Chunk("IHDR", fields), rest}),
          Join({Chunk("IHDR", Join({fields, {0, 0}})), rest})}) {
        files.push_back(Join({Signature(), lengths}));
    }
    for (const Bytes& file : files) {
        EXPECT_EQ(Load(file, {.MaximumBytes = 10000}), "refused") << testing::PrintToString(file);
        EXPECT_EQ(mdlPNG.PngHeader, header) << testing::PrintToString(file);
        EXPECT_EQ(Drawn(), OnePixelDrawn) << testing::PrintToString(file);
    }
    std::filesystem::create_directory(File("folder.png"));
    EXPECT_EQ(OutcomeOf(File("folder.png")), "refused");
    // Opening a pipe would block. Not every system has them as files.
    const bool pipe = std::system(("mkfifo " + File("pipe.png").string()).c_str()) == 0;
    EXPECT_EQ(OutcomeOf(File("pipe.png")), pipe ? "refused" : "no file");
    const Bytes whole = OnePixelPng();
    std::istringstream shorterThanItWas(std::string(whole.begin(), whole.end() - 4));
    EXPECT_EQ(LoadContents(shorterThanItWas, whole.size(), {}), NotAcceptable);
}

TEST_F(ChunkRulesTest, FilesWithinTheRulesAreAccepted) {
    Bytes wrongCrc = OnePixelPng();
    wrongCrc[32] ^= 0xff; // the last byte of IHDR
    EXPECT_EQ(Load(wrongCrc), "accepted");
    for (const char* words :
         {"IHDR8.0 teXt1 IDAT teXt1 IEND", "IHDR8.2 PLTE768 IDAT IEND", "IHDR8.0 tRNS1 IDAT IEND",
          "IHDR8.3 PLTE3 bKGD0 IDAT IEND", "IHDR8.3 PLTE15 IDAT IEND", "IHDR8.2 tRNS6 IDAT IEND"}) {
        EXPECT_EQ(Load(Join({Signature(), Chunks(words), {1, 2, 3}})), "accepted") << words;
        EXPECT_EQ(Drawn().size(), 1U) << words;
    }
}

TEST_F(ChunkRulesTest, WithoutAnImageToHoldNothingIsDrawn) {
    const Bytes interlaced = Join({Signature(), IHDR({7, 5, 4, Greyscale, 0, 0, 1}), IEND()});
    const Bytes noHeader = Join({Signature(), Chunks("IDAT IEND")});
    DrawingSurface surface(1, 1);
    EXPECT_THROW(png_.DrawToDC(surface, 0, 0), std::runtime_error);
    for (const auto& [file, header] :
         {std::pair{interlaced, std::array{7, 5, 4, 0, 1}}, {noHeader, {0, 0, 0, 0, 0}}}) {
        ASSERT_EQ(Load(OnePixelPng()), "accepted");
        ASSERT_EQ(Load(file), "accepted");
        EXPECT_EQ((std::array{png_.Width(), png_.Height(), png_.BitDepth(), png_.ColorType(),
                              int{png_.Interlaced()}}),
                  header);
        EXPECT_THROW(png_.DrawToDC(surface, 0, 0), std::runtime_error);
    }
    EXPECT_EQ(PixelsOf(surface), std::vector{NeutralGrey});
}

TEST_F(ChunkRulesTest, AnErrorWhileDecodingLeavesTheNewHeaderAndTheOldImage) {
    const HeaderRec one = Header(1, 1, 8, Greyscale);
    const Bytes whole = Deflated({0, 1}), indexed = Chunks("PLTE6 tRNS1");
    Bytes corrupt = Deflated(Bytes(99, 7));
    corrupt[5] ^= 0xff;
    const std::tuple<HeaderRec, Bytes, const char*> files[] = {
        {one, {}, "corrupt"},
        {one, Chunk("IDAT"), "corrupt"},
        {one, Chunks("IDAT IDAT0"), "corrupt"},
        {one, Chunk("IDAT", corrupt), "corrupt"},
        {one, Chunk("IDAT", {whole.begin(), whole.end() - 2}), "corrupt"},
        {one, IDAT({}), "corrupt"},
        {one, IDAT({0, 1, 2}), "corrupt"}, // more than the header says
        {Header(1, 1, 8, PaletteIndex), Join({indexed, IDAT({0, 2})}), "corrupt"},
        // A row, an image, and a row and an image of the bitmap
        {Header(1 << 26, 1, 8, TruecolourAlpha), IDAT({0}), "2^31 or more"},
        {Header(1 << 16, 1 << 15, 8, Greyscale), IDAT({0}), "2^31 or more"},
        {Header(1 << 26, 1, 8, PaletteIndex), Join({indexed, IDAT({0})}), "2^31 or more"},
        {Header(1 << 15, 1 << 14, 8, PaletteIndex), Join({indexed, IDAT({0})}), "2^31 or more"}};
    ASSERT_EQ(Load(OnePixelPng()), "accepted");
    const Bytes held = HeldPixels();
    for (const auto& [header, chunks, outcome] : files) {
        const Bytes file = Join({Signature(), IHDR(header), chunks, IEND()});
        EXPECT_EQ(Load(file), outcome) << testing::PrintToString(file);
        EXPECT_EQ(mdlPNG.PngHeader, header) << testing::PrintToString(file);
        EXPECT_EQ(HeldPixels(), held) << testing::PrintToString(file);
    }
}

TEST_F(ChunkRulesTest, AMillionChunksOfAsManyTypesAreReadInNoMoreThanLinearTime) {
    Bytes file = Join({Signature(), Chunks("IHDR8.0")});
    const auto letter = [](int i) { return static_cast<std::uint8_t>(i < 26 ? 'A' + i : 71 + i); };
    for (int i = 0; i < 1000000; ++i) {
        file.insert(file.end(), {0, 0, 0, 0, letter(26 + i % 26), letter(i / 26 % 52),
                                 letter(i / 1352 % 26), letter(i / 35152 % 52), 0, 0, 0, 0});
    }
    ASSERT_EQ(Load(Join({file, Chunks("teXt1 teXt2 IDAT IEND")})), "accepted");
    EXPECT_EQ(mdlPNG.Chunks.size(), 1000006U);
    EXPECT_TRUE(mdlPNG.ChunkExists({'a', 'A', 'A', 'A'}));
    EXPECT_FALSE(mdlPNG.ChunkExists(chunks::IDAT, 2));
    EXPECT_EQ(mdlPNG.GetChunk({'t', 'e', 'X', 't'}, 2).Data.size(), 2U);
}

TEST_F(ChunkRulesTest, AFileIsReadToItsEndMarkWhateverItsSize) {
    const Bytes grey = Join({Signature(), Chunks("IHDR8.0")});
    const std::pair<Bytes, const char*> starts[] = {
        {{'B', 'M'}, "refused"},
        {Join({grey, {127, 255, 255, 255, 't', 'e', 'X', 't'}}), "2^31 or more"},
        {Join({grey, {128, 0, 0, 0, 't', 'e', 'X', 't'}}), "2^31 or more"},
        {OnePixelPng(), "accepted"}};
    for (const auto& [start, outcome] : starts) {
        WriteFile(File("large.png"), start);
        std::filesystem::resize_file(File("large.png"), 0x80001000); // takes no room on the disk
        EXPECT_EQ(OutcomeOf(File("large.png")), outcome);
    }
    EXPECT_EQ(Drawn(), OnePixelDrawn);
    EXPECT_LT(mdlPNG.FileBytes.size(), OnePixelPng().size());
}

TEST_F(ChunkRulesTest, WhatTakesMoreThanItMayIsRefusedBeforeItTakesIt) {
    const HeaderRec wide = Header(300, 200, 1, Greyscale);
    constexpr std::uint64_t Note = 1000000, Bitmap = 40 * 200, Surface = 300 * 200 * 4;
    const Bytes picture = PngOf(wide, {0, 1}, Chunk("teXt", Bytes(Note)));
    const auto refused = [](const char* words) { return Join({Signature(), Chunks(words)}); };
    const std::tuple<Bytes, PictureLimits, const char*> files[] = {
        {picture, {.MaximumSide = 300}, "accepted"},
        {picture, {.MaximumSide = 299}, "corrupt"},
        {picture, {.MaximumBytes = Note + Bitmap + Surface + 1000}, "accepted"},
        {picture, {.MaximumBytes = Note + Bitmap + Surface}, "too much memory"},
        {refused("IHDR8.0 te_t999999"), {.MaximumBytes = 900000}, "too much memory"},
        {refused("IHDR8.0 teXt9 teXt9 te_t9"), {.MaximumBytes = 600}, "too much memory"}};
    for (const auto& [file, limits, outcome] : files) {
        EXPECT_EQ(Load(file, limits), outcome) << limits.MaximumSide << ", " << limits.MaximumBytes;
    }
}

} // namespace
} // namespace editor
