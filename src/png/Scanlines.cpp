#include "png/Scanlines.h"

#include "png/Filters.h"
#include "png/Sizes.h"

namespace editor {
namespace {

// Filter types of the W3C PNG text, section 9.2.
enum FilterType : std::uint8_t { None, Sub, Up, Average, Paeth };

} // namespace

void Unfilter(const HeaderRec& header, std::span<std::uint8_t> filtered, std::int32_t first,
              std::int32_t count) {
    const auto rowBytes = static_cast<std::size_t>(RowBytes(header));
    const std::int32_t bytesPerPixel = BytesPerPixel(header);
    for (std::int32_t y = first; y < first + count; ++y) {
        const std::size_t start = static_cast<std::size_t>(y) * rowBytes;
        const std::span<std::uint8_t> row = filtered.subspan(start + 1, rowBytes - 1);
        std::span<const std::uint8_t> previous;
        if (y > 0) {
            previous = filtered.subspan(start - rowBytes + 1, rowBytes - 1);
        }
        switch (filtered[start]) {
        case Sub:
            FilterSub(row, bytesPerPixel);
            break;
        case Up:
            FilterUp(row, previous);
            break;
        case Average:
            FilterAverage(row, previous, bytesPerPixel);
            break;
        case Paeth:
            FilterPaeth(row, previous, bytesPerPixel);
            break;
        default:
            break;
        }
    }
}

} // namespace editor
