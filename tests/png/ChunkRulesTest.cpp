// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/Pixel.h"
#include "png/PngFixture.h"

#include <sstream>
#include <stdexcept>

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
        std::istringstream numbers(word.substr(4));
        unsigned first = 0, type = 0;
        char dot = 0;
        const bool header = static_cast<bool>(numbers >> first >> dot >> type);
        chunks = Join({chunks, word == "IDAT" ? IDAT({0, 0})
                               : header       ? IHDR(Header(1, 1, static_cast<std::uint8_t>(first),
                                                            static_cast<std::uint8_t>(type)))
                                              : Chunk(word.substr(0, 4), Bytes(first, 9))});
    }
    return chunks;
}

// A chunk that claims more data than the file has.
Bytes Claim(std::uint8_t first, std::uint8_t last) {
    return {first, 0, 0, last, 'I', 'D', 'A', 'T'};
}

const char* const RefusedChunks[] = {
    // The order of chunks, and a file that ends too early.
    "", "IHDR8.0 IDAT", "teXt1 IHDR8.0 IDAT IEND", "IHDR8.0 IHDR8.0 IDAT IEND", "PLTE3 IEND",
    "IHDR8.2 IDAT PLTE3 IEND", "IHDR8.0 IDAT tRNS2 IEND", "IHDR8.0 IDAT bKGD0 IEND",
    "IHDR8.3 tRNS2 PLTE6 IDAT IEND", "IHDR8.3 bKGD0 PLTE3 IDAT IEND",
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

TEST_F(ChunkRulesTest, ARefusedFileLeavesTheLastAcceptedOneInPlace) {
    EXPECT_EQ(png_.LoadPNGFile(File("missing.png")), 1);
    EXPECT_EQ(mdlPNG.PngHeader, HeaderRec{});
    ASSERT_EQ(Load(OnePixelPng()), 0);
    const HeaderRec header = mdlPNG.PngHeader;
    const auto expectRefused = [&](std::int32_t result, std::int32_t expected, const char* what) {
        EXPECT_EQ(result, expected) << what;
        EXPECT_EQ(mdlPNG.PngHeader, header) << what;
        EXPECT_EQ(Drawn(), std::vector<std::uint32_t>{0xff0a141e}) << what;
    };
    for (const char* words : RefusedChunks) {
        expectRefused(Load(Join({Signature(), Chunks(words)})), 3, words);
    }
    const Bytes grey = Chunks("IHDR8.0"), rest = Chunks("IDAT IEND");
    for (const HeaderRec& wrong : {HeaderRec{0, 1, 8, 0, 0, 0, 0},
                                   {1, 0, 8, 0, 0, 0, 0},
                                   {INT32_MIN, 1, 8, 0, 0, 0, 0},
                                   {1, 1, 8, 0, 1, 0, 0},
                                   {1, 1, 8, 0, 0, 1, 0},
                                   {1, 1, 8, 0, 0, 0, 2}}) {
        expectRefused(Load(Join({Signature(), IHDR(wrong), rest})), 3, "a field of the header");
    }
    const Bytes fields = {0, 0, 0, 1, 0, 0, 0, 1, 8, 0, 0, 0};
    for (const Bytes& chunks :
         {Bytes{0, 0}, Join({grey, Claim(0, 9), {1, 2, 3}}), Join({grey, Claim(127, 255)}),
          Join({grey, Chunks("IDAT"), {0, 0, 0, 0, 'I', 'E', 'N', 'D', 1, 2, 3}}),
          Join({Chunk("IHDR", fields), rest}),
          Join({Chunk("IHDR", Join({fields, {0, 0}})), rest})}) {
        expectRefused(Load(Join({Signature(), chunks})), 3, "a length");
    }
    for (const Bytes& bytes : {Bytes{}, Bytes{137, 'P', 'N'}, Bytes{'B', 'M', 1, 2, 3, 4, 5, 6}}) {
        expectRefused(Load(bytes), 3, "no signature");
    }
    std::filesystem::create_directory(File("folder.png"));
    expectRefused(png_.LoadPNGFile(File("folder.png")), 3, "a folder");
    expectRefused(png_.LoadPNGFile("/dev/zero"), 3, "a device");
    expectRefused(png_.LoadPNGFile(File("missing.png")), 1, "nothing");
    EXPECT_FALSE(mdlPNG.ChunkExists(chunks::IHDR));
}

TEST_F(ChunkRulesTest, FilesWithinTheRulesAreAccepted) {
    Bytes wrongCrc = OnePixelPng();
    wrongCrc[32] ^= 0xff; // the last byte of IHDR
    ASSERT_EQ(Load(wrongCrc), 0);
    for (const char* words :
         {"IHDR8.0 teXt1 IDAT teXt1 IEND", "IHDR8.2 PLTE768 IDAT IEND", "IHDR8.0 tRNS1 IDAT IEND",
          "IHDR8.3 PLTE3 bKGD0 IDAT IEND", "IHDR8.3 PLTE15 IDAT IEND"}) {
        EXPECT_EQ(Load(Join({Signature(), Chunks(words), {1, 2, 3}})), 0) << words;
        EXPECT_EQ(Drawn().size(), 1U) << words;
    }
}

TEST_F(ChunkRulesTest, WithoutAnImageToHoldNothingIsDrawn) {
    DrawingSurface surface(1, 1);
    EXPECT_THROW(png_.DrawToDC(surface, 0, 0), std::runtime_error);
    ASSERT_EQ(Load(Join({Signature(), IHDR({7, 5, 4, Greyscale, 0, 0, 1}), IEND()})), 0);
    EXPECT_TRUE(png_.Interlaced());
    EXPECT_EQ((std::array{png_.Width(), png_.Height(), png_.BitDepth(), png_.ColorType()}),
              (std::array{7, 5, 4, 0}));
    EXPECT_THROW(png_.DrawToDC(surface, 0, 0), std::runtime_error);
    ASSERT_EQ(Load(OnePixelPng()), 0);
    ASSERT_EQ(Load(Join({Signature(), Chunks("IDAT IEND")})), 0);
    EXPECT_EQ(mdlPNG.PngHeader, HeaderRec{});
    EXPECT_THROW(png_.DrawToDC(surface, 0, 0), std::runtime_error);
    EXPECT_EQ(PixelsOf(surface), std::vector{NeutralGrey});
}

TEST_F(ChunkRulesTest, AnErrorWhileDecodingLeavesTheNewHeaderAndTheOldImage) {
    const HeaderRec one = Header(1, 1, 8, Greyscale);
    const Bytes whole = Deflated({0, 1}), indexed = Chunks("PLTE6 tRNS1");
    Bytes corrupt = Deflated(Bytes(99, 7));
    corrupt[5] ^= 0xff;
    const std::tuple<const char*, HeaderRec, Bytes> files[] = {
        {"no IDAT", one, {}},
        {"an empty IDAT", one, Chunk("IDAT")},
        {"an empty IDAT behind data", one, Chunks("IDAT IDAT0")},
        {"a corrupt stream", one, Chunk("IDAT", corrupt)},
        {"a stream cut short", one, Chunk("IDAT", {whole.begin(), whole.end() - 2})},
        {"a stream of nothing", one, IDAT({})},
        {"more data than the header says", one, IDAT({0, 1, 2})},
        {"an index beyond the palette of an image with transparency", Header(1, 1, 8, PaletteIndex),
         Join({indexed, IDAT({0, 2})})},
        {"a row of 2^31 bits", Header(1 << 26, 1, 8, TruecolourAlpha), IDAT({0})},
        {"an image of 2^31 bytes", Header(1 << 16, 1 << 15, 8, Greyscale), IDAT({0})},
        {"a bitmap of 2^31 bytes", Header(1 << 15, 1 << 14, 8, PaletteIndex),
         Join({indexed, IDAT({0})})}};
    ASSERT_EQ(Load(OnePixelPng()), 0);
    const Bytes held = HeldPixels();
    for (const auto& [name, header, chunks] : files) {
        EXPECT_THROW(static_cast<void>(Load(Join({Signature(), IHDR(header), chunks, IEND()}))),
                     std::runtime_error)
            << name;
        EXPECT_EQ(mdlPNG.PngHeader, header) << name;
        EXPECT_EQ(HeldPixels(), held) << name;
    }
    mdlPNG.PngHeader = {};
    EXPECT_THROW(static_cast<void>(Load(Join({Signature(), IHDR(one), Claim(128, 0)}))),
                 std::overflow_error);
    EXPECT_EQ(mdlPNG.PngHeader, HeaderRec{});
    EXPECT_TRUE(mdlPNG.ChunkExists(chunks::IHDR));
}

TEST_F(ChunkRulesTest, AMillionChunksOfAsManyTypesAreReadInNoMoreThanLinearTime) {
    const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    std::string type;
    Bytes file = Join({Signature(), Chunks("IHDR8.0")});
    for (std::size_t i = 0; i < 1000000; ++i) {
        type = {letters[26 + i % 26], letters[i / 26 % 52], letters[i / 1352 % 26],
                letters[i / 35152 % 52]};
        file.insert(file.end(), {0, 0, 0, 0});
        file.insert(file.end(), type.begin(), type.end());
        file.insert(file.end(), {0, 0, 0, 0});
    }
    ASSERT_EQ(Load(Join({file, Chunks("teXt1 teXt2 IDAT IEND")})), 0);
    EXPECT_EQ(mdlPNG.Chunks.size(), 1000006U);
    EXPECT_TRUE(mdlPNG.ChunkExists({type[0], type[1], type[2], type[3]}));
    EXPECT_FALSE(mdlPNG.ChunkExists(chunks::IDAT, 2));
    EXPECT_EQ(mdlPNG.GetChunk({'t', 'e', 'X', 't'}, 2).Data.size(), 2U);
}

TEST_F(ChunkRulesTest, AFileIsReadToItsEndMarkWhateverItsSize) {
    constexpr std::uintmax_t Limit = 0x80000000; // of what can be read: 2 GiB
    const Bytes claim =
        Join({Signature(), Chunks("IHDR8.0"), {127, 255, 255, 255, 't', 'e', 'X', 't'}});
    const auto load = [&](const Bytes& start) {
        WriteFile(File("large.png"), start);
        std::filesystem::resize_file(File("large.png"), Limit + 1000); // takes no room on the disk
        return png_.LoadPNGFile(File("large.png"));
    };
    EXPECT_EQ(load(OnePixelPng()), 0);
    EXPECT_EQ(Drawn(), std::vector<std::uint32_t>{0xff0a141e});
    EXPECT_LT(mdlPNG.FileBytes.size(), OnePixelPng().size());
    EXPECT_EQ(load({'B', 'M'}), 3);
    EXPECT_THROW(static_cast<void>(load(claim)), std::overflow_error);
}

TEST_F(ChunkRulesTest, WhatTakesMoreThanItMayIsRefusedBeforeItTakesIt) {
    const Bytes wide = PngOf(Header(300, 200, 1, Greyscale), {0, 1});
    const Bytes notes = Join({Signature(), Chunks("IHDR8.0 teXt9 teXt9 teXt9 IDAT IEND")});
    constexpr std::uint64_t WideBytes = 300 * 200 * 4 + 40 * 200;
    const auto load = [&](const Bytes& bytes, const PictureLimits& limits) {
        WriteFile(File("limited.png"), bytes);
        return png_.LoadPNGFile(File("limited.png"), limits);
    };
    EXPECT_EQ(load(wide, {.MaximumSide = 300, .MaximumBytes = WideBytes + 1000}), 0);
    EXPECT_THROW(static_cast<void>(load(wide, {.MaximumSide = 299})), std::runtime_error);
    EXPECT_THROW(static_cast<void>(load(wide, {.MaximumBytes = WideBytes})), std::bad_alloc);
    EXPECT_EQ(load(notes, {.MaximumBytes = 1500}), 0);
    EXPECT_THROW(static_cast<void>(load(notes, {.MaximumBytes = 600})), std::bad_alloc);
    const Bytes large = Join({Signature(), Chunks("IHDR8.0 teXt999999 IDAT IEND")});
    EXPECT_THROW(static_cast<void>(load(large, {.MaximumBytes = 900000})), std::bad_alloc);
}

} // namespace
} // namespace editor
