// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// Any bytes as a BMP file: loaded, within the rules of its own header, or refused.

#include "pictures/BitmapFile.h"

#include <QBuffer>

#include <cstdint>
#include <cstdlib>
#include <exception>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr int MaximumSide = 2048;
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    std::uint32_t sum = 0;
    try {
        const editor::Picture picture = editor::LoadBitmap(file, {.MaximumSide = MaximumSide});
        if (picture.width() < 1 || picture.width() > MaximumSide || picture.height() < 1 ||
            picture.height() > MaximumSide) {
            std::abort();
        }
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                sum += picture.row(y)[x];
            }
        }
    } catch (const std::exception&) {
        // refused
    }
    return sum == 1 ? -1 : 0; // what is read must be read
}
