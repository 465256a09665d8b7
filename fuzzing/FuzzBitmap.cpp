// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// Any bytes as a BMP file: loaded, within the rules of its own header, or refused.

#include "platform/BitmapFile.h"

#include <QFile>

#include <cstdint>
#include <cstdlib>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // In memory where the system has such a folder; one file a process.
    static const QString path =
        (QFile::exists(QStringLiteral("/dev/shm")) ? QStringLiteral("/dev/shm/")
                                                   : QStringLiteral("/tmp/")) +
        QStringLiteral("bitmap-fuzz-%1.bmp").arg(::getpid());
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size)) !=
                static_cast<qint64>(size)) {
            std::abort();
        }
    }
    constexpr int MaximumSide = 2048;
    const auto picture = editor::LoadBitmapFile(path, MaximumSide);
    std::uint32_t sum = 0;
    if (picture) {
        if (picture->width() < 1 || picture->width() > MaximumSide || picture->height() < 1 ||
            picture->height() > MaximumSide) {
            std::abort();
        }
        for (int y = 0; y < picture->height(); ++y) {
            for (int x = 0; x < picture->width(); ++x) {
                sum += picture->row(y)[x];
            }
        }
    }
    QFile::remove(path);
    return sum == 1 ? -1 : 0; // what is read must be read
}
