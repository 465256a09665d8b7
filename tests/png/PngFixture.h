// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/cPNG.h"
#include "support/PngBuilder.h"

#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace editor {

/// Every test starts with a decoder that has read nothing, and a folder of its own.
class PngFixture : public testing::Test {
  protected:
    PngFixture() { mdlPNG = {}; }

    std::filesystem::path File(const std::string& name) const {
        return std::filesystem::path(folder_.path().toStdString()) / name;
    }

    std::int32_t Load(const Bytes& bytes) {
        WriteFile(File("picture.png"), bytes);
        return png_.LoadPNGFile(File("picture.png"));
    }

    /// What DrawToDC() makes of a surface of the image's size.
    std::vector<std::uint32_t> Drawn() {
        DrawingSurface surface(png_.Width(), png_.Height());
        png_.DrawToDC(surface, 0, 0);
        return PixelsOf(surface);
    }

    static std::vector<std::uint32_t> PixelsOf(DrawingSurface& surface) {
        std::vector<std::uint32_t> pixels;
        for (std::int32_t y = 0; y < surface.height(); ++y) {
            pixels.insert(pixels.end(), surface.row(y), surface.row(y) + surface.width());
        }
        return pixels;
    }

    static Bytes HeldPixels() {
        const auto pixels = mdlPNG.PngImage.Pixels.bytes();
        return {pixels.begin(), pixels.end()};
    }

    cPNG png_;

  private:
    QTemporaryDir folder_;
};

} // namespace editor
