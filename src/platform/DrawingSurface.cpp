#include "platform/DrawingSurface.h"

#include <algorithm>

namespace editor {

DrawingSurface::DrawingSurface(std::int32_t width, std::int32_t height)
    : width_(width), height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
              sizeof(std::uint32_t)) {
    auto* first = reinterpret_cast<std::uint32_t*>(pixels_.data());
    std::fill_n(first, pixels_.size() / sizeof(std::uint32_t), InitialColour);
}

std::uint32_t* DrawingSurface::row(std::int32_t y) {
    return reinterpret_cast<std::uint32_t*>(pixels_.data()) +
           static_cast<std::ptrdiff_t>(y) * width_;
}

const std::uint32_t* DrawingSurface::row(std::int32_t y) const {
    return reinterpret_cast<const std::uint32_t*>(pixels_.data()) +
           static_cast<std::ptrdiff_t>(y) * width_;
}

LargeBuffer DrawingSurface::TakePixels() {
    width_ = 0;
    height_ = 0;
    return std::move(pixels_);
}

} // namespace editor
