// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/Decoding.h"

#include "inflate/Inflate.h"
#include "pictures/Pixel.h"
#include "png/ImageData.h"
#include "png/Pixels.h"
#include "png/Scanlines.h"
#include "png/Sizes.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <stdexcept>
#include <vector>

namespace editor {
namespace {

// Rows are inflated, reconstructed and converted in bands of about this many bytes, some of which
// stay in the processor's caches from one step to the next.
constexpr std::int32_t BandBytes = 256 * 1024;

// As many rows as are reconstructed together at most.
constexpr std::int32_t MinimumBandRows = 4;

enum class Conversion { None, Unpack2Bit, PaletteAlpha, GrayAlpha, RGB, RGBA };

struct Target {
    Conversion conversion;
    std::int16_t bitCount; // of a pixel of the bitmap
};

Target TargetOf(const HeaderRec& header, bool transparentPalette) {
    switch (header.ColorType) {
    case Truecolour:
        return {Conversion::RGB, 24};
    case GreyscaleAlpha:
        return {Conversion::GrayAlpha, 32};
    case TruecolourAlpha:
        return {Conversion::RGBA, 32};
    default:
        break;
    }
    if (transparentPalette) {
        return {Conversion::PaletteAlpha, 32};
    }
    if (header.BitDepth == 2) {
        return {Conversion::Unpack2Bit, 8};
    }
    return {Conversion::None, std::min<std::int16_t>(header.BitDepth, 8)};
}

// Makes rows of the file into rows of the bitmap.
class RowConverter {
  public:
    RowConverter(const HeaderRec& header, Conversion conversion, const AlphaPalette& palette)
        : header_(header), conversion_(conversion), palette_(palette) {
        if (header.BitDepth == 16) {
            cut_.resize(static_cast<std::size_t>(RowBytes(header) - 1) / 2);
        }
    }

    // Writes the pixels of `row`, without padding.
    void Convert(std::span<const std::uint8_t> row, std::uint8_t* out) {
        if (header_.BitDepth == 16) {
            Strip16Bit(row, cut_.data());
            row = cut_;
        }
        switch (conversion_) {
        case Conversion::None:
            std::memcpy(out, row.data(), row.size());
            break;
        case Conversion::Unpack2Bit:
            Unpack2Bit(header_.Width, row, out);
            break;
        case Conversion::PaletteAlpha:
            ApplyPaletteAlpha(header_.Width, header_.BitDepth, row, palette_, out);
            break;
        case Conversion::GrayAlpha:
            GrayAlphaToBGRA(row, out);
            break;
        case Conversion::RGB:
            SwapRGB(row, out);
            break;
        case Conversion::RGBA:
            SwapRGBA(row, out);
            break;
        }
    }

  private:
    const HeaderRec& header_;
    Conversion conversion_;
    const AlphaPalette& palette_;
    std::vector<std::uint8_t> cut_; // a row of 16-bit samples cut to 8 bits
};

BITMAPINFOHEADER BitmapHeader(const HeaderRec& header, std::int16_t bitCount,
                              std::size_t paletteBytes) {
    BITMAPINFOHEADER result;
    result.biSize = sizeof result;
    result.biWidth = header.Width;
    result.biHeight = header.Height;
    result.biPlanes = 1;
    result.biBitCount = static_cast<std::uint16_t>(bitCount);
    result.biClrUsed = bitCount <= 8 ? static_cast<std::uint32_t>(paletteBytes / 4) : 0;
    return result;
}

std::vector<std::uint8_t> ColourTableOf(const HeaderRec& header,
                                        std::span<const RGBTriple> palette) {
    switch (header.ColorType) {
    case Greyscale:
        return MakeGrayPalette(header.BitDepth);
    case PaletteIndex:
        return PaletteToQuads(palette);
    default:
        return {};
    }
}

// Inflates and reconstructs the rows of the file and writes them, converted and padded, to the rows
// of the bitmap, whose memory is there. False when the image data are corrupt.
bool ConvertRows(const HeaderRec& header, std::int32_t filteredSize, RowConverter& converter,
                 BitmapRec& image) {
    const std::int32_t bitCount = image.Header.biBitCount;
    const auto rowBytes = static_cast<std::size_t>(RowBytes(header));
    const std::int32_t stride = DibStride(header.Width, static_cast<std::int16_t>(bitCount));
    const std::int64_t packed = (std::int64_t{header.Width} * bitCount + 7) / 8;
    const auto padding = static_cast<std::size_t>(stride - packed);

    const std::int32_t bandRows =
        std::min(header.Height, std::max(MinimumBandRows, BandBytes / RowBytes(header)));
    const std::size_t bandSize = rowBytes * static_cast<std::size_t>(bandRows);
    std::vector<std::uint8_t> previous(rowBytes); // above the top row is a row of zeros
    std::int32_t y = 0;
    return Inflate(GetImageData(), filteredSize, bandSize, [&](std::span<std::uint8_t> band) {
        Unfilter(header, band, std::span(previous).subspan(1));
        for (std::size_t at = 0; at < band.size(); at += rowBytes, ++y) {
            std::uint8_t* out = BottomUpRow(image.Pixels.data(), stride, header.Height, y);
            converter.Convert(band.subspan(at + 1, rowBytes - 1), out);
            std::memset(out + packed, 0, padding);
        }
        std::ranges::copy(band.last(rowBytes), previous.begin());
    });
}

} // namespace

BitmapRec DecodeImage(const PictureLimits& limits) {
    if (!mdlPNG.ChunkExists(chunks::IHDR)) {
        return {};
    }
    const HeaderRec& header = mdlPNG.PngHeader;
    if (std::max(header.Width, header.Height) > limits.MaximumSide) {
        throw std::runtime_error("the picture is too large");
    }
    const ChunkRec tRNS = mdlPNG.GetChunk(chunks::tRNS);
    const auto [conversion, bitCount] =
        TargetOf(header, header.ColorType == PaletteIndex && tRNS.Length > 0);
    const std::int32_t filteredSize = To32Bit(std::int64_t{header.Height} * RowBytes(header));
    const std::int32_t bitmapSize =
        To32Bit(std::int64_t{header.Height} * DibStride(header.Width, bitCount));
    const std::int64_t surfaceSize =
        limits.WillBeDrawn ? std::int64_t{4} * header.Width * header.Height : 0;
    limits.RequireBytes(mdlPNG.FileBytes.size() + mdlPNG.Chunks.size() * PngModule::BytesPerChunk +
                        static_cast<std::uint64_t>(bitmapSize + surfaceSize));

    const std::vector<RGBTriple> palette = GetPalette();
    const AlphaPalette alphaPalette(palette, tRNS.Data);
    RowConverter converter(header, conversion, alphaPalette);
    BitmapRec image;
    image.Palette = ColourTableOf(header, palette);
    image.Header = BitmapHeader(header, bitCount, image.Palette.size());
    image.Pixels = LargeBuffer(static_cast<std::size_t>(bitmapSize));
    if (!ConvertRows(header, filteredSize, converter, image)) {
        throw std::runtime_error("the image data are corrupt");
    }
    return image;
}

BitmapRec DecodeInterlaced() {
    return {};
}

} // namespace editor
