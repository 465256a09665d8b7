#pragma once

#include <algorithm>

namespace editor {

/// Where a window that stays in its place goes when the area around it scrolls, on one axis and in
/// pixels: it stays, unless one of its edges lies outside the area and the scrolling brings that
/// edge into sight. So all of it can be reached in an area that is too small for it.
/// `place` is its position before, `moved` how far the contents go, `size` its size, `room` the
/// area's.
[[nodiscard]] constexpr int StickyPlace(int place, int moved, int size, int room) {
    if (moved < 0 && place + size > room) {
        return std::max(place + moved, room - size);
    }
    if (moved > 0 && place < 0) {
        return std::min(place + moved, 0);
    }
    return place;
}

} // namespace editor
