// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/Arrangement.h"

#include <QRect>

#include <algorithm>
#include <utility>

namespace editor {
namespace {

// Where pinned windows leave less than this free, they give way; pixels, each way.
constexpr int LeastFree = 64;

QPoint Least(const QPoint& a, const QPoint& b) {
    return {std::min(a.x(), b.x()), std::min(a.y(), b.y())};
}

QPoint Largest(const QPoint& a, const QPoint& b) {
    return {std::max(a.x(), b.x()), std::max(a.y(), b.y())};
}

QPoint AsPoint(const QSize& size) {
    return {size.width(), size.height()};
}

// Where a pinned window stands as long as nothing is scrolled.
QRect Resting(const StandingForm& form, const QSize& room) {
    QPoint corner = form.standing.place;
    if (form.standing.fromRight) {
        corner.rx() = room.width() - corner.x() - form.size.width();
    }
    const QPoint farthest = AsPoint(room - form.size);
    return {Largest(Least(corner, farthest), {0, 0}), form.size};
}

// The largest rectangle of the room that none of `covered` lies on; its edges are edges of theirs.
QRect LargestFree(const QSize& room, const std::vector<QRect>& covered) {
    std::vector<int> across = {0, room.width()};
    std::vector<int> down = {0, room.height()};
    for (const QRect& rectangle : covered) {
        across.insert(across.end(), {rectangle.x(), rectangle.x() + rectangle.width()});
        down.insert(down.end(), {rectangle.y(), rectangle.y() + rectangle.height()});
    }
    const auto spans = [](const std::vector<int>& edges, int length) {
        std::vector<std::pair<int, int>> found; // start and length
        for (const int start : edges) {
            for (const int end : edges) {
                if (start >= 0 && start < end && end <= length) {
                    found.emplace_back(start, end - start);
                }
            }
        }
        return found;
    };
    QRect best;
    for (const auto& [left, width] : spans(across, room.width())) {
        for (const auto& [top, height] : spans(down, room.height())) {
            const QRect free(left, top, width, height);
            if (qint64{width} * height > qint64{best.width()} * best.height() &&
                std::none_of(covered.begin(), covered.end(),
                             [&free](const QRect& other) { return other.intersects(free); })) {
                best = free;
            }
        }
    }
    return best;
}

struct Clearing {
    QRect place;    // of the room: every pixel of the contents can be brought there
    int awayBy = 0; // how far to the left pinned windows have to give way for it
};

Clearing FindClearing(const QSize& room, const std::vector<QRect>& pinned) {
    const QRect free = LargestFree(room, pinned);
    if (free.width() >= std::min(LeastFree, room.width()) &&
        free.height() >= std::min(LeastFree, room.height())) {
        return {free};
    }
    const int width = std::min(LeastFree, (room.width() + 1) / 2);
    const int left = room.width() - width;
    int covered = 0;
    for (const QRect& rectangle : pinned) {
        covered = std::max(covered, rectangle.x() + rectangle.width());
    }
    return {QRect(left, 0, width, room.height()), std::max(0, covered - left)};
}

// As Arrange(), for a room that the bars have been taken from already.
Arrangement ArrangeInRoom(const QSize& room, std::span<const StandingForm> forms,
                          const QPoint& scrolled) {
    QRect contents;
    std::vector<QRect> pinned;
    std::vector<QPoint> slides; // how far each of them gives way at most
    for (const StandingForm& form : forms) {
        if (form.standing.pinned) {
            pinned.push_back(Resting(form, room));
            slides.push_back(Largest(AsPoint(form.size - room), {0, 0}));
        } else {
            contents |= QRect(form.standing.place, form.size);
        }
    }
    QPoint first;
    QPoint last;
    if (!contents.isEmpty()) {
        const Clearing clearing = FindClearing(room, pinned);
        for (QPoint& slide : slides) {
            slide.rx() = std::max(slide.x(), clearing.awayBy);
        }
        // What is far to the left comes there only when the pinned windows have given way.
        first = contents.topLeft() - clearing.place.topLeft() - QPoint(clearing.awayBy, 0);
        first = Least(first, {0, 0});
        last = Largest(contents.bottomRight() - clearing.place.bottomRight(), {0, 0});
    }
    for (const QPoint& slide : slides) {
        last = Largest(last, first + slide);
    }

    Arrangement result{.room = room,
                       .across = {first.x(), last.x()},
                       .down = {first.y(), last.y()},
                       .scrolled = Largest(Least(scrolled, last), first),
                       .places = {}};
    const QPoint sinceStart = result.scrolled - first;
    std::size_t i = 0;
    for (const StandingForm& form : forms) {
        if (form.standing.pinned) {
            const QPoint slid = Least(sinceStart, slides[i]);
            result.places.push_back({pinned[i].topLeft() - slid, slid});
            ++i;
        } else {
            result.places.push_back({form.standing.place - result.scrolled, {}});
        }
    }
    return result;
}

} // namespace

Arrangement Arrange(const QSize& area, int barExtent, std::span<const StandingForm> forms,
                    const QPoint& scrolled) {
    bool across = false;
    bool down = false;
    while (true) {
        const QSize bars(down ? barExtent : 0, across ? barExtent : 0);
        Arrangement result = ArrangeInRoom((area - bars).expandedTo({0, 0}), forms, scrolled);
        const bool complete =
            (across || !result.across.NeedsBar()) && (down || !result.down.NeedsBar());
        if (complete) {
            return result;
        }
        // The room that one bar takes may call for the other one. A bar that came stays, so that
        // this ends.
        across = across || result.across.NeedsBar();
        down = down || result.down.NeedsBar();
    }
}

void MoveTo(const QPoint& corner, const QSize& size, const QSize& room, const QPoint& slid,
            Standing& standing, QPoint& scrolled) {
    if (!standing.pinned) {
        standing.place = Largest(corner, {0, 0});
        scrolled = Largest(-corner, {0, 0});
        return;
    }
    const QPoint resting = corner + slid;
    const int beyond = room.width() - (resting.x() + size.width());
    standing.fromRight = resting.x() > beyond; // follows the side that it is nearer to
    standing.place = {standing.fromRight ? beyond : resting.x(), resting.y()};
}

} // namespace editor
