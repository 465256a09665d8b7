// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/BitmapFile.h"

#include <QBuffer>

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace editor {
namespace {

constexpr int Side = 32767;
constexpr int TotalHeader = 14 + 40;

QByteArray LittleEndian(qint64 value, int size = 4) {
    QByteArray bytes;
    for (; size > 0; --size, value >>= 8) {
        bytes.append(static_cast<char>(value));
    }
    return bytes;
}

QByteArray Noise(unsigned size) {
    QByteArray bytes;
    for (unsigned i = 0; i < size; ++i) {
        bytes.append(static_cast<char>(i * i * 37 + i * 11 + 5));
    }
    return bytes;
}

/// A BMP file of 7 by 3 pixels unless told otherwise.
struct Bmp {
    std::string name;
    int bits = 24;
    qint64 compression = 0;
    QByteArray behind = {}; // the fields: rest of the header, masks, palette
    QByteArray pixels = Noise(7 * 4 * 3);
    int headerSize = 40;
    qint64 width = 7;
    qint64 height = 3;
    qint64 colours = 0;
    qint64 offset = -1; // where the pixels are said to be; -1: where they are
    int planes = 1;

    [[nodiscard]] QByteArray Bytes() const {
        const int side = headerSize == 12 ? 2 : 4;
        QByteArray header = LittleEndian(headerSize) + LittleEndian(width, side) +
                            LittleEndian(height, side) + LittleEndian(planes, 2) +
                            LittleEndian(bits, 2);
        if (headerSize > 12) {
            header += LittleEndian(compression, 16) + LittleEndian(colours, 8);
        }
        header += behind;
        const qint64 begin = offset >= 0 ? offset : 14 + header.size();
        return "BM" + LittleEndian(0, 8) + LittleEndian(begin) + header + pixels;
    }
};

const QByteArray Palette = Noise(256 * 4);
const QByteArray Rgb565 = LittleEndian(0xf800) + LittleEndian(0x07e0) + LittleEndian(0x001f);
const QByteArray Bgr = LittleEndian(0xff) + LittleEndian(0xff00) + LittleEndian(0xff0000);
const QByteArray TenBits = LittleEndian(0x3ff00000) + LittleEndian(0xffc00) + LittleEndian(0x3ff);
// A row in one run, one with a padded literal run, one in two runs.
const QByteArray Runs8 = QByteArray::fromHex("07010000030200030a0b0c00010100000303040f0001");
const QByteArray Runs4 = QByteArray::fromHex("07190000023200056ab7c0000000031204230001");

const std::vector<Bmp> Readable{
    {"1 bit", 1, 0, Noise(8), Noise(12)},
    {"1 bit, OS/2", 1, 0, Noise(6), Noise(12), 12},
    {"4 bits", 4, 0, Noise(64), Noise(12)},
    {"8 bits", 8, 0, Palette, Noise(24)},
    {"8 bits, OS/2", 8, 0, Noise(768), Noise(24), 12},
    {"8 bits, OS/2 2", 8, 0, LittleEndian(0, 24) + Palette, Noise(24), 64},
    {"8 bits, version 4", 8, 0, LittleEndian(0, 68) + Palette, Noise(24), 108},
    {"16 bits", 16, 0, {}, Noise(48)},
    {"16 bits, 5-6-5", 16, 3, Rgb565, Noise(48)},
    {"24 bits, palette", 24, 0, Palette, Noise(72), 40, 7, 3, 256},
    {"24 bits, top row first", 24, 0, {}, Noise(72), 40, 7, -3},
    {"32 bits", 32},
    {"32 bits, masks", 32, 3, Bgr},
    {"32 bits, alpha", 32, 3, Bgr + LittleEndian(0xff000000, 72), Noise(84), 124},
    {"run lengths of 8 bits", 8, 1, Palette, Runs8},
    {"run lengths of 4 bits", 4, 2, Noise(64), Runs4},
    {"as wide as the limit", 1, 0, Noise(8), Noise(4096), 40, Side, 1},
    {"as high as the limit", 1, 0, Noise(8), Noise(4 * Side), 40, 1, Side},
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
    for (const Bmp& bmp : Readable) {
        SCOPED_TRACE(bmp.name);
        const QByteArray whole = bmp.Bytes();
        // That reader leaves the lower bits of narrow channels 0 and so never gives white.
        const QImage::Format compared =
            bmp.bits == 16 ? QImage::Format_RGB555 : QImage::Format_RGB32;
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

TEST(BitmapFile, WhatReadersDisagreeOnHasTheColoursThatTheFormatGives) {
    const QByteArray words = LittleEndian(0x3ff003ff) + LittleEndian(0x00080000);
    const QByteArray greys = LittleEndian(0) + LittleEndian(0x111111) + LittleEndian(0x222222);
    const auto runs = [&](const char* hex) {
        return Bmp{hex, 8, 1, greys, QByteArray::fromHex(hex), 40, 2, 2, 3};
    };
    const std::pair<Bmp, QList<std::uint32_t>> rows[] = {
        // pixels without alpha
        {{"5 bits", 16, 0, {}, LittleEndian(0x00037fff), 40, 2, 1}, {0xffffff, 0x000019}},
        {{"10 bits", 32, 3, TenBits, words, 40, 2, 1}, {0xff00ff, 0x008000}},
        {{"header of 52", 32, 3, Bgr, words, 52, 2, 1}, {0xff03f0, 0x000008}},
        {{"header of 56", 32, 3, Bgr + words, words, 56, 2, 1}, {0xff03f0, 0x000008}},
        {{"alpha fields", 32, 6, Bgr + words, words, 40, 2, 1}, {0xff03f0, 0x000008}},
        {{"1000 colours", 8, 0, Noise(4000), LittleEndian(0), 40, 2, 1, 1000},
         {0xaf3505, 0xaf3505}},
        {{"2 of 3 colours", 8, 0, greys, LittleEndian(0x0201), 40, 2, 1, 2}, {0x111111, 0}},
        {{"palette cut short", 8, 0, greys, LittleEndian(0x0402), 40, 2, 1}, {0x222222, 0}},
        {runs("ff01ff020000ff02ff01"), {0x222222, 0x222222, 0x111111, 0x111111}},
        {runs("01010002000101020001"), {0, 0x222222, 0x111111, 0}},
        {{"all left out", 8, 1, greys, LittleEndian(0x0100), 40, 2, 300}, {0, 0}},
        {runs("0002ff0001020002ffff0102"), {0, 0, 0, 0}},
    };
    for (const auto& [bmp, pixels] : rows) {
        const QImage loaded = Load(bmp.Bytes());
        ASSERT_FALSE(loaded.isNull()) << bmp.name;
        for (int i = 0; i < static_cast<int>(pixels.size()); ++i) {
            EXPECT_EQ(loaded.pixel(i % 2, i / 2), 0xff000000 | pixels.at(i))
                << bmp.name << ' ' << i;
        }
    }
}

TEST(BitmapFile, AHeaderThatCannotBeTrueIsRefused) {
    const std::vector<Bmp> rows{
        {"too wide", 1, 0, Noise(8), Noise(4096), 40, Side + 1, 1},
        {"too high", 1, 0, Noise(8), Noise(4 * (Side + 1)), 40, 1, Side + 1},
        {"negative width", 24, 0, {}, Noise(84), 40, -7},
        {"no width", 24, 0, {}, Noise(84), 40, 0},
        {"no height", 24, 0, {}, Noise(84), 40, 7, 0},
        {"smallest height", 24, 0, {}, Noise(84), 40, 7, -2147483648LL},
        {"unknown header", 24, 0, Noise(1), Noise(84), 41},
        {"3 bits", 3, 0, Noise(32)},
        {"run lengths of 8 bits for 4", 4, 1, Noise(64), Runs8},
        {"run lengths of 4 bits for 8", 8, 2, Palette, Runs4},
        {"masks for 24 bits", 24, 3, Bgr},
        {"no room for the mask of alpha", 32, 6, Bgr},
        {"another coding of OS/2", 32, 3, LittleEndian(0, 24) + Bgr, Noise(84), 64},
        {"a JPEG inside", 24, 4},
        {"pixels in the header", 24, 0, {}, Noise(84), 40, 7, 3, 0, TotalHeader - 1},
        {"pixels far behind the file", 24, 0, {}, Noise(84), 40, 7, 3, 0, 0xffffffff},
        {"two planes", 24, 0, {}, Noise(84), 40, 7, 3, 0, -1, 2},
        {"a huge picture of few bytes", 8, 1, Palette, Runs8, 40, 30000, 30000},
        {"a literal run without pixels", 8, 1, Palette, QByteArray::fromHex("000701"), 40, 7, 1},
        {"a delta cut off", 8, 1, Palette, QByteArray::fromHex("000207"), 40, 7, 1},
    };
    for (const Bmp& bmp : rows) {
        EXPECT_TRUE(Load(bmp.Bytes()).isNull()) << bmp.name;
    }
    EXPECT_TRUE(Load("PM" + Readable.back().Bytes().mid(2)).isNull());
}

} // namespace
} // namespace editor
