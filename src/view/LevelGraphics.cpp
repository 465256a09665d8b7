// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "view/LevelGraphics.h"

#include "files/FileNames.h"
#include "files/RegularFile.h"
#include "model/Rounding.h"
#include "model/mdlEdit.h"
#include "pictures/BitmapFile.h"
#include "pictures/DrawingSurface.h"
#include "pictures/FreeMemory.h"
#include "pictures/LargeBuffer.h"
#include "pictures/PictureLimits.h"
#include "png/cPNG.h"

#include <QFile>
#include <QFileInfo>

#include <exception>
#include <memory>
#include <stdexcept>
#include <utility>

namespace editor {
namespace {

// Some of the free memory is left to the other programs, so that no picture can drive them out.
PictureLimits Limits() {
    return {.MaximumSide = MaximumPictureSide, .MaximumBytes = FreeMemory() / 4 * 3};
}

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
    target = LoadBitmap(*file, Limits());
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

} // namespace

bool LoadPictures() {
    const bool level = Loads(mdlEdit.LevelFile, mdlEdit.LevelPicture);
    // The other two have to be readable, but nothing shows them. Each is let go at once, so that
    // the next picture is decoded into the same memory.
    const bool back = Loads(mdlEdit.BackFile, mdlEdit.BackPicture);
    mdlEdit.BackPicture = {};
    const bool material = Loads(mdlEdit.MaterialFile, mdlEdit.MaterialPicture);
    mdlEdit.MaterialPicture = {};
    LargeBuffer::ReleaseKept();
    mdlEdit.GraphicsLoaded = level && back && material;
    if (mdlEdit.GraphicsLoaded) {
        mdlEdit.LevelWidth = RoundTo<std::int16_t>(mdlEdit.LevelPicture.width());
        mdlEdit.LevelHeight = RoundTo<std::int16_t>(mdlEdit.LevelPicture.height());
    }
    return mdlEdit.GraphicsLoaded;
}

void LoadPNGPicture(const QString& path, Picture& target) {
    cPNG PNGDecoder;
    if (PNGDecoder.LoadPNGFile(QFileInfo(path).filesystemFilePath(), Limits()) != 0) {
        throw std::runtime_error("not an acceptable PNG file");
    }
    DrawingSurface picTemp(PNGDecoder.Width(), PNGDecoder.Height());
    PNGDecoder.DrawToDC(picTemp, 0, 0);
    target = Picture(std::move(picTemp));
}

} // namespace editor
