// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/Picture.h"

#include "pictures/DrawingSurface.h"

#include <memory>

namespace editor {

Picture::Picture(const QImage& image) : image_(image.convertToFormat(QImage::Format_RGB32)) {}

Picture::Picture(DrawingSurface&& surface) {
    const int width = surface.width();
    const int height = surface.height();
    auto pixels = std::make_unique<LargeBuffer>(surface.TakePixels());
    image_ = QImage(
        pixels->data(), width, height, qsizetype{width} * 4, QImage::Format_RGB32,
        [](void* buffer) { delete static_cast<LargeBuffer*>(buffer); }, pixels.get());
    if (!image_.isNull()) {
        static_cast<void>(pixels.release()); // the image frees it with its last copy
    }
}

const std::uint32_t* Picture::row(int y) const {
    return reinterpret_cast<const std::uint32_t*>(image_.constScanLine(y));
}

} // namespace editor
