#pragma once

#include <cstdint>
#include <span>

namespace editor {

// The filters of PNG filter method 0 (W3C PNG text, section 9) reversed: each changes a filtered
// row, without its filter-type byte, in place. `previous` is the reconstructed row above, of the
// same length, or empty above the top row, where it counts as all 0.

void FilterSub(std::span<std::uint8_t> row, std::int32_t bytesPerPixel);
void FilterUp(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous);
void FilterAverage(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                   std::int32_t bytesPerPixel);
void FilterPaeth(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                 std::int32_t bytesPerPixel);

/// Of a (left), b (above) and c (above left) the one that is nearest to a + b - c, in this order
/// where they are equally near.
[[nodiscard]] std::uint8_t PaethPredictor(std::uint8_t a, std::uint8_t b, std::uint8_t c);

} // namespace editor
