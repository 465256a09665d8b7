// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/BitmapHeader.h"

#include "pictures/Pixel.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <cstdlib>

namespace editor {
namespace {

constexpr quint16 Signature = 0x4d42; // "BM"
constexpr std::int64_t FileHeaderSize = 14;

// The sizes of the information header, by which the kinds of files are told apart.
constexpr quint32 Core = 12; // OS/2 1.x
constexpr quint32 Info = 40;
constexpr quint32 InfoWithMasks = 52;
constexpr quint32 InfoWithAlpha = 56;
constexpr quint32 Core2 = 64; // OS/2 2.x
constexpr quint32 Version4 = 108;
constexpr quint32 Version5 = 124;

// All headers but Core begin with the same 40 bytes; the masks come next, whether they are part of
// a longer header or follow it.
constexpr std::int64_t MasksOffset = FileHeaderSize + Info;
constexpr std::int64_t MaskSize = 4;

// A run of 2 bytes stands for up to 255 pixels. A file that has more pixels per byte leaves out
// parts of the picture. Small pictures may do that; in a large one, a few bytes would claim
// gigabytes.
constexpr std::int64_t MostPixelsPerByte = 128;
constexpr std::int64_t PixelsForAnyFile = std::int64_t{4096} * 4096;

/// The fields as the file has them.
struct Fields {
    quint32 pixelOffset = 0;
    quint32 headerSize = 0;
    qint32 width = 0;
    qint32 height = 0;
    quint16 planes = 0;
    quint16 bitsPerPixel = 0;
    quint32 compression = 0;
    quint32 colours = 0; // in the palette; 0: as many as there are indices

    [[nodiscard]] bool HasMasks() const {
        return compression == quint32(BitmapCompression::BitFields) ||
               compression == quint32(BitmapCompression::AlphaBitFields);
    }
    [[nodiscard]] std::int64_t PaletteOffset() const {
        std::int64_t behind = 0;
        if (headerSize == Info && HasMasks()) {
            behind = compression == quint32(BitmapCompression::BitFields) ? 3 : 4;
        }
        return FileHeaderSize + headerSize + behind * MaskSize;
    }
};

bool IsKnownHeader(quint32 size) {
    constexpr std::array Known{Core, Info, InfoWithMasks, InfoWithAlpha, Core2, Version4, Version5};
    return std::find(Known.begin(), Known.end(), size) != Known.end();
}

// True when the stream held all fields and they can belong to a BMP file.
bool ReadFields(QDataStream& in, Fields& fields) {
    quint16 signature = 0;
    quint32 skipped = 0;
    in >> signature >> skipped >> skipped >> fields.pixelOffset >> fields.headerSize;
    if (in.status() != QDataStream::Ok || signature != Signature ||
        !IsKnownHeader(fields.headerSize)) {
        return false;
    }
    if (fields.headerSize == Core) {
        quint16 width = 0;
        quint16 height = 0;
        in >> width >> height >> fields.planes >> fields.bitsPerPixel;
        fields.width = width;
        fields.height = height;
    } else {
        in >> fields.width >> fields.height >> fields.planes >> fields.bitsPerPixel >>
            fields.compression;
        in >> skipped >> skipped >> skipped >> fields.colours; // data size and resolution
    }
    return in.status() == QDataStream::Ok;
}

bool IsKnownCoding(const Fields& fields) {
    const int bits = fields.bitsPerPixel;
    switch (BitmapCompression{fields.compression}) {
    case BitmapCompression::None:
        return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
    case BitmapCompression::RunLength8:
        return bits == 8;
    case BitmapCompression::RunLength4:
        return bits == 4;
    case BitmapCompression::BitFields:
    case BitmapCompression::AlphaBitFields:
        // In files of OS/2 the same number stands for another coding.
        return (bits == 16 || bits == 32) && fields.headerSize != Core2;
    default:
        return false;
    }
}

bool HasPossibleSize(const Fields& fields, int maximumSide) {
    const std::int64_t height = std::abs(std::int64_t{fields.height});
    return fields.width > 0 && fields.width <= maximumSide && height > 0 && height <= maximumSide;
}

void ReadMasks(QDataStream& in, const Fields& fields, BitmapHeader& header) {
    if (!fields.HasMasks()) {
        header.masks = header.bitsPerPixel == 16
                           ? std::array<std::uint32_t, 3>{0x7c00, 0x03e0, 0x001f}
                           : std::array<std::uint32_t, 3>{0xff0000, 0x00ff00, 0x0000ff};
        return;
    }
    in.device()->seek(MasksOffset);
    for (std::uint32_t& mask : header.masks) {
        in >> mask;
    }
}

// Some files have a shorter palette than they say: it ends where the pixels begin.
void ReadPalette(QDataStream& in, const Fields& fields, BitmapHeader& header) {
    header.palette.fill(Opaque);
    const std::int64_t entrySize = fields.headerSize == Core ? 3 : 4;
    const std::int64_t said =
        fields.colours != 0 ? fields.colours : std::int64_t{1} << header.bitsPerPixel;
    const std::int64_t room = (header.pixelOffset - fields.PaletteOffset()) / entrySize;
    const auto count = static_cast<std::size_t>(
        std::min({said, room, static_cast<std::int64_t>(header.palette.size())}));
    in.device()->seek(fields.PaletteOffset());
    for (std::size_t i = 0; i < count; ++i) {
        quint8 blue = 0;
        quint8 green = 0;
        quint8 red = 0;
        in >> blue >> green >> red;
        in.skipRawData(static_cast<int>(entrySize) - 3);
        header.palette[i] = Opaque | quint32{red} << 16 | quint32{green} << 8 | blue;
    }
}

bool FileHoldsPixels(const BitmapHeader& header, std::int64_t fileSize) {
    const std::int64_t bytes = fileSize - header.pixelOffset;
    if (!header.IsRunLengthEncoded()) {
        return bytes >= header.RowBytes() * header.height;
    }
    const std::int64_t pixels = std::int64_t{header.width} * header.height;
    return pixels <= std::max(PixelsForAnyFile, bytes * MostPixelsPerByte);
}

} // namespace

std::optional<BitmapHeader> ReadBitmapHeader(QIODevice& file, int maximumSide) {
    QDataStream in(&file);
    in.setByteOrder(QDataStream::LittleEndian);
    Fields fields;
    if (!ReadFields(in, fields) || fields.planes != 1 || !IsKnownCoding(fields) ||
        !HasPossibleSize(fields, maximumSide) || fields.pixelOffset < fields.PaletteOffset()) {
        return std::nullopt;
    }
    BitmapHeader header;
    header.pixelOffset = fields.pixelOffset;
    header.width = fields.width;
    header.height = std::abs(fields.height);
    header.topDown = fields.height < 0;
    header.bitsPerPixel = fields.bitsPerPixel;
    header.compression = BitmapCompression{fields.compression};
    if (!FileHoldsPixels(header, file.size())) {
        return std::nullopt;
    }
    if (header.bitsPerPixel <= 8) {
        ReadPalette(in, fields, header);
    } else {
        ReadMasks(in, fields, header);
    }
    return in.status() == QDataStream::Ok ? std::optional(header) : std::nullopt;
}

} // namespace editor
