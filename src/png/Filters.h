// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace editor {

// The filters of PNG filter method 0 (W3C PNG text, section 9) reversed: each changes a filtered
// row, without its filter-type byte, in place. `previous` is the reconstructed row above, of the
// same length, or empty above the top row, where it counts as all 0. `bytesPerPixel` is 1, 2, 3, 4,
// 6 or 8 and divides the length. They use SSE2 where the compiler has it.

/// Filter types of the W3C PNG text, section 9.2; a file may hold any number.
enum class FilterType : std::uint8_t { None, Sub, Up, Average, Paeth };

void FilterSub(std::span<std::uint8_t> row, std::int32_t bytesPerPixel);
void FilterUp(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous);
void FilterAverage(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                   std::int32_t bytesPerPixel);
void FilterPaeth(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                 std::int32_t bytesPerPixel);

/// True for the filters that look back in their own row, so that its pixels have to wait for each
/// other.
[[nodiscard]] bool LooksBack(FilterType type);

/// The filters of two rows, one under the other, both of which have to look back; `previous`, not
/// empty, is above the first. Quicker than one row after the other.
void FilterPair(FilterType firstType, std::span<std::uint8_t> first, FilterType secondType,
                std::span<std::uint8_t> second, std::span<const std::uint8_t> previous,
                std::int32_t bytesPerPixel);

/// FilterPaeth() of four rows under one another; `previous`, not empty, is above the first.
void FilterPaethFour(const std::array<std::span<std::uint8_t>, 4>& rows,
                     std::span<const std::uint8_t> previous, std::int32_t bytesPerPixel);

/// The filter that `type` names on one row; an unknown one leaves it as it is.
void FilterRow(FilterType type, std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
               std::int32_t bytesPerPixel);

/// Of a (left), b (above) and c (above left) the one that is nearest to a + b - c, in this order
/// where they are equally near.
[[nodiscard]] std::uint8_t PaethPredictor(std::uint8_t a, std::uint8_t b, std::uint8_t c);

/// The same filters byte by byte, as they are written down in the PNG text: for machines without
/// SSE2, and for tests to hold the others to.
namespace plain {
void FilterSub(std::span<std::uint8_t> row, std::int32_t bytesPerPixel);
void FilterUp(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous);
void FilterAverage(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                   std::int32_t bytesPerPixel);
void FilterPaeth(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                 std::int32_t bytesPerPixel);
} // namespace plain

} // namespace editor
