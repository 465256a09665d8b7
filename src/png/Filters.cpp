// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/Filters.h"

#include <cstdlib>

namespace editor {
namespace {

std::uint8_t Sum(int a, int b) {
    return static_cast<std::uint8_t>(a + b);
}

} // namespace

std::uint8_t PaethPredictor(std::uint8_t a, std::uint8_t b, std::uint8_t c) {
    const int pa = std::abs(b - c);
    const int pb = std::abs(a - c);
    const int pc = std::abs(a + b - 2 * c);
    if (pa <= pb && pa <= pc) {
        return a;
    }
    return pb <= pc ? b : c;
}

void plain::FilterSub(std::span<std::uint8_t> row, std::int32_t bytesPerPixel) {
    const auto back = static_cast<std::size_t>(bytesPerPixel);
    for (std::size_t i = back; i < row.size(); ++i) {
        row[i] = Sum(row[i], row[i - back]);
    }
}

void plain::FilterUp(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous) {
    for (std::size_t i = 0; i < previous.size(); ++i) {
        row[i] = Sum(row[i], previous[i]);
    }
}

void plain::FilterAverage(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                          std::int32_t bytesPerPixel) {
    const auto back = static_cast<std::size_t>(bytesPerPixel);
    for (std::size_t i = 0; i < row.size(); ++i) {
        const int a = i < back ? 0 : row[i - back];
        const int b = previous.empty() ? 0 : previous[i];
        row[i] = Sum(row[i], (a + b) / 2);
    }
}

void plain::FilterPaeth(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                        std::int32_t bytesPerPixel) {
    if (previous.empty()) {
        plain::FilterSub(row, bytesPerPixel);
        return;
    }
    const auto back = static_cast<std::size_t>(bytesPerPixel);
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::uint8_t a = i < back ? std::uint8_t{0} : row[i - back];
        const std::uint8_t c = i < back ? std::uint8_t{0} : previous[i - back];
        row[i] = Sum(row[i], PaethPredictor(a, previous[i], c));
    }
}

bool LooksBack(FilterType type) {
    return type == FilterType::Sub || type == FilterType::Average || type == FilterType::Paeth;
}

void FilterRow(FilterType type, std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
               std::int32_t bytesPerPixel) {
    switch (type) {
    case FilterType::Sub:
        FilterSub(row, bytesPerPixel);
        break;
    case FilterType::Up:
        FilterUp(row, previous);
        break;
    case FilterType::Average:
        FilterAverage(row, previous, bytesPerPixel);
        break;
    case FilterType::Paeth:
        FilterPaeth(row, previous, bytesPerPixel);
        break;
    default:
        break;
    }
}

#ifndef __SSE2__

void FilterSub(std::span<std::uint8_t> row, std::int32_t bytesPerPixel) {
    plain::FilterSub(row, bytesPerPixel);
}

void FilterUp(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous) {
    plain::FilterUp(row, previous);
}

void FilterAverage(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                   std::int32_t bytesPerPixel) {
    plain::FilterAverage(row, previous, bytesPerPixel);
}

void FilterPaeth(std::span<std::uint8_t> row, std::span<const std::uint8_t> previous,
                 std::int32_t bytesPerPixel) {
    plain::FilterPaeth(row, previous, bytesPerPixel);
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
        plain::FilterPaeth(row, previous, bytesPerPixel);
        previous = row;
    }
}

#endif

} // namespace editor
