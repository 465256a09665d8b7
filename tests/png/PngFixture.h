// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/Reading.h"
#include "support/PngBuilder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace editor {

/// Every test starts with a decoder that has read nothing, no memory kept, and a folder of its own.
class PngFixture : public testing::Test {
  protected:
    PngFixture() {
        mdlPNG = {};
        LargeBuffer::ReleaseKept();
    }

    std::filesystem::path File(const std::string& name) const {
        return std::filesystem::path(folder_.path().toStdString()) / name;
    }

    std::string Load(const Bytes& bytes, const PictureLimits& limits = {}) const {
        WriteFile(File("picture.png"), bytes);
        return OutcomeOf(File("picture.png"), limits);
    }

    static Bytes HeldPixels() {
        const auto pixels = mdlPNG.PngImage.Pixels.bytes();
        return {pixels.begin(), pixels.end()};
    }

    const cPNG png_{};

  private:
    QTemporaryDir folder_;
};

} // namespace editor
