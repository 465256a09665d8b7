// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "LoadedPicture.h"

#include "Measuring.h"
#include "pictures/Picture.h"
#include "png/ImageData.h"
#include "png/PngFile.h"
#include "png/Sizes.h"
#include "png/cPNG.h"
#include "png/mdlPNG.h"
#include "view/LevelGraphics.h"

#include <QImage>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <malloc.h>
#include <stdexcept>
#include <vector>
#include <zlib.h>

namespace editor {
namespace {

// Runs `load` with the process' peak memory starting at what it is now.
Measured Run(const std::function<void()>& load) {
    std::ofstream("/proc/self/clear_refs") << "5";
    const std::int64_t before = StatusBytes("VmRSS");
    const double milliseconds = Milliseconds(load);
    return {milliseconds, StatusBytes("VmHWM") - before};
}

Measured LoadOurs(const std::filesystem::path& file) {
    Picture target;
    return Run([&] { LoadPNGPicture(QString::fromStdString(file.string()), target); });
}

Measured LoadQt(const std::filesystem::path& file) {
    QImage image;
    return Run([&] {
        image = QImage(QString::fromStdString(file.string()));
        if (image.depth() != 32) {
            image = image.convertToFormat(QImage::Format_RGB32);
        }
    });
}

Measured LoadUncompress(const std::filesystem::path& file) {
    if (cPNG().LoadPNGFile(file) != Accepted) {
        throw std::runtime_error("a picture of the benchmark was refused");
    }
    const auto data = GetImageData();
    const HeaderRec& header = mdlPNG.PngHeader;
    std::vector<std::uint8_t> touched(static_cast<std::size_t>(RowBytes(header)) *
                                      static_cast<std::size_t>(header.Height));
    uLongf size = touched.size();
    return Run([&] {
        if (uncompress(touched.data(), &size, data.data(), data.size()) != Z_OK) {
            throw std::runtime_error("a picture of the benchmark is corrupt");
        }
    });
}

} // namespace

void KeepFreedMemory() {
    constexpr int Never = 1 << 30;
    mallopt(M_MMAP_THRESHOLD, Never);
    mallopt(M_TRIM_THRESHOLD, Never);
}

Measured Load(Loader loader, const std::filesystem::path& file) {
    switch (loader) {
    case Loader::Ours:
        return LoadOurs(file);
    case Loader::Qt:
        return LoadQt(file);
    default:
        return LoadUncompress(file);
    }
}

} // namespace editor
