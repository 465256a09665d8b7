#include "png/PngFixture.h"

#include <limits>
#include <stdexcept>

namespace editor {
namespace {

using ChunkRulesTest = PngFixture;

const HeaderRec Grey = Header(1, 1, 8, Greyscale);
const HeaderRec Colour = Header(1, 1, 8, Truecolour);
const HeaderRec Indexed = Header(1, 1, 8, PaletteIndex);

Bytes IHDROf(std::uint8_t depth, std::uint8_t type) {
    return IHDR(Header(1, 1, depth, type));
}

Bytes PLTE(std::size_t bytes) {
    return Chunk("PLTE", Bytes(bytes, 9));
}

// The data of a one-pixel image: all of a grey one, of others the rest counts as 0.
Bytes Data() {
    return IDAT({0, 0});
}

struct FileCase {
    const char* name;
    Bytes afterSignature;
};

// A chunk that claims more data than the file has.
Bytes Claim(std::uint8_t first, std::uint8_t last) {
    return {first, 0, 0, last, 'I', 'D', 'A', 'T'};
}

std::vector<FileCase> RefusedFiles() {
    HeaderRec noWidth = Grey, noHeight = Grey, huge = Grey, compression = Grey, filter = Grey,
              interlace = Grey;
    noWidth.Width = 0;
    noHeight.Height = 0;
    huge.Width = std::numeric_limits<std::int32_t>::min();
    compression.Compression = 1;
    filter.Filter = 1;
    interlace.Interlace = 2;
    const Bytes grey = IHDR(Grey), colour = IHDR(Colour), indexed = IHDR(Indexed);
    const Bytes data = Data(), end = IEND(), tRNS = Chunk("tRNS", {1, 2}), bKGD = Chunk("bKGD");
    const Bytes note = Chunk("teXt", {1});
    const Bytes whole = Join({grey, data, end});
    return {
        {"nothing behind the signature", {}},
        {"the end within a length", {0, 0}},
        {"the end within a chunk's data", Join({grey, Claim(0, 9), {1, 2, 3}})},
        {"a length far beyond the file", Join({grey, Claim(127, 255)})},
        {"the end before IEND", Join({grey, data})},
        {"the end within IEND's CRC", Bytes(whole.begin(), whole.end() - 1)},
        {"IHDR not first", Join({note, grey, data, end})},
        {"IHDR of 12 bytes", Join({Chunk("IHDR", Bytes(12, 1)), data, end})},
        {"IHDR of 14 bytes", Join({Chunk("IHDR", Bytes(14, 1)), data, end})},
        {"a second IHDR", Join({grey, grey, data, end})},
        {"width 0", Join({IHDR(noWidth), data, end})},
        {"height 0", Join({IHDR(noHeight), data, end})},
        {"width 2^31", Join({IHDR(huge), data, end})},
        {"compression 1", Join({IHDR(compression), data, end})},
        {"filter method 1", Join({IHDR(filter), data, end})},
        {"interlace 2", Join({IHDR(interlace), data, end})},
        {"palette of 16 bits", Join({IHDROf(16, 3), PLTE(3), data, end})},
        {"truecolour of 4 bits", Join({IHDROf(4, 2), data, end})},
        {"colour type 5", Join({IHDROf(8, 5), data, end})},
        {"depth 0", Join({IHDROf(0, 0), data, end})},
        {"PLTE of 0 bytes", Join({colour, PLTE(0), data, end})},
        {"PLTE of 2 bytes", Join({colour, PLTE(2), data, end})},
        {"PLTE of 301 bytes", Join({colour, PLTE(301), data, end})},
        {"PLTE of 257 entries", Join({colour, PLTE(771), data, end})},
        {"PLTE of 5 entries for 2 bits", Join({IHDROf(2, 3), PLTE(15), data, end})},
        {"PLTE in greyscale", Join({grey, PLTE(3), data, end})},
        {"PLTE in greyscale with alpha", Join({IHDROf(8, 4), PLTE(3), data, end})},
        {"a second PLTE", Join({colour, PLTE(3), PLTE(3), data, end})},
        {"PLTE after IDAT", Join({colour, data, PLTE(3), end})},
        {"PLTE without IHDR", Join({PLTE(3), end})},
        {"a palette image without PLTE", Join({indexed, data, end})},
        {"tRNS before PLTE", Join({indexed, tRNS, PLTE(6), data, end})},
        {"tRNS longer than PLTE", Join({indexed, PLTE(3), tRNS, data, end})},
        {"tRNS in greyscale with alpha", Join({IHDROf(8, 4), tRNS, data, end})},
        {"tRNS in truecolour with alpha", Join({IHDROf(8, 6), tRNS, data, end})},
        {"tRNS after IDAT", Join({grey, data, tRNS, end})},
        {"bKGD before PLTE", Join({indexed, bKGD, PLTE(3), data, end})},
        {"bKGD after IDAT", Join({grey, data, bKGD, end})},
        {"IDAT chunks apart", Join({grey, data, note, data, end})},
        {"an unknown critical chunk", Join({grey, Chunk("TeXt"), data, end})},
        {"a type whose third letter is small", Join({grey, Chunk("text"), data, end})},
        {"a type with a digit", Join({grey, Chunk("teX1"), data, end})},
        {"a type with a blank", Join({grey, Chunk("te t"), data, end})},
    };
}

TEST_F(ChunkRulesTest, ARefusedFileLeavesTheLastAcceptedOneInPlace) {
    EXPECT_EQ(png_.LoadPNGFile(File("missing.png")), 1);
    EXPECT_EQ(mdlPNG.PngHeader, HeaderRec{});
    ASSERT_EQ(Load(OnePixelPng()), 0);
    const HeaderRec header = mdlPNG.PngHeader;
    const auto expectUnchanged = [&] {
        EXPECT_EQ(mdlPNG.PngHeader, header);
        EXPECT_EQ(Drawn(), std::vector<std::uint32_t>{0xff0a141e});
    };
    for (const FileCase& file : RefusedFiles()) {
        SCOPED_TRACE(file.name);
        EXPECT_EQ(Load(Join({Signature(), file.afterSignature})), 3);
        expectUnchanged();
    }
    for (const Bytes& bytes : {Bytes{}, Bytes{137, 'P', 'N'}, Bytes{'B', 'M', 1, 2, 3, 4, 5, 6},
                               Bytes{'G', 'I', 'F', '8', '9', 'a', 0, 0, 0}}) {
        EXPECT_EQ(Load(bytes), 3);
        expectUnchanged();
    }
    std::filesystem::create_directory(File("folder.png"));
    EXPECT_EQ(png_.LoadPNGFile(File("folder.png")), 3);
    EXPECT_EQ(png_.LoadPNGFile("/dev/zero"), 3);
    EXPECT_EQ(png_.LoadPNGFile(File("missing.png")), 1);
    expectUnchanged();
    EXPECT_FALSE(mdlPNG.ChunkExists("IHDR1"));
}

TEST_F(ChunkRulesTest, FilesWithinTheRulesAreAccepted) {
    Bytes wrongCrc = OnePixelPng();
    wrongCrc[32] ^= 0xff; // the last byte of IHDR
    ASSERT_EQ(Load(wrongCrc), 0);
    const Bytes grey = IHDR(Grey), data = Data(), end = IEND(), note = Chunk("teXt", {1});
    const FileCase files[] = {
        {"ancillary chunks around the data", Join({grey, note, data, note, end, {1, 2, 3}})},
        {"a palette of 256 entries in truecolour", Join({IHDR(Colour), PLTE(768), data, end})},
        {"tRNS of any length in greyscale", Join({grey, Chunk("tRNS", {1}), data, end})},
        {"bKGD after PLTE", Join({IHDR(Indexed), PLTE(3), Chunk("bKGD"), data, end})},
        {"a palette without entries for every index", Join({IHDR(Indexed), PLTE(15), data, end})},
    };
    for (const FileCase& file : files) {
        SCOPED_TRACE(file.name);
        EXPECT_EQ(Load(Join({Signature(), file.afterSignature})), 0);
        EXPECT_EQ(png_.Width(), 1);
        EXPECT_EQ(Drawn().size(), 1U);
    }
}

TEST_F(ChunkRulesTest, WithoutAnImageToHoldNothingIsDrawn) {
    DrawingSurface surface(1, 1);
    EXPECT_THROW(png_.DrawToDC(surface, 0, 0), std::runtime_error);
    HeaderRec interlaced = Header(7, 5, 4, Greyscale);
    interlaced.Interlace = 1;
    ASSERT_EQ(Load(Join({Signature(), IHDR(interlaced), IEND()})), 0);
    EXPECT_TRUE(png_.Interlaced());
    EXPECT_EQ(png_.Width(), 7);
    EXPECT_EQ(png_.Height(), 5);
    EXPECT_EQ(png_.BitDepth(), 4);
    EXPECT_EQ(png_.ColorType(), 0);
    EXPECT_THROW(png_.DrawToDC(surface, 0, 0), std::runtime_error);
    ASSERT_EQ(Load(OnePixelPng()), 0);
    ASSERT_EQ(Load(Join({Signature(), Data(), IEND()})), 0);
    EXPECT_EQ(mdlPNG.PngHeader, HeaderRec{});
    EXPECT_THROW(png_.DrawToDC(surface, 0, 0), std::runtime_error);
    EXPECT_EQ(PixelsOf(surface), std::vector{DrawingSurface::InitialColour});
}

TEST_F(ChunkRulesTest, AnErrorWhileDecodingLeavesTheNewHeaderAndTheOldImage) {
    const Bytes one = IHDR(Header(1, 1, 8, Greyscale)), end = IEND();
    Bytes corrupt = Deflated(Bytes(99, 7));
    corrupt[5] ^= 0xff;
    const Bytes whole = Deflated({0, 1});
    const FileCase files[] = {
        {"no IDAT", Join({one, end})},
        {"an empty IDAT", Join({one, Chunk("IDAT"), end})},
        {"an empty IDAT behind data", Join({one, IDAT({0, 1}), Chunk("IDAT"), end})},
        {"a corrupt stream", Join({one, Chunk("IDAT", corrupt), end})},
        {"a stream cut short", Join({one, Chunk("IDAT", {whole.begin(), whole.end() - 2}), end})},
        {"a stream of nothing", Join({one, IDAT({}), end})},
        {"more data than the header says", Join({one, IDAT({0, 1, 2}), end})},
        {"an index beyond the palette of an image with transparency",
         Join({IHDR(Header(1, 1, 8, PaletteIndex)), PLTE(6), Chunk("tRNS", {0}), IDAT({0, 2}),
               end})},
        {"a row of 2^31 bits",
         Join({IHDR(Header(1 << 26, 1, 8, TruecolourAlpha)), IDAT({0}), end})},
        {"an image of 2^31 bytes",
         Join({IHDR(Header(1 << 16, 1 << 15, 8, Greyscale)), IDAT({0}), end})},
        {"a bitmap of 2^31 bytes", Join({IHDR(Header(1 << 15, 1 << 14, 8, PaletteIndex)), PLTE(3),
                                         Chunk("tRNS", {0}), IDAT({0}), end})},
    };
    ASSERT_EQ(Load(OnePixelPng()), 0);
    const Bytes held = HeldPixels();
    for (const FileCase& file : files) {
        SCOPED_TRACE(file.name);
        mdlPNG.PngHeader = {};
        EXPECT_THROW(static_cast<void>(Load(Join({Signature(), file.afterSignature}))),
                     std::runtime_error);
        EXPECT_NE(mdlPNG.PngHeader, HeaderRec{});
        EXPECT_EQ(HeldPixels(), held);
    }
    mdlPNG.PngHeader = {};
    EXPECT_THROW(static_cast<void>(Load(Join({Signature(), one, Claim(128, 0)}))),
                 std::overflow_error);
    EXPECT_EQ(mdlPNG.PngHeader, HeaderRec{});
    EXPECT_TRUE(mdlPNG.ChunkExists("IHDR1"));
}

TEST_F(ChunkRulesTest, ChunksAreKeptUnderTheirTypeAndNumberInTheOrderOfTheFile) {
    const Bytes stream = Deflated({0, 42});
    const auto split = [&](std::ptrdiff_t from, std::ptrdiff_t to) {
        return Bytes(stream.begin() + from, stream.begin() + to);
    };
    const auto size = static_cast<std::ptrdiff_t>(stream.size());
    ASSERT_EQ(Load(Join({Signature(), IHDR(Grey), Chunk("teXt", {1}), Chunk("teXt", {2, 3}),
                         Chunk("IDAT", split(0, 1)), Chunk("IDAT", split(1, 4)),
                         Chunk("IDAT", split(4, size)), Chunk("ruNs", {4}), IEND()})),
              0);
    EXPECT_EQ(HeldPixels(), (Bytes{42, 0, 0, 0}));
    const std::vector<std::string> keys(mdlPNG.ChunkKeys.begin(), mdlPNG.ChunkKeys.end());
    EXPECT_EQ(keys, (std::vector<std::string>{"", "IHDR1", "teXt1", "teXt2", "IDAT1", "IDAT2",
                                              "IDAT3", "ruNs1", "IEND1"}));
    const auto dataOf = [](const char* key) {
        const ChunkRec chunk = mdlPNG.GetChunk(key);
        EXPECT_EQ(chunk.Length, static_cast<std::int32_t>(chunk.Data.size()));
        return Bytes(chunk.Data.begin(), chunk.Data.end());
    };
    EXPECT_EQ(dataOf("teXt2"), (Bytes{2, 3}));
    EXPECT_EQ(dataOf("IDAT2"), split(1, 4));
    EXPECT_EQ(dataOf("IDAT3"), split(4, size));
    EXPECT_EQ(dataOf("ruNs1"), Bytes{4});
    EXPECT_EQ(mdlPNG.GetChunk("IEND1").CRC, (std::array<std::uint8_t, 4>{0xAE, 0x42, 0x60, 0x82}));
    for (const char* key : {"", "IDAT", "IDAT0", "IDAT4", "IDAT01", "IDAT1 ", "idat1", "IDA"}) {
        EXPECT_FALSE(mdlPNG.ChunkExists(key)) << key;
        EXPECT_EQ(mdlPNG.GetChunk(key).Length, 0) << key;
    }
}

TEST_F(ChunkRulesTest, AMillionChunksAreReadInNoMoreThanLinearTime) {
    const Bytes data = Data(), note = Chunk("teXt");
    Bytes file = Join({Signature(), IHDR(Grey)});
    for (int i = 0; i < 1000000; ++i) {
        file.insert(file.end(), note.begin(), note.end());
    }
    ASSERT_EQ(Load(Join({file, data, IEND()})), 0);
    EXPECT_TRUE(mdlPNG.ChunkExists("teXt1000000"));
    EXPECT_EQ(mdlPNG.Chunks.size(), 1000004U);
}

} // namespace
} // namespace editor
