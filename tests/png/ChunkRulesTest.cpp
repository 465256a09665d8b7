// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

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
    EXPECT_FALSE(mdlPNG.ChunkExists("IHDR1"));
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
    EXPECT_EQ(PixelsOf(surface), std::vector{DrawingSurface::InitialColour});
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
    EXPECT_TRUE(mdlPNG.ChunkExists("IHDR1"));
}

TEST_F(ChunkRulesTest, ChunksAreKeptUnderTheirTypeAndNumberInTheOrderOfTheFile) {
    const Bytes stream = Deflated({0, 42});
    const Bytes parts[] = {{stream[0]}, {stream[1], stream[2]}, {stream.begin() + 3, stream.end()}};
    ASSERT_EQ(Load(Join({Signature(), Chunks("IHDR8.0 teXt1 teXt2"), Chunk("IDAT", parts[0]),
                         Chunk("IDAT", parts[1]), Chunk("IDAT", parts[2]), Chunks("ruNs4 IEND0")})),
              0);
    EXPECT_EQ(HeldPixels(), (Bytes{42, 0, 0, 0}));
    EXPECT_EQ(mdlPNG.ChunkKeys, (std::deque<std::string>{"", "IHDR1", "teXt1", "teXt2", "IDAT1",
                                                         "IDAT2", "IDAT3", "ruNs1", "IEND1"}));
    for (const auto& [key, data] : {std::pair{"teXt2", Bytes(2, 9)},
                                    {"IDAT2", parts[1]},
                                    {"IDAT3", parts[2]},
                                    {"ruNs1", Bytes(4, 9)}}) {
        const ChunkRec chunk = mdlPNG.GetChunk(key);
        EXPECT_EQ(chunk.Length, static_cast<std::int32_t>(data.size())) << key;
        EXPECT_EQ(Bytes(chunk.Data.begin(), chunk.Data.end()), data) << key;
    }
    EXPECT_EQ(mdlPNG.GetChunk("IEND1").CRC, (std::array<std::uint8_t, 4>{0xAE, 0x42, 0x60, 0x82}));
    for (const char* key : {"", "IDAT", "IDAT0", "IDAT4", "IDAT01", "IDAT1 ", "idat1", "IDA"}) {
        EXPECT_FALSE(mdlPNG.ChunkExists(key)) << key;
        EXPECT_EQ(mdlPNG.GetChunk(key).Length, 0) << key;
    }
}

TEST_F(ChunkRulesTest, AMillionChunksAreReadInNoMoreThanLinearTime) {
    const Bytes note = Chunk("teXt");
    Bytes file = Join({Signature(), Chunks("IHDR8.0")});
    for (int i = 0; i < 1000000; ++i) {
        file.insert(file.end(), note.begin(), note.end());
    }
    ASSERT_EQ(Load(Join({file, Chunks("IDAT IEND")})), 0);
    EXPECT_TRUE(mdlPNG.ChunkExists("teXt1000000"));
    EXPECT_EQ(mdlPNG.Chunks.size(), 1000004U);
}

} // namespace
} // namespace editor
