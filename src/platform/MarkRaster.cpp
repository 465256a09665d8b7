// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "platform/MarkRaster.h"

#include <algorithm>
#include <string_view>

namespace editor {
namespace {

// The two circles of radius 2, drawn by hand: o the outline, f the inside. The outline of the wide
// pen would cover all of the inside; the middle is left free so that its colour can be told.
constexpr int NarrowSide = 5;
constexpr std::string_view NarrowCircle = ".ooo."
                                          "offfo"
                                          "offfo"
                                          "offfo"
                                          ".ooo.";
constexpr int WideSide = 7;
constexpr std::string_view WideCircle = "..ooo.."
                                        ".ooooo."
                                        "ooofooo"
                                        "oofffoo"
                                        "ooofooo"
                                        ".ooooo."
                                        "..ooo..";
static_assert(NarrowCircle.size() == NarrowSide * NarrowSide);
static_assert(WideCircle.size() == WideSide * WideSide);

constexpr std::int64_t FloorDivide(std::int64_t a, std::int64_t b) {
    return a / b - (a % b < 0 ? 1 : 0); // b > 0
}

constexpr std::int64_t CeilDivide(std::int64_t a, std::int64_t b) {
    return -FloorDivide(-a, b);
}

} // namespace

LineSteps::LineSteps(int x1, int y1, int x2, int y2)
    : alongX_(std::abs(std::int64_t{x2} - x1) >= std::abs(std::int64_t{y2} - y1)) {
    std::pair<std::int64_t, std::int64_t> from(alongX_ ? x1 : y1, alongX_ ? y1 : x1);
    std::pair<std::int64_t, std::int64_t> to(alongX_ ? x2 : y2, alongX_ ? y2 : x2);
    if (to < from) {
        std::swap(from, to);
    }
    start_ = from.first;
    shortStart_ = from.second;
    length_ = to.first - from.first;
    rise_ = to.second - from.second;
}

QPoint LineSteps::At(std::int64_t i) const {
    const auto along = static_cast<int>(start_ + i);
    const std::int64_t offset =
        length_ == 0 ? 0 : FloorDivide(2 * i * rise_ + length_, 2 * length_);
    const auto across = static_cast<int>(shortStart_ + offset);
    return alongX_ ? QPoint(along, across) : QPoint(across, along);
}

std::pair<std::int64_t, std::int64_t> LineSteps::Inside(const QRect& area) const {
    const std::int64_t low = alongX_ ? area.left() : area.top();
    const std::int64_t high = alongX_ ? area.right() : area.bottom();
    // The limits of the shorter axis, relative to the line's start.
    const std::int64_t shortLow = (alongX_ ? area.top() : area.left()) - shortStart_;
    const std::int64_t shortHigh = (alongX_ ? area.bottom() : area.right()) - shortStart_;
    std::int64_t first = std::max<std::int64_t>(0, low - start_);
    std::int64_t last = std::min(length_, high - start_);
    if (rise_ == 0) {
        return shortLow <= 0 && 0 <= shortHigh ? std::pair(first, last)
                                               : std::pair<std::int64_t, std::int64_t>(0, -1);
    }
    // The position across at step i is floor((2 i rise + length) / (2 length)); it is at least L
    // exactly when 2 i rise >= (2 L - 1) length, and at most H exactly when
    // 2 i rise < (2 H + 1) length.
    const std::int64_t atLeast = (2 * shortLow - 1) * length_;
    const std::int64_t below = (2 * shortHigh + 1) * length_;
    if (rise_ > 0) {
        first = std::max(first, CeilDivide(atLeast, 2 * rise_));
        last = std::min(last, CeilDivide(below, 2 * rise_) - 1);
    } else {
        first = std::max(first, FloorDivide(-below, -2 * rise_) + 1);
        last = std::min(last, FloorDivide(-atLeast, -2 * rise_));
    }
    return {first, last};
}

int MarkReach(int lineWidth) {
    return lineWidth > 1 ? WideSide / 2 : NarrowSide / 2;
}

void PaintCircle(const RasterTarget& target, const QPoint& centre, int lineWidth,
                 std::uint32_t colour, std::uint32_t fill) {
    const bool wide = lineWidth > 1;
    const std::string_view mask = wide ? WideCircle : NarrowCircle;
    const int side = wide ? WideSide : NarrowSide;
    const QRect box(centre.x() - side / 2, centre.y() - side / 2, side, side);
    const QRect seen = box & target.exposed;
    for (int y = seen.top(); y <= seen.bottom(); ++y) {
        for (int x = seen.left(); x <= seen.right(); ++x) {
            const int index = (y - box.top()) * side + (x - box.left());
            const char kind = mask[static_cast<std::size_t>(index)];
            if (kind != '.') {
                *target.At(x, y) = kind == 'o' ? colour : fill;
            }
        }
    }
}

/// Walks along the steps of a line without a division.
class LineWalk {
  public:
    LineWalk(const RasterTarget& target, const LineSteps& line, std::int64_t first)
        : doubleRise_(static_cast<int>(2 * std::abs(line.rise_))),
          doubleLength_(static_cast<int>(2 * line.length_)) {
        const QPoint pixel = line.At(first);
        pixel_ = target.At(pixel.x(), pixel.y());
        along_ = line.alongX_ ? 1 : target.stride;
        across_ = (line.alongX_ ? target.stride : 1) * (line.rise_ < 0 ? -1 : 1);
        // How far the line's true position lies, in the direction in which it goes across, from
        // where the nearest pixel changes. With a falling line halves belong to the pixel before.
        const std::int64_t sum = 2 * first * line.rise_ + line.length_;
        const std::int64_t remainder =
            doubleLength_ == 0 ? 0 : sum - FloorDivide(sum, doubleLength_) * doubleLength_;
        toGo_ = static_cast<int>(line.rise_ < 0 ? remainder + 1 : doubleLength_ - remainder);
    }

