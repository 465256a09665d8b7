// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QSize>

#include <span>
#include <vector>

namespace editor {

/// How a window stands in its area. All lengths are pixels.
struct Standing {
    /// Whether it keeps its place, above the others, while they scroll.
    bool pinned = false;
    /// A pinned window's place is counted from the right edge of the room to its own right edge.
    bool fromRight = false;
    /// Where it is wanted: of a pinned window in the room, of any other in the contents that
    /// scroll.
    QPoint place = {};
};

/// A window that can be seen: its outer size and where it is wanted.
struct StandingForm {
    QSize size;
    Standing standing;
};

/// Where everything in an area stands.
struct Arrangement {
    /// What can be scrolled to on one axis, always including 0. There is a bar where there is a
    /// choice.
    struct Range {
        int minimum = 0;
        int maximum = 0;
        [[nodiscard]] bool NeedsBar() const { return minimum < maximum; }
    };
    struct Place {
        QPoint corner; // of the window, in the room
        QPoint slid;   // how far a pinned window has given way to the left and to the top
    };

    QSize room; // what the bars leave of the area
    Range across;
    Range down;
    QPoint scrolled;           // what was asked for, within the ranges
    std::vector<Place> places; // one for each window, in their order
};

/// Works out where windows stand in an area of this size, with what is `scrolled` of their
/// contents, and which scroll bars, `barExtent` thick, it takes to reach all of them. Depends on
/// nothing else and holds for any sizes:
///
/// - A pinned window lies inside the room wherever it fits. One that does not fit slides while the
///   contents scroll away from their start, until its far end can be seen.
/// - Every pixel of what is not pinned can be scrolled to where no pinned window covers it. Where
///   pinned windows leave no room free, all of them slide to the left until there is some.
[[nodiscard]] Arrangement Arrange(const QSize& area, int barExtent,
                                  std::span<const StandingForm> forms, const QPoint& scrolled);

/// How `standing` changes when somebody moves the window of this size, which had given way by
/// `slid`, to `corner` in the room. What is `scrolled` changes when it is not pinned: beyond the
/// left and top edge of the room a window is moved by scrolling.
void MoveTo(const QPoint& corner, const QSize& size, const QSize& room, const QPoint& slid,
            Standing& standing, QPoint& scrolled);

} // namespace editor
