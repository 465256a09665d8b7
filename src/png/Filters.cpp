// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/Filters.h"

namespace editor {

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

} // namespace editor
