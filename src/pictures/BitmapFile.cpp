// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/BitmapFile.h"

#include "pictures/BitmapHeader.h"
#include "pictures/Pixel.h"

#include <QByteArray>
#include <QIODevice>
#include <QImage>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <new>
#include <optional>
#include <stdexcept>

namespace editor {
namespace {

// What the value of a pixel says of one colour.
class Channel {
  public:
    explicit Channel(std::uint32_t mask) {
        if (mask == 0) {
            return; // the colour is absent: 0
        }
        constexpr int MostBits = 8;
        const auto width = static_cast<int>(std::bit_width(mask >> std::countr_zero(mask)));
        shift_ = std::countr_zero(mask) + std::max(0, width - MostBits);
        mask_ = mask >> shift_;
        for (std::uint32_t value = 0; value <= mask_; ++value) {
            levels_[value] = static_cast<std::uint8_t>((value * 255 + mask_ / 2) / mask_);
        }
    }

    [[nodiscard]] std::uint32_t Level(std::uint32_t pixel) const {
        return levels_[(pixel >> shift_) & mask_];
    }

  private:
    int shift_ = 0;
    std::uint32_t mask_ = 0; // at most 8 bits
    std::array<std::uint8_t, 256> levels_{};
};

// Converts rows of pixels that are not run-length encoded.
class RowConverter {
  public:
    explicit RowConverter(const BitmapHeader& header)
        : header_(header), red_(header.masks[0]), green_(header.masks[1]), blue_(header.masks[2]) {}

    /// `from` holds header.RowBytes() bytes, `to` header.width pixels.
    void Convert(const std::uint8_t* from, std::uint32_t* to) const {
        switch (header_.bitsPerPixel) {
        case 1:
            return ConvertIndices<1>(from, to);
        case 4:
            return ConvertIndices<4>(from, to);
        case 8:
            return ConvertIndices<8>(from, to);
        case 16:
            return ConvertColours<2>(from, to);
        case 24:
            return ConvertColours<3>(from, to);
        default:
            return ConvertColours<4>(from, to);
        }
    }

  private:
    template <int Bits>
    void ConvertIndices(const std::uint8_t* from, std::uint32_t* to) const {
        for (int x = 0; x < header_.width; ++x) {
            to[x] = header_.palette[PackedSample<Bits>(from, x)];
        }
    }

    template <int Bytes>
    void ConvertColours(const std::uint8_t* from, std::uint32_t* to) const {
        for (int x = 0; x < header_.width; ++x, from += Bytes) {
            std::uint32_t pixel = 0;
            for (int i = 0; i < Bytes; ++i) {
                pixel |= std::uint32_t{from[i]} << (8 * i);
            }
            to[x] =
                Opaque | red_.Level(pixel) << 16 | green_.Level(pixel) << 8 | blue_.Level(pixel);
        }
    }

    const BitmapHeader& header_;
    Channel red_;
    Channel green_;
    Channel blue_;
};

// The rows of a picture in the order in which the file has them.
class Rows {
  public:
    Rows(const BitmapHeader& header, QImage& image)
        : header_(header), pixels_(image.bits()), stride_(image.bytesPerLine()) {}

    [[nodiscard]] std::uint32_t* operator[](int row) const {
        uchar* bytes = header_.topDown ? pixels_ + row * stride_
                                       : BottomUpRow(pixels_, stride_, header_.height, row);
        return reinterpret_cast<std::uint32_t*>(bytes);
    }

