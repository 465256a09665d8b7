// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/Scanlines.h"

#include "png/Filters.h"
#include "png/Sizes.h"

namespace editor {

void Unfilter(const HeaderRec& header, std::span<std::uint8_t> filtered, std::int32_t first,
              std::int32_t count) {
    const auto rowBytes = static_cast<std::size_t>(RowBytes(header));
    const std::int32_t bytesPerPixel = BytesPerPixel(header);
    const auto filterOf = [&](std::int32_t y) {
        return static_cast<FilterType>(filtered[static_cast<std::size_t>(y) * rowBytes]);
    };
    const auto rowAt = [&](std::int32_t y) {
        return filtered.subspan(static_cast<std::size_t>(y) * rowBytes + 1, rowBytes - 1);
    };
    // How many rows from `y` on are in a run of `isIn`, up to `most`.
    const auto run = [&](std::int32_t y, std::int32_t most, auto isIn) {
        std::int32_t rows = 0;
        while (rows < most && y + rows < first + count && isIn(filterOf(y + rows))) {
            ++rows;
        }
        return rows;
    };
    const auto isPaeth = [](FilterType type) { return type == FilterType::Paeth; };
    std::int32_t y = first;
    if (y == 0 && count > 0) {
        FilterRow(filterOf(y), rowAt(y), {}, bytesPerPixel);
        ++y;
    }
    while (y < first + count) {
        if (run(y, 4, isPaeth) == 4) {
            FilterPaethFour({rowAt(y), rowAt(y + 1), rowAt(y + 2), rowAt(y + 3)}, rowAt(y - 1),
                            bytesPerPixel);
            y += 4;
        } else if (run(y, 2, LooksBack) == 2) {
            FilterPair(filterOf(y), rowAt(y), filterOf(y + 1), rowAt(y + 1), rowAt(y - 1),
                       bytesPerPixel);
            y += 2;
        } else {
            FilterRow(filterOf(y), rowAt(y), rowAt(y - 1), bytesPerPixel);
            ++y;
        }
    }
}

} // namespace editor
