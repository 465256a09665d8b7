// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/InstructionSet.h"
#include "png/Filters.h"

#ifndef EDITOR_SSE2

#include <cstddef>
#include <cstdlib>

namespace editor {
namespace {

std::uint8_t Sum(int a, int b) {
    return static_cast<std::uint8_t>(a + b);
}

// The one of a (left), b (above) and c (above left) that is nearest to a + b - c, the first of them
// where several are.
std::uint8_t PaethPredictor(std::uint8_t a, std::uint8_t b, std::uint8_t c) {
    const int pa = std::abs(b - c);
    const int pb = std::abs(a - c);
    const int pc = std::abs(a + b - 2 * c);
    if (pa <= pb && pa <= pc) {
        return a;
    }
    return pb <= pc ? b : c;
}

} // namespace

void FilterSub(std::span<std::uint8_t> row, std::int32_t bytesPerPixel) {
    const auto back = static_cast<std::size_t>(bytesPerPixel);
    for (std::size_t i = back; i < row.size(); ++i) {
        row[i] = Sum(row[i], row[i - back]);
    }
}

void FilterUp(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        row[i] = Sum(row[i], previous[i]);
    }
}

void FilterAverage(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                   std::int32_t bytesPerPixel) {
    const auto back = static_cast<std::size_t>(bytesPerPixel);
    for (std::size_t i = 0; i < row.size(); ++i) {
        const int a = i < back ? 0 : row[i - back];
        row[i] = Sum(row[i], (a + previous[i]) / 2);
    }
}

void FilterPaeth(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                 std::int32_t bytesPerPixel) {
    const auto back = static_cast<std::size_t>(bytesPerPixel);
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::uint8_t a = i < back ? std::uint8_t{0} : row[i - back];
        const std::uint8_t c = i < back ? std::uint8_t{0} : previous[i - back];
        row[i] = Sum(row[i], PaethPredictor(a, previous[i], c));
    }
}

void FilterPair(FilterType firstType, std::span<std::uint8_t> first, FilterType secondType,
                std::span<std::uint8_t> second, std::span<const std::uint8_t> previous,
                std::int32_t bytesPerPixel) {
    FilterRow(firstType, first, previous, bytesPerPixel);
    FilterRow(secondType, second, first, bytesPerPixel);
}

void FilterPaethFour(const std::array<std::span<std::uint8_t>, 4>& rows,
                     std::span<const std::uint8_t> previous, std::int32_t bytesPerPixel) {
    for (const std::span<std::uint8_t> row : rows) {
        FilterPaeth(row, previous, bytesPerPixel);
        previous = row;
    }
}

} // namespace editor

#endif
