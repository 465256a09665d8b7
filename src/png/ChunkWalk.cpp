// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/ChunkWalk.h"

#include "inflate/BigEndian.h"
#include "png/Sizes.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

namespace editor {
namespace {

constexpr std::array<char, SignatureSize> Signature = {'\x89', 'P',  'N',    'G',
                                                       '\r',   '\n', '\x1a', '\n'};

constexpr std::int32_t HeaderLength = 13;
constexpr std::int32_t BytesPerEntry = 3; // of PLTE: red, green, blue

bool IsUpper(char byte) {
    return static_cast<unsigned char>(byte) < 'a';
}

bool IsLetter(char byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

bool IsValidChunk(const ChunkRec& chunk) {
    return chunk.Length >= 0 && std::ranges::all_of(chunk.ChunkType, IsLetter) &&
           IsUpper(chunk.ChunkType[2]);
}

bool IsCritical(const ChunkRec& chunk) {
    return IsUpper(chunk.ChunkType[0]);
}

// A width or height of 2^31 or more comes out negative, for ValidateHeader() to refuse.
HeaderRec ParseHeader(const ChunkRec& chunk) {
    const std::uint8_t* data = chunk.Data.data();
    return {.Width = static_cast<std::int32_t>(BigEndian(data)),
            .Height = static_cast<std::int32_t>(BigEndian(data + 4)),
            .BitDepth = data[8],
            .ColorType = data[9],
            .Compression = data[10],
            .Filter = data[11],
            .Interlace = data[12]};
}

// The combinations of W3C PNG text, table 11.1.
bool IsDepthOfType(std::uint8_t depth, std::uint8_t type) {
    switch (type) {
    case Greyscale:
        return depth == 1 || depth == 2 || depth == 4 || depth == 8 || depth == 16;
    case PaletteIndex:
        return depth == 1 || depth == 2 || depth == 4 || depth == 8;
    case Truecolour:
    case GreyscaleAlpha:
    case TruecolourAlpha:
        return depth == 8 || depth == 16;
    default:
        return false;
    }
}

bool ValidateHeader(const HeaderRec& header) {
    return header.Width >= 1 && header.Height >= 1 &&
           IsDepthOfType(header.BitDepth, header.ColorType) && header.Compression == 0 &&
           header.Filter == 0 && header.Interlace <= 1;
}

// False at the end of the file.
bool ReadChunk(FileReader& reader, ChunkRec& chunk) {
    std::span<const std::uint8_t> length;
    std::span<const std::uint8_t> type;
    std::span<const std::uint8_t> crc;
    if (!reader.Read(4, length)) {
        return false;
    }
    chunk.Length = To32Bit(BigEndian(length.data()));
    if (!reader.Read(chunk.ChunkType.size(), type) ||
        !reader.Read(static_cast<std::size_t>(chunk.Length), chunk.Data) ||
        !reader.Read(chunk.CRC.size(), crc)) {
        return false;
    }
    std::memcpy(chunk.ChunkType.data(), type.data(), type.size());
    std::memcpy(chunk.CRC.data(), crc.data(), crc.size());
    return true;
}

// The rules for the chunks in turn. `header` is all 0 until IHDR has been read.
class ChunkRules {
  public:
    explicit ChunkRules(HeaderRec& header) : header_(header) {}

    bool Accept(const ChunkRec& chunk) {
        ++counter_;
        if (!IsValidChunk(chunk)) {
            return false;
        }
        if (HasImageData() && chunk.ChunkType != chunks::IDAT) {
            IDATEnded_ = true;
        }
        if (chunk.ChunkType == chunks::IHDR) {
            return AcceptHeader(chunk);
        }
        if (chunk.ChunkType == chunks::PLTE) {
            return AcceptPalette(chunk);
        }
        if (chunk.ChunkType == chunks::tRNS) {
            return AcceptTransparency(chunk);
        }
        if (chunk.ChunkType == chunks::bKGD) {
            return !HasImageData() && (header_.ColorType != PaletteIndex || HasPalette());
        }
        if (chunk.ChunkType == chunks::IDAT) {
            return !IDATEnded_;
        }
        return chunk.ChunkType == chunks::IEND || !IsCritical(chunk);
    }

    [[nodiscard]] bool LacksPalette() const {
        return header_.ColorType == PaletteIndex && !HasPalette();
    }

  private:
    static bool HasImageData() { return mdlPNG.ChunkExists(chunks::IDAT); }
    static bool HasPalette() { return mdlPNG.ChunkExists(chunks::PLTE); }

    bool AcceptHeader(const ChunkRec& chunk) {
        if (counter_ != 1 || chunk.Length != HeaderLength) {
            return false;
        }
        header_ = ParseHeader(chunk);
        return ValidateHeader(header_);
    }

    [[nodiscard]] bool AcceptPalette(const ChunkRec& chunk) const {
        const bool mayHaveOne = header_.ColorType == Truecolour ||
                                header_.ColorType == PaletteIndex ||
                                header_.ColorType == TruecolourAlpha;
        return !HasPalette() && !HasImageData() && mayHaveOne && chunk.Length >= BytesPerEntry &&
               chunk.Length % BytesPerEntry == 0 &&
               chunk.Length / BytesPerEntry <= 1 << header_.BitDepth;
    }

    [[nodiscard]] bool AcceptTransparency(const ChunkRec& chunk) const {
        if (HasImageData() || header_.ColorType == GreyscaleAlpha ||
            header_.ColorType == TruecolourAlpha) {
            return false;
        }
        return header_.ColorType != PaletteIndex ||
               (HasPalette() &&
                chunk.Length <= mdlPNG.GetChunk(chunks::PLTE).Length / BytesPerEntry);
    }

    HeaderRec& header_;
    std::int32_t counter_ = 0;
    bool IDATEnded_ = false;
};

} // namespace

bool CheckSignature(std::istream& file) {
    std::array<char, SignatureSize> bytes{};
    return file.read(bytes.data(), bytes.size()) && bytes == Signature;
}

bool ReadChunks(FileReader& reader, const PictureLimits& limits, HeaderRec& header) {
    header = {};
    ChunkRules rules(header);
    ChunkRec chunk;
    do {
        if (!ReadChunk(reader, chunk) || !rules.Accept(chunk)) {
            return false;
        }
        mdlPNG.AddChunk(chunk);
        limits.RequireBytes(reader.Position() + mdlPNG.Chunks.size() * PngModule::BytesPerChunk);
    } while (chunk.ChunkType != chunks::IEND);
    return !rules.LacksPalette();
}

} // namespace editor
