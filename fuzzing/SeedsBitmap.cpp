// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// First inputs for the BMP loading: small files of the kinds that the platform writes.

#include <QDir>
#include <QImage>
#include <QRgb>

int main(int argc, char** argv) {
    if (argc != 2) {
        return 1;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const QImage::Format formats[] = {QImage::Format_Mono, QImage::Format_Indexed8,
                                      QImage::Format_RGB32, QImage::Format_RGB16};
    for (const QImage::Format format : formats) {
        QImage image(13, 7, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                image.setPixel(x, y, qRgb(20 * x, 30 * y, 9 * x * y));
            }
        }
        if (!image.convertToFormat(format).save(
                folder.filePath(QStringLiteral("%1.bmp").arg(format)), "BMP")) {
            return 1;
        }
    }
    return 0;
}