  private:
    const BitmapHeader& header_;
    uchar* pixels_;
    std::ptrdiff_t stride_;
};

bool ReadExactly(QIODevice& file, std::uint8_t* bytes, std::int64_t count) {
    return file.read(reinterpret_cast<char*>(bytes), count) == count;
}

bool ReadPlainPixels(QIODevice& file, const BitmapHeader& header, const Rows& rows) {
    const RowConverter converter(header);
    QByteArray buffer(static_cast<qsizetype>(header.RowBytes()), Qt::Uninitialized);
    auto* bytes = reinterpret_cast<std::uint8_t*>(buffer.data());
    for (int y = 0; y < header.height; ++y) {
        if (!ReadExactly(file, bytes, buffer.size())) {
            return false;
        }
        converter.Convert(bytes, rows[y]);
    }
    return true;
}

// Reads run-length encoded pixels. Those outside the picture, to which the format gives no meaning,
// are dropped.
class RunLengthReader {
  public:
    RunLengthReader(QIODevice& file, const BitmapHeader& header, const Rows& rows)
        : file_(file), header_(header), rows_(rows),
          perByte_(header.compression == BitmapCompression::RunLength4 ? 2 : 1) {}

    /// False when the data break off before their end mark, unless every pixel is there.
    bool Read() {
        while (y_ < header_.height) {
            std::array<std::uint8_t, 2> code{};
            if (!ReadExactly(file_, code.data(), code.size())) {
                return y_ == header_.height - 1 && x_ == header_.width;
            }
            const int count = code[0];
            if (count == 0 && code[1] == EndOfBitmap) {
                return true;
            }
            if (count > 0) {
                bytes_.fill(code[1]);
                Put(count);
            } else if (!Escape(code[1])) {
                return false;
            }
        }
        return true;
    }

  private:
    enum EscapeCode : std::uint8_t { EndOfLine, EndOfBitmap, Delta, FirstLiteralCount };

    bool Escape(std::uint8_t code) {
        if (code == EndOfLine) {
            x_ = 0;
            ++y_;
            return true;
        }
        if (code == Delta) {
            if (!ReadExactly(file_, bytes_.data(), 2)) {
                return false;
            }
            x_ = std::min(x_ + bytes_[0], header_.width);
            y_ += bytes_[1];
            return true;
        }
        const int size = (code + perByte_ - 1) / perByte_;
        if (!ReadExactly(file_, bytes_.data(), size)) {
            return false;
        }
        file_.skip(size % 2); // literals are padded to 16 bits
        Put(code);
        return true;
    }

    // The next `count` pixels have the indices that bytes_ holds.
    void Put(int count) {
        std::uint32_t* row = rows_[y_];
        const int end = std::min(x_ + count, header_.width);
        for (int i = 0; x_ < end; ++i, ++x_) {
            row[x_] = header_.palette[perByte_ == 1 ? PackedSample<8>(bytes_.data(), i)
                                                    : PackedSample<4>(bytes_.data(), i)];
        }
    }

    QIODevice& file_;
    const BitmapHeader& header_;
    const Rows& rows_;
    const int perByte_;
    int x_ = 0; // at most the width
    int y_ = 0; // from the first row of the file
    std::array<std::uint8_t, 256> bytes_{};
};

} // namespace

Picture LoadBitmap(QIODevice& file, const PictureLimits& limits) {
    const std::optional<BitmapHeader> header = ReadBitmapHeader(file, limits.MaximumSide);
    if (!header || !file.seek(header->pixelOffset)) {
        throw std::runtime_error("not a readable bitmap");
    }
    limits.RequireBytes(sizeof(std::uint32_t) * static_cast<std::uint64_t>(header->width) *
                        static_cast<std::uint64_t>(header->height));
    QImage image(header->width, header->height, QImage::Format_RGB32);
    if (image.isNull()) {
        throw std::bad_alloc();
    }
    const Rows rows(*header, image);
    if (header->IsRunLengthEncoded()) {
        image.fill(header->palette[0]);
    }
    const bool complete = header->IsRunLengthEncoded() ? RunLengthReader(file, *header, rows).Read()
                                                       : ReadPlainPixels(file, *header, rows);
    if (!complete) {
        throw std::runtime_error("the bitmap is truncated");
    }
    return Picture(image);
}

} // namespace editor
