// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace editor {

// The filters of PNG filter method 0 (W3C PNG text, section 9) reversed: each changes a filtered
// row, without its filter-type byte, in place. `previous` is the reconstructed row above, of the
// same length; above the top row it is all 0. `bytesPerPixel` is 1, 2, 3, 4, 6 or 8 and divides the
// length. FiltersSse2.cpp has them for SSE2, FiltersPlain.cpp byte by byte for all other machines.

/// Filter types of the W3C PNG text, section 9.2; a file may have any other number too.
enum class FilterType : std::uint8_t { None, Sub, Up, Average, Paeth };

void FilterSub(std::span<std::uint8_t> row, std::int32_t bytesPerPixel);
void FilterUp(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous);
void FilterAverage(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                   std::int32_t bytesPerPixel);
void FilterPaeth(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                 std::int32_t bytesPerPixel);

/// True for the filters that look back in their own row, so that each pixel has to wait for the one
/// before it.
[[nodiscard]] bool LooksBack(FilterType type);

/// The filter that `type` names on one row; an unknown one leaves it as it is.
void FilterRow(FilterType type, std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
               std::int32_t bytesPerPixel);

/// FilterRow() of two rows, one above the other, whose filters both look back; `previous` is above
/// the first. Faster than one row after the other.
void FilterPair(FilterType firstType, std::span<std::uint8_t> first, FilterType secondType,
                std::span<std::uint8_t> second, std::span<const std::uint8_t> previous,
                std::int32_t bytesPerPixel);

/// FilterPaeth() of four rows, each above the next; `previous` is above the first.
void FilterPaethFour(const std::array<std::span<std::uint8_t>, 4>& rows,
                     std::span<const std::uint8_t> previous, std::int32_t bytesPerPixel);

} // namespace editor
