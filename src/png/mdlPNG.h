// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/DrawingSurface.h"
#include "pictures/LargeBuffer.h"

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <span>
#include <string>
#include <string_view>
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

/// One chunk as read from the file.
struct ChunkRec {
    std::int32_t Length = 0; // of Data
    ChunkTypeText ChunkType{};
    std::span<const std::uint8_t> Data; // in the bytes that mdlPNG holds
    std::array<std::uint8_t, 4> CRC{};  // as in the file, never examined
};

/// A decoded image as a device-independent bitmap; no image when all of it is empty.
struct BitmapRec {
    BITMAPINFOHEADER Header;
    std::vector<std::uint8_t> Palette; // blue, green, red, 0 an entry
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

    /// The chunk table: two arrays of the same bounds. Index 0 is a placeholder, the chunks follow
    /// in the order of the file. Both are empty before the first file.
    std::deque<ChunkRec> Chunks;
    /// The type and the running number among the chunks of that type, from 1: "IDAT2".
    std::deque<std::string> ChunkKeys;
    /// What the chunks' Data lie in: the file, read whole.
    LargeBuffer FileBytes;

    /// Back to the placeholder alone; the file's bytes go as well.
    void ClearChunks();
    /// Appends `chunk`, whose key has to be NextKey() of its type.
    void AddChunk(const ChunkRec& chunk, const std::string& key);
    /// Type and the smallest number with which it is not stored yet.
    [[nodiscard]] std::string NextKey(const ChunkTypeText& type) const;
    [[nodiscard]] bool ChunkExists(std::string_view key) const;
    /// A copy of the chunk's record, which refers to the same data; an empty record when there is
    /// no such chunk.
    [[nodiscard]] ChunkRec GetChunk(std::string_view key) const;

    /// The indices of the chunks of a type by number. A file may hold millions of chunks, so that
    /// no look-up may search through them.
    std::map<std::string, std::vector<std::int32_t>, std::less<>> IndicesOfType;

  private:
    [[nodiscard]] std::int32_t IndexOf(std::string_view key) const;
};

extern PngModule mdlPNG;

} // namespace editor
