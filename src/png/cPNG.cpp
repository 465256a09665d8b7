// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/cPNG.h"

#include "png/Drawing.h"
#include "png/PngFile.h"
#include "png/mdlPNG.h"

#include <stdexcept>

namespace editor {

std::int32_t cPNG::BitDepth() const {
    return mdlPNG.PngHeader.BitDepth;
}

bool cPNG::Interlaced() const {
    return mdlPNG.PngHeader.Interlace != 0;
}

std::int32_t cPNG::ColorType() const {
    return mdlPNG.PngHeader.ColorType;
}

std::int32_t cPNG::Height() const {
    return mdlPNG.PngHeader.Height;
}

std::int32_t cPNG::Width() const {
    return mdlPNG.PngHeader.Width;
}

void cPNG::DrawToDC(DrawingSurface& hDC, std::int32_t x, std::int32_t y) const {
    const BitmapRec& image = mdlPNG.PngImage;
    if (image.Pixels.empty()) {
        throw std::runtime_error("no image is held");
    }
    if (image.Header.biBitCount == 32) {
        DrawBlended(hDC, x, y, image);
    } else {
        DrawPlain(hDC, x, y, image);
    }
}

std::int32_t cPNG::LoadPNGFile(const std::filesystem::path& FileName, const PictureLimits& limits) {
    mdlPNG.ClearChunks();
    return FileExists(FileName) ? LoadExistingFile(FileName, limits) : NoSuchFile;
}

void cPNG::Release() {
    mdlPNG.ClearChunks();
    mdlPNG.PngImage = {};
}

} // namespace editor
