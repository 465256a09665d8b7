// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <optional>

class QIODevice;

namespace editor {

/// How the pixels of a BMP file are stored, as numbered in the file format.
enum class BitmapCompression : std::uint32_t {
    None = 0,
    RunLength8 = 1,
    RunLength4 = 2,
    BitFields = 3,
    AlphaBitFields = 6,
};

/// What a BMP file says about its pixels (in the bitmap file format of Windows, or with a header of
/// OS/2), checked against the size of the file.
struct BitmapHeader {
    std::int64_t pixelOffset = 0; // of the first pixel byte in the file
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool topDown = false; // else the bottom row comes first
    int bitsPerPixel = 0; // 1, 4, 8, 16, 24 or 32
    BitmapCompression compression = BitmapCompression::None;
    /// With up to 8 bits per pixel: the colours 0xffRRGGBB, black where the file gives none.
    std::array<std::uint32_t, 256> palette{};
    /// With more than 8 bits per pixel: the bits that hold red, green and blue.
    std::array<std::uint32_t, 3> masks{};

    /// The bytes of a row that is not run-length encoded.
    [[nodiscard]] std::int64_t RowBytes() const {
        constexpr std::int64_t UnitBits = 32; // to which rows are padded
        return (std::int64_t{width} * bitsPerPixel + UnitBits - 1) / UnitBits * (UnitBits / 8);
    }
    [[nodiscard]] bool IsRunLengthEncoded() const {
        return compression == BitmapCompression::RunLength8 ||
               compression == BitmapCompression::RunLength4;
    }
};

/// Reads the header at the beginning of `file`, which must be seekable. Returns nothing when it is
/// not a BMP file of a kind listed above, when the picture is empty or wider or higher than
/// `maximumSide`, or when the file is too short: pixels that are not compressed must all be there,
/// and run-length encoded ones must not be far too few for the picture (see BitmapHeader.cpp).
[[nodiscard]] std::optional<BitmapHeader> ReadBitmapHeader(QIODevice& file, int maximumSide);

} // namespace editor
