// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/BitmapFile.h"

#include <QBuffer>
#include <QtEndian>

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <tuple>
#include <utility>

namespace editor {
namespace {

constexpr int Side = 32767;

QByteArray LittleEndian(qint64 value, qsizetype size = 4) {
    value = qToLittleEndian(value);
    const QByteArray bytes(reinterpret_cast<const char*>(&value), sizeof value);
    return bytes.leftJustified(size, '\0', true);
}

QByteArray Noise(qsizetype size) {
    QByteArray bytes(size, '\0');
    std::generate(bytes.begin(), bytes.end(), std::minstd_rand(1));
    return bytes;
}

/// A BMP file of 7 by 3 pixels unless told otherwise. `behind` the fields are the rest of the
/// header, the masks and the palette; the pixels are said to be at `offset`, or else where they
/// are.
QByteArray Bmp(int bits, int compression = 0, const QByteArray& behind = {},
               const QByteArray& pixels = Noise(7 * 4 * 3), int headerSize = 40, qint64 width = 7,
               qint64 height = 3, int colours = 0, qint64 offset = -1, int planes = 1) {
    const int side = headerSize == 12 ? 2 : 4;
    QByteArray header = LittleEndian(headerSize) + LittleEndian(width, side) +
                        LittleEndian(height, side) + LittleEndian(bits << 16 | planes);
    if (headerSize > 12) {
        header += LittleEndian(compression, 16) + LittleEndian(colours, 8);
    }
    header += behind;
    return "BM" + LittleEndian(0, 8) + LittleEndian(offset >= 0 ? offset : 14 + header.size()) +
           header + pixels;
}

const QByteArray Palette = Noise(256 * 4);
const QByteArray Rgb565 = LittleEndian(0xf800) + LittleEndian(0x07e0) + LittleEndian(0x001f);
const QByteArray Bgr = LittleEndian(0xff) + LittleEndian(0xff00) + LittleEndian(0xff0000);
const QByteArray TenBits = LittleEndian(0x3ff00000) + LittleEndian(0xffc00) + LittleEndian(0x3ff);
// A row in one run, one with a padded literal run, one in two runs.
const QByteArray Runs8 = QByteArray::fromHex("07010000030200030a0b0c00010100000303040f0001");
const QByteArray Runs4 = QByteArray::fromHex("07190000023200056ab7c0000000031204230001");

const std::pair<const char*, QByteArray> Readable[] = {
    {"1 bit", Bmp(1, 0, Noise(8), Noise(12))},
    {"1 bit, OS/2", Bmp(1, 0, Noise(6), Noise(12), 12)},
    {"4 bits", Bmp(4, 0, Noise(64), Noise(12))},
    {"8 bits", Bmp(8, 0, Palette, Noise(24))},
    {"8 bits, OS/2", Bmp(8, 0, Noise(768), Noise(24), 12)},
    {"8 bits, OS/2 2", Bmp(8, 0, LittleEndian(0, 24) + Palette, Noise(24), 64)},
    {"8 bits, version 4", Bmp(8, 0, LittleEndian(0, 68) + Palette, Noise(24), 108)},
    {"16 bits", Bmp(16, 0, {}, Noise(48))},
    {"16 bits, 5-6-5", Bmp(16, 3, Rgb565, Noise(48))},
    {"24 bits, palette", Bmp(24, 0, Palette, Noise(72), 40, 7, 3, 256)},
    {"24 bits, top row first", Bmp(24, 0, {}, Noise(72), 40, 7, -3)},
    {"32 bits", Bmp(32)},
    {"32 bits, masks", Bmp(32, 3, Bgr)},
    {"32 bits, alpha", Bmp(32, 3, Bgr + LittleEndian(0xff000000, 72), Noise(84), 124)},
    {"run lengths of 8 bits", Bmp(8, 1, Palette, Runs8)},
    {"run lengths of 4 bits", Bmp(4, 2, Noise(64), Runs4)},
    {"as wide as the limit", Bmp(1, 0, Noise(8), Noise(4096), 40, Side, 1)},
    {"as high as the limit", Bmp(1, 0, Noise(8), Noise(4 * Side), 40, 1, Side)},
};

/// The picture of a file, and none where it is refused.
QImage Load(QByteArray bytes, const PictureLimits& limits = {.MaximumSide = Side}) {
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    try {
        return LoadBitmap(file, limits).image();
    } catch (const std::exception&) {
        return {};
    }
}

TEST(BitmapFile, EveryKindOfBitmapHasThePixelsOfAnIndependentReaderAndIsRefusedWhenCutOff) {
    for (const auto& [name, whole] : Readable) {
        SCOPED_TRACE(name);
        // Of 16 bits per pixel, that reader leaves the lower bits of each channel 0 and so never
        // gives white.
        const QImage::Format compared =
            whole[14 + 14] == 16 ? QImage::Format_RGB555 : QImage::Format_RGB32;
        const QImage expected = QImage::fromData(whole, "BMP").convertToFormat(compared);
        EXPECT_EQ(Load(whole).convertToFormat(compared), expected);
        const qsizetype endMarkAndOneByte = 3;
        for (qsizetype size = whole.size() - endMarkAndOneByte; size >= 0;
             size -= 1 + whole.size() / 999) {
            ASSERT_TRUE(Load(whole.first(size)).isNull()) << size;
        }
        const auto bytes = static_cast<std::uint64_t>(4 * expected.width() * expected.height());
        EXPECT_TRUE(Load(whole, {.MaximumBytes = bytes - 1}).isNull());
    }
}

TEST(BitmapFile, WhatReadersDisagreeOnHasTheColoursThatTheFormatGivesOrIsRefused) {
    const QByteArray words = LittleEndian(0x3ff003ff) + LittleEndian(0x00080000);
    const QByteArray greys = LittleEndian(0) + LittleEndian(0x111111) + LittleEndian(0x222222);
    const auto runs = [&](const char* hex) {
        return Bmp(8, 1, greys, QByteArray::fromHex(hex), 40, 2, 2, 3);
    };
    // The first pixels of two columns, without alpha; none of a file that is refused.
    const std::tuple<const char*, QByteArray, QList<std::uint32_t>> rows[] = {
        {"5 bits", Bmp(16, 0, {}, LittleEndian(0x00037fff), 40, 2, 1), {0xffffff, 0x000019}},
        {"10 bits", Bmp(32, 3, TenBits, words, 40, 2, 1), {0xff00ff, 0x008000}},
        {"header of 52", Bmp(32, 3, Bgr, words, 52, 2, 1), {0xff03f0, 0x000008}},
        {"header of 56", Bmp(32, 3, Bgr + words, words, 56, 2, 1), {0xff03f0, 0x000008}},
        {"alpha fields", Bmp(32, 6, Bgr + words, words, 40, 2, 1), {0xff03f0, 0x000008}},
        {"1000 colours", Bmp(8, 0, Noise(4000), Noise(4), 40, 2, 1, 1000), {0x85810f, 0xb4b94e}},
        {"2 of 3 colours", Bmp(8, 0, greys, LittleEndian(0x0201), 40, 2, 1, 2), {0x111111, 0}},
        {"palette cut short", Bmp(8, 0, greys, LittleEndian(0x0402), 40, 2, 1), {0x222222, 0}},
        {"long runs", runs("ff01ff020000ff02ff01"), {0x222222, 0x222222, 0x111111, 0x111111}},
        {"a delta", runs("01010002000101020001"), {0, 0x222222, 0x111111, 0}},
        {"all left out", Bmp(8, 1, greys, LittleEndian(0x0100), 40, 2, 300), {0, 0}},
        {"deltas out of the picture", runs("0002ff0001020002ffff0102"), {0, 0, 0, 0}},
        {"too wide", Bmp(1, 0, Noise(8), Noise(4096), 40, Side + 1, 1), {}},
        {"too high", Bmp(1, 0, Noise(8), Noise(4 * (Side + 1)), 40, 1, Side + 1), {}},
        {"negative width", Bmp(24, 0, {}, Noise(84), 40, -7), {}},
        {"no width", Bmp(24, 0, {}, Noise(84), 40, 0), {}},
        {"no height", Bmp(24, 0, {}, Noise(84), 40, 7, 0), {}},
        {"smallest height", Bmp(24, 0, {}, Noise(84), 40, 7, -2147483648LL), {}},
        {"unknown header", Bmp(24, 0, Noise(1), Noise(84), 41), {}},
        {"3 bits", Bmp(3, 0, Noise(32)), {}},
        {"run lengths of 8 bits for 4", Bmp(4, 1, Noise(64), Runs8), {}},
        {"run lengths of 4 bits for 8", Bmp(8, 2, Palette, Runs4), {}},
        {"masks for 24 bits", Bmp(24, 3, Bgr), {}},
        {"no room for the mask of alpha", Bmp(32, 6, Bgr), {}},
        {"another coding of OS/2", Bmp(32, 3, LittleEndian(0, 24) + Bgr, Noise(84), 64), {}},
        {"a JPEG inside", Bmp(24, 4), {}},
        {"pixels in the header", Bmp(24, 0, {}, Noise(84), 40, 7, 3, 0, 14 + 40 - 1), {}},
        {"pixels far behind the file", Bmp(24, 0, {}, Noise(84), 40, 7, 3, 0, 0xffffffff), {}},
        {"two planes", Bmp(24, 0, {}, Noise(84), 40, 7, 3, 0, -1, 2), {}},
        {"a huge picture of few bytes", Bmp(8, 1, Palette, Runs8, 40, 30000, 30000), {}},
        {"a literal run without pixels", runs("0000000701"), {}},
        {"a delta cut off", runs("0000000207"), {}},
        {"another signature", "PM" + Bmp(24).mid(2), {}},
    };
    for (const auto& [name, file, pixels] : rows) {
        const QImage expected(reinterpret_cast<const uchar*>(pixels.data()), 2,
                              static_cast<int>(pixels.size() / 2), QImage::Format_RGB32);
        EXPECT_EQ(Load(file).copy(expected.rect()), expected) << name;
    }
}

} // namespace
} // namespace editor
