// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/ChunkWalk.h"

#include "png/Sizes.h"

#include <algorithm>

namespace editor {
namespace {

constexpr std::array<std::uint8_t, SignatureSize> Signature = {137, 80, 78, 71, 13, 10, 26, 10};

constexpr ChunkTypeText IHDR = {'I', 'H', 'D', 'R'};
constexpr ChunkTypeText PLTE = {'P', 'L', 'T', 'E'};
constexpr ChunkTypeText tRNS = {'t', 'R', 'N', 'S'};
constexpr ChunkTypeText bKGD = {'b', 'K', 'G', 'D'};
constexpr ChunkTypeText IDAT = {'I', 'D', 'A', 'T'};
constexpr ChunkTypeText IEND = {'I', 'E', 'N', 'D'};

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

std::uint32_t BigEndian(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | std::uint32_t{bytes[3]};
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

// The bytes of a file in order; every read says whether there were enough left.
class ByteReader {
  public:
    explicit ByteReader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    bool Read(std::size_t count, std::span<const std::uint8_t>& bytes) {
        if (count > rest_.size()) {
            return false;
        }
        bytes = rest_.first(count);
        rest_ = rest_.subspan(count);
        return true;
    }

  private:
    std::span<const std::uint8_t> rest_;
};

// False at the end of the file.
bool ReadChunk(ByteReader& reader, ChunkRec& chunk) {
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
    std::ranges::copy(type, chunk.ChunkType.begin());
    std::ranges::copy(crc, chunk.CRC.begin());
    return true;
}

// The rules for one chunk after another; `header` is all 0 until IHDR was read.
class ChunkRules {
  public:
    explicit ChunkRules(HeaderRec& header) : header_(header) {}

    bool Accept(const ChunkRec& chunk) {
        ++counter_;
        if (!IsValidChunk(chunk)) {
            return false;
        }
        if (HasImageData() && chunk.ChunkType != IDAT) {
            IDATEnded_ = true;
        }
        if (chunk.ChunkType == IHDR) {
            return AcceptHeader(chunk);
        }
        if (chunk.ChunkType == PLTE) {
            return AcceptPalette(chunk);
        }
        if (chunk.ChunkType == tRNS) {
            return AcceptTransparency(chunk);
        }
        if (chunk.ChunkType == bKGD) {
            return !HasImageData() && (header_.ColorType != PaletteIndex || HasPalette());
        }
        if (chunk.ChunkType == IDAT) {
            return !IDATEnded_;
        }
        return chunk.ChunkType == IEND || !IsCritical(chunk);
    }

    [[nodiscard]] bool LacksPalette() const {
        return header_.ColorType == PaletteIndex && !HasPalette();
    }

  private:
    static bool HasImageData() { return mdlPNG.ChunkExists("IDAT1"); }
    static bool HasPalette() { return mdlPNG.ChunkExists("PLTE1"); }

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
               (HasPalette() && chunk.Length <= mdlPNG.GetChunk("PLTE1").Length / BytesPerEntry);
    }

    HeaderRec& header_;
    std::int32_t counter_ = 0;
    bool IDATEnded_ = false;
};

} // namespace

bool CheckSignature(std::span<const std::uint8_t> bytes) {
    return bytes.size() >= SignatureSize &&
           std::ranges::equal(bytes.first(SignatureSize), Signature);
}

bool ReadChunks(std::span<const std::uint8_t> file, HeaderRec& header) {
    if (!CheckSignature(file)) {
        return false;
    }
    ByteReader reader(file.subspan(SignatureSize));
    header = {};
    ChunkRules rules(header);
    ChunkRec chunk;
    do {
        if (!ReadChunk(reader, chunk) || !rules.Accept(chunk)) {
            return false;
        }
        mdlPNG.AddChunk(chunk, mdlPNG.NextKey(chunk.ChunkType));
    } while (chunk.ChunkType != IEND);
    return !rules.LacksPalette();
}

} // namespace editor
