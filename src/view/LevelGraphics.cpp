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
PictureLimits Limits(bool willBeDrawn) {
    return {.MaximumSide = MaximumPictureSide,
            .MaximumBytes = FreeMemory() / 4 * 3,
            .WillBeDrawn = willBeDrawn};
}

/// A decoder for one file, whose memory goes with it, also when loading failed.
struct OneFileDecoder : cPNG {
    OneFileDecoder() = default;
    ~OneFileDecoder() { Release(); }
    OneFileDecoder(const OneFileDecoder&) = delete;
    OneFileDecoder& operator=(const OneFileDecoder&) = delete;

    void Load(const QString& path, bool willBeDrawn) {
        if (LoadPNGFile(QFileInfo(path).filesystemFilePath(), Limits(willBeDrawn)) != 0) {
            throw std::runtime_error("not an acceptable PNG file");
        }
    }
};

Picture LoadedBitmap(const QString& path) {
    const std::unique_ptr<QFile> file = OpenRegularFile(path);
    if (file == nullptr) {
        throw std::runtime_error("not an ordinary file that can be opened");
    }
    return LoadBitmap(*file, Limits(true));
}

// Calls `loadPNG` or `loadBitmap` with the path of a picture. Every error raised while it is loaded
// makes it a failed load and nothing else.
template <class PngLoader, class BitmapLoader>
bool Loads(const QString& name, PngLoader loadPNG, BitmapLoader loadBitmap) {
    try {
        const QString path = FindInFolder(mdlEdit.LevelPath, name);
        if (name.endsWith(QStringLiteral(".bmp"), Qt::CaseInsensitive)) {
            loadBitmap(path);
        } else {
            loadPNG(path);
        }
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

// The background and the material have to be readable, but nothing shows them: they are decoded in
// full, one after the other into the same memory, and one pixel of them is drawn.
bool CanBeRead(const QString& name) {
    return Loads(
        name,
        [](const QString& path) {
            OneFileDecoder PNGDecoder;
            PNGDecoder.Load(path, false);
            DrawingSurface corner(1, 1);
            PNGDecoder.DrawToDC(corner, 0, 0);
        },
        LoadedBitmap);
}

} // namespace

bool LoadPictures() {
    mdlEdit.LevelPicture = {};
    const bool level = Loads(
        mdlEdit.LevelFile, [](const QString& path) { LoadPNGPicture(path, mdlEdit.LevelPicture); },
        [](const QString& path) { mdlEdit.LevelPicture = LoadedBitmap(path); });
    const bool back = CanBeRead(mdlEdit.BackFile);
    const bool material = CanBeRead(mdlEdit.MaterialFile);
    LargeBuffer::ReleaseKept();
    mdlEdit.GraphicsLoaded = level && back && material;
    if (mdlEdit.GraphicsLoaded) {
        mdlEdit.LevelWidth = RoundTo<std::int16_t>(mdlEdit.LevelPicture.width());
        mdlEdit.LevelHeight = RoundTo<std::int16_t>(mdlEdit.LevelPicture.height());
    }
    return mdlEdit.GraphicsLoaded;
}

void LoadPNGPicture(const QString& path, Picture& target) {
    OneFileDecoder PNGDecoder;
    PNGDecoder.Load(path, true);
    DrawingSurface picTemp(PNGDecoder.Width(), PNGDecoder.Height());
    PNGDecoder.DrawToDC(picTemp, 0, 0);
    target = Picture(std::move(picTemp));
}

} // namespace editor