    [[nodiscard]] std::uint32_t* Pixel() const { return pixel_; }

    void Next() {
        pixel_ += along_;
        toGo_ -= doubleRise_;
        if (toGo_ <= 0) {
            toGo_ += doubleLength_;
            pixel_ += across_;
        }
    }

  private:
    int doubleRise_;
    int doubleLength_;
    int toGo_;
    qsizetype along_;
    qsizetype across_;
    std::uint32_t* pixel_;
};

namespace {

// Every pixel of the steps lies in the target.
void PaintThinLine(const RasterTarget& target, const LineSteps& line, std::int64_t first,
                   std::int64_t last, bool dotted, std::uint32_t colour) {
    if (dotted) {
        first += first % 2;
        if (first > last) {
            return;
        }
        LineWalk walk(target, line, first);
        for (std::int64_t i = first; i <= last; i += 2) {
            *walk.Pixel() = colour;
            walk.Next();
            walk.Next();
        }
        return;
    }
    LineWalk walk(target, line, first);
    for (std::int64_t i = first; i <= last; ++i, walk.Next()) {
        *walk.Pixel() = colour;
    }
}

// Of each span across the line only what lies in the target is painted.
void PaintWideLine(const RasterTarget& target, const LineSteps& line, std::int64_t first,
                   std::int64_t last, int reach, bool dotted, std::uint32_t colour) {
    for (std::int64_t i = first; i <= last; ++i) {
        if (dotted && i % 2 != 0) {
            continue;
        }
        const QPoint pixel = line.At(i);
        const QPoint across = line.AlongX() ? QPoint(0, reach) : QPoint(reach, 0);
        const QRect span = QRect(pixel - across, pixel + across) & target.exposed;
        for (int y = span.top(); y <= span.bottom(); ++y) {
            std::fill_n(target.At(span.left(), y), span.width(), colour);
        }
    }
}

} // namespace

void PaintLine(const RasterTarget& target, const LineSteps& line, int lineWidth, bool dotted,
               std::uint32_t colour) {
    const int reach = lineWidth / 2;
    const auto [first, last] = line.Inside(target.exposed.adjusted(-reach, -reach, reach, reach));
    if (first > last) {
        return;
    }
    if (reach == 0) {
        PaintThinLine(target, line, first, last, dotted, colour);
    } else {
        PaintWideLine(target, line, first, last, reach, dotted, colour);
    }
}

} // namespace editor
