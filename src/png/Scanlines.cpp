// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/Scanlines.h"

#include "png/Filters.h"
#include "png/Sizes.h"

namespace editor {

void Unfilter(const HeaderRec& header, std::span<std::uint8_t> rows,
              std::span<const std::uint8_t> previous) {
    const auto rowBytes = static_cast<std::size_t>(RowBytes(header));
    const std::int32_t bytesPerPixel = BytesPerPixel(header);
    const std::size_t count = rows.size() / rowBytes;
    const auto filterOf = [&](std::size_t y) {
        return static_cast<FilterType>(rows[y * rowBytes]);
    };
    const auto rowAt = [&](std::size_t y) { return rows.subspan(y * rowBytes + 1, rowBytes - 1); };
    // Whether there are `number` rows from `y` on, all of which are of that kind.
    const auto are = [&](std::size_t y, std::size_t number, auto kind) {
        std::size_t alike = 0;
        while (alike < number && y + alike < count && kind(filterOf(y + alike))) {
            ++alike;
        }
        return alike == number;
    };
    const auto isPaeth = [](FilterType type) { return type == FilterType::Paeth; };
    std::size_t y = 0;
    while (y < count) {
        if (are(y, 4, isPaeth)) {
            FilterPaethFour({rowAt(y), rowAt(y + 1), rowAt(y + 2), rowAt(y + 3)}, previous,
                            bytesPerPixel);
            y += 4;
        } else if (are(y, 2, LooksBack)) {
            FilterPair(filterOf(y), rowAt(y), filterOf(y + 1), rowAt(y + 1), previous,
                       bytesPerPixel);
            y += 2;
        } else {
            FilterRow(filterOf(y), rowAt(y), previous, bytesPerPixel);
            y += 1;
        }
        previous = rowAt(y - 1);
    }
}

} // namespace editor
