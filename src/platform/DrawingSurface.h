#pragma once

#include "platform/LargeBuffer.h"

#include <cstdint>

namespace editor {

/// An off-screen surface to draw pictures on, in the place of the platform's device context:
/// rows of 32-bit pixels 0xffRRGGBB, top row first, without padding. It starts in a grey on which
/// marks and links of every colour can be seen.
class DrawingSurface {
  public:
    static constexpr std::uint32_t InitialColour = 0xff808080;

    /// Sizes in pixels, at least 0. Throws std::bad_alloc when the memory cannot be had.
    DrawingSurface(std::int32_t width, std::int32_t height);

    [[nodiscard]] std::int32_t width() const { return width_; }
    [[nodiscard]] std::int32_t height() const { return height_; }

    /// Row y, 0 at the top: width() pixels.
    [[nodiscard]] std::uint32_t* row(std::int32_t y);
    [[nodiscard]] const std::uint32_t* row(std::int32_t y) const;

    /// The pixels, handed over; the surface is empty afterwards.
    [[nodiscard]] LargeBuffer TakePixels();

  private:
    std::int32_t width_;
    std::int32_t height_;
    LargeBuffer pixels_;
};

} // namespace editor
