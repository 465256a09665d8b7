// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/DrawingSurface.h"
#include "pictures/LargeBuffer.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <unordered_map>
#include <vector>

namespace editor {

/// Colour types of the W3C PNG text, section 11.2.2.
enum ColourType : std::uint8_t {
    Greyscale = 0,
    Truecolour = 2,
    PaletteIndex = 3,
    GreyscaleAlpha = 4,
    TruecolourAlpha = 6
};

/// The fields of an IHDR chunk (W3C PNG text, section 11.2.2).
struct HeaderRec {
    std::int32_t Width = 0;    // pixels
    std::int32_t Height = 0;   // pixels
    std::uint8_t BitDepth = 0; // of a sample or a palette index
    std::uint8_t ColorType = 0;
    std::uint8_t Compression = 0;
    std::uint8_t Filter = 0;
    std::uint8_t Interlace = 0;

    bool operator==(const HeaderRec&) const = default;
};

/// The four characters of a chunk's type, as in the file.
using ChunkTypeText = std::array<char, 4>;

namespace chunks {
inline constexpr ChunkTypeText IHDR = {'I', 'H', 'D', 'R'};
inline constexpr ChunkTypeText PLTE = {'P', 'L', 'T', 'E'};
inline constexpr ChunkTypeText tRNS = {'t', 'R', 'N', 'S'};
inline constexpr ChunkTypeText bKGD = {'b', 'K', 'G', 'D'};
inline constexpr ChunkTypeText IDAT = {'I', 'D', 'A', 'T'};
inline constexpr ChunkTypeText IEND = {'I', 'E', 'N', 'D'};
} // namespace chunks

/// One chunk as read from the file.
struct ChunkRec {
    std::int32_t Length = 0; // of Data
    ChunkTypeText ChunkType{};
    std::span<const std::uint8_t> Data; // in mdlPNG.FileBytes
    std::array<std::uint8_t, 4> CRC{};  // as in the file, never examined
};

/// A decoded image as a device-independent bitmap; no image when all of it is empty.
struct BitmapRec {
    BITMAPINFOHEADER Header;
    std::vector<std::uint8_t> Palette; // blue, green, red, 0 for each entry
    /// biHeight rows of DibStride() bytes, the bottom row first, the padding of a row 0. Pixels of
    /// 1 and 4 bits from the highest bits down, 24 bits blue, green, red, 32 bits blue, green, red,
    /// alpha (255 opaque).
    LargeBuffer Pixels;
};

/// What all decoder objects share: the last accepted file's header and image, and the chunk table
/// of the file read last. Its member initialisers are the state at program start.
struct PngModule {
    HeaderRec PngHeader;
    BitmapRec PngImage;

    /// The chunk table: index 0 is a placeholder, the chunks follow in the order of the file. Empty
    /// before the first file.
    std::deque<ChunkRec> Chunks;
    /// What the chunks' Data are part of: the file as far as it was read, without its signature.
    LargeBuffer FileBytes;

    // The key of a chunk is its type and its number among the chunks of that type, from 1: the
    // second IDAT chunk has the key "IDAT2".

    /// Back to the placeholder alone; the file's bytes go as well.
    void ClearChunks();
    /// Appends `chunk` under its type and the next number.
    void AddChunk(const ChunkRec& chunk);
    [[nodiscard]] bool ChunkExists(const ChunkTypeText& type, std::size_t number = 1) const;
    /// A copy of the chunk's record, which refers to the same data; an empty record when there is
    /// no such chunk.
    [[nodiscard]] ChunkRec GetChunk(const ChunkTypeText& type, std::size_t number = 1) const;
    /// The indices of all chunks of a type in the order of the file.
    [[nodiscard]] std::span<const std::int32_t> IndicesOf(const ChunkTypeText& type) const;

    /// An upper limit for the bytes that the table takes for one chunk.
    static constexpr std::size_t BytesPerChunk = 160;

  private:
    // By the 32 bits of the type. A file may have millions of chunks, of as many types, so that no
    // look-up may search.
    std::unordered_map<std::uint32_t, std::vector<std::int32_t>> indicesOfType_;
};

extern PngModule mdlPNG;

} // namespace editor
