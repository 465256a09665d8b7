#include "png/Decoding.h"

#include "png/ImageData.h"
#include "png/Pixels.h"
#include "png/Scanlines.h"
#include "png/Sizes.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace editor {
namespace {

// Rows are reconstructed and converted in bands of about this many bytes, which stay in the cache
// between the two.
constexpr std::int32_t BandBytes = 128 * 1024;

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
        : header_(header), conversion_(conversion), palette_(palette) {}

    // The pixels of `row` without padding. A row of 16-bit samples is cut to 8 bits first, in
    // `out`; where a pixel grows, in its second half, from which it is then read.
    void Convert(std::span<const std::uint8_t> row, std::uint8_t* out) const {
        if (header_.BitDepth == 16) {
            const std::size_t half = row.size() / 2;
            std::uint8_t* cut = conversion_ == Conversion::GrayAlpha ? out + half : out;
            Strip16Bit(row, cut);
            row = {cut, half};
        }
        switch (conversion_) {
        case Conversion::None:
            if (row.data() != out) {
                std::memcpy(out, row.data(), row.size());
            }
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

// PadRows and FlipRows in one: where the picture's row y lies in the bitmap.
std::uint8_t* BitmapRow(BitmapRec& image, std::ptrdiff_t stride, std::int32_t y) {
    return image.Pixels.data() + (image.Header.biHeight - 1 - y) * stride;
}

} // namespace

BitmapRec DecodeImage() {
    if (!mdlPNG.ChunkExists("IHDR1")) {
        return {};
    }
    const HeaderRec& header = mdlPNG.PngHeader;
    const ChunkRec tRNS = mdlPNG.GetChunk("tRNS1");
    const auto [conversion, bitCount] =
        TargetOf(header, header.ColorType == PaletteIndex && tRNS.Length > 0);
    const std::int32_t rowBytes = RowBytes(header);
    const std::int32_t expectedSize = To32Bit(std::int64_t{header.Height} * rowBytes);
    const std::int32_t stride = DibStride(header.Width, bitCount);
    const std::int32_t bitmapSize = To32Bit(std::int64_t{header.Height} * stride);

    LargeBuffer filtered = Inflate(GetImageData(), expectedSize);
    if (filtered.empty()) {
        throw std::runtime_error("the image data are corrupt");
    }
    const std::vector<RGBTriple> palette = GetPalette();
    const AlphaPalette alphaPalette(palette, tRNS.Data);
    const RowConverter converter(header, conversion, alphaPalette);

    BitmapRec image;
    image.Palette = ColourTableOf(header, palette);
    image.Header = BitmapHeader(header, bitCount, image.Palette.size());
    image.Pixels = LargeBuffer(static_cast<std::size_t>(bitmapSize));
    const auto packed = static_cast<std::size_t>((std::int64_t{header.Width} * bitCount + 7) / 8);
    const std::int32_t bandRows = std::max(2, BandBytes / rowBytes);
    for (std::int32_t first = 0; first < header.Height; first += bandRows) {
        const std::int32_t count = std::min(bandRows, header.Height - first);
        Unfilter(header, filtered.bytes(), first, count);
        for (std::int32_t y = first; y < first + count; ++y) {
            const std::size_t start =
                static_cast<std::size_t>(y) * static_cast<std::size_t>(rowBytes);
            std::uint8_t* out = BitmapRow(image, stride, y);
            converter.Convert(
                filtered.bytes().subspan(start + 1, static_cast<std::size_t>(rowBytes) - 1), out);
            std::memset(out + packed, 0, static_cast<std::size_t>(stride) - packed);
        }
    }
    return image;
}

BitmapRec DecodeInterlaced() {
    return {};
}

} // namespace editor
