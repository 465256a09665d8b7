// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "view/LevelGraphics.h"

#include "files/FileNames.h"
#include "files/RegularFile.h"
#include "model/Rounding.h"
#include "model/mdlEdit.h"
#include "pictures/BitmapFile.h"
#include "pictures/DrawingSurface.h"
#include "png/cPNG.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

namespace editor {
namespace {

void LoadPicture(const QString& name, Picture& target) {
    const QString path = FindInFolder(mdlEdit.LevelPath, name);
    if (!name.endsWith(QStringLiteral(".bmp"), Qt::CaseInsensitive)) {
        LoadPNGPicture(path, target);
        return;
    }
    const std::unique_ptr<QFile> file = OpenRegularFile(path);
    if (file == nullptr) {
        throw std::runtime_error("not an ordinary file that can be opened");
    }
    target = LoadBitmap(*file, MaximumPictureSide);
}

// Every error raised while a picture is loaded makes it a failed load and nothing else.
bool Loads(const QString& name, Picture& target) {
    try {
        LoadPicture(name, target);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

std::uint32_t BigEndian(QByteArrayView bytes) {
    std::uint32_t value = 0;
    for (const char byte : bytes) {
        value = value << 8U | static_cast<unsigned char>(byte);
    }
    return value;
}

// A picture that is wider or higher than a level can be is not decoded first. Where a PNG file is
// one, width and height stand at this place (W3C PNG, 5.2 and 11.2.2).
void RefuseOversizedPng(const QString& path) {
    constexpr qint64 SizeOffset = 16;
    const std::unique_ptr<QFile> file = OpenRegularFile(path);
    if (file == nullptr) {
        return; // the decoder will say so
    }
    const QByteArray start = file->read(SizeOffset + 8);
    if (start.size() == SizeOffset + 8 &&
        std::max(BigEndian(QByteArrayView(start).sliced(SizeOffset, 4)),
                 BigEndian(QByteArrayView(start).sliced(SizeOffset + 4, 4))) > MaximumPictureSide) {
        throw std::runtime_error("the picture is too large");
    }
}

} // namespace

bool LoadPictures() {
    const bool level = Loads(mdlEdit.LevelFile, mdlEdit.LevelPicture);
    const bool back = Loads(mdlEdit.BackFile, mdlEdit.BackPicture);
    const bool material = Loads(mdlEdit.MaterialFile, mdlEdit.MaterialPicture);
    mdlEdit.GraphicsLoaded = level && back && material;
    if (mdlEdit.GraphicsLoaded) {
        mdlEdit.LevelWidth = RoundTo<std::int16_t>(mdlEdit.LevelPicture.width());
        mdlEdit.LevelHeight = RoundTo<std::int16_t>(mdlEdit.LevelPicture.height());
    }
    return mdlEdit.GraphicsLoaded;
}

void LoadPNGPicture(const QString& path, Picture& target) {
    RefuseOversizedPng(path);
    cPNG PNGDecoder;
    if (PNGDecoder.LoadPNGFile(QFileInfo(path).filesystemFilePath()) != 0) {
        throw std::runtime_error("not an acceptable PNG file");
    }
    DrawingSurface picTemp(PNGDecoder.Width(), PNGDecoder.Height());
    PNGDecoder.DrawToDC(picTemp, 0, 0);
    target = Picture(std::move(picTemp));
}

} // namespace editor
