// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>

#include <cstdint>

namespace editor {

class DrawingSurface;

/// A decoded image of known pixel size: rows of 32-bit pixels 0xffRRGGBB, top row first. Copies
/// share the pixels, which never change.
class Picture {
  public:
    /// No image: 0 by 0 pixels.
    Picture() = default;

    /// Any image, converted to opaque 32-bit pixels where it has another form.
    explicit Picture(const QImage& image);

    /// What was drawn on a surface, taken over without a copy; the surface is empty afterwards.
    explicit Picture(DrawingSurface&& surface);

    [[nodiscard]] int width() const { return image_.width(); }
    [[nodiscard]] int height() const { return image_.height(); }
    [[nodiscard]] bool isNull() const { return image_.isNull(); }

    /// Row y, 0 at the top: width() pixels.
    [[nodiscard]] const std::uint32_t* row(int y) const;

    [[nodiscard]] const QImage& image() const { return image_; }

  private:
    QImage image_;
};

} // namespace editor
