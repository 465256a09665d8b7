// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "painting/MarkRaster.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace editor {
namespace {

// The two circles of radius 2, drawn by hand: o is the outline, f the inside. The outline of the
// wide pen would cover the inside completely; its middle is left free, so that the colour can be
// seen.
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
static_assert(std::max(NarrowSide, WideSide) / 2 <= MaximumReach);

constexpr std::int64_t FloorDivide(std::int64_t a, std::int64_t b) {
    return a / b - (a % b < 0 ? 1 : 0); // b > 0
}

// Paint() keeps the position on the shorter axis as a binary fraction. A step is then one addition,
// with no branch that the processor would guess wrong half of the time.
//
// The slope is rounded down, so that the position falls behind a little more with every step, but
// by less than `Ahead` over the longest line that is painted like this. The true position is always
// a multiple of 1 / (2 length), more than `Ahead`. Starting ahead by that much therefore keeps the
// fraction between the true position and the next possible one, and every pixel is the right one.
constexpr int FractionBits = 42;
constexpr std::int64_t LongestQuickLine = std::int64_t{1} << 19;
constexpr std::int64_t Ahead = (std::int64_t{1} << FractionBits) / (4 * LongestQuickLine);
static_assert(LongestQuickLine < Ahead);

} // namespace

LineSteps::LineSteps(const QPoint& one, const QPoint& other)
    : alongX_(std::abs(std::int64_t{other.x()} - one.x()) >=
              std::abs(std::int64_t{other.y()} - one.y())) {
    const auto ends = [this](const QPoint& point) {
        return alongX_ ? std::pair<std::int64_t, std::int64_t>(point.x(), point.y())
                       : std::pair<std::int64_t, std::int64_t>(point.y(), point.x());
    };
    const auto [from, to] = std::minmax({ends(one), ends(other)});
    start_ = from.first;
    shortStart_ = from.second;
    length_ = to.first - from.first;
    rise_ = to.second - from.second;
    inverse_ = rise_ == 0 ? 0 : 0.5 / static_cast<double>(std::abs(rise_));
    if (0 < length_ && length_ <= LongestQuickLine) {
        slope_ = FloorDivide(rise_ * (std::int64_t{1} << FractionBits), length_);
    }
}

std::pair<std::int64_t, std::int64_t> LineSteps::Rows() const {
    return alongX_ ? std::minmax({shortStart_, shortStart_ + rise_})
                   : std::pair(start_, start_ + length_);
}

QPoint LineSteps::At(std::int64_t i) const {
    const auto along = static_cast<int>(start_ + i);
    const std::int64_t offset =
        length_ == 0 ? 0 : FloorDivide(2 * i * rise_ + length_, 2 * length_);
    const auto across = static_cast<int>(shortStart_ + offset);
    return alongX_ ? QPoint(along, across) : QPoint(across, along);
}

// floor(a / (2 |rise|)). Lines are clipped anew for every band that is painted, and dividing
// integers would cost as much as painting their pixels. Multiplying by the rounded inverse gives a
// quotient that is at most one off.
std::int64_t LineSteps::DividedByTwiceRise(std::int64_t a) const {
    const std::int64_t divisor = 2 * std::abs(rise_);
    auto quotient = static_cast<std::int64_t>(static_cast<double>(a) * inverse_);
    while (quotient * divisor > a) {
        --quotient;
    }
    while ((quotient + 1) * divisor <= a) {
        ++quotient;
    }
    return quotient;
}

std::pair<std::int64_t, std::int64_t> LineSteps::Inside(const QRect& area) const {
    const std::int64_t low = alongX_ ? area.left() : area.top();
    const std::int64_t high = alongX_ ? area.right() : area.bottom();
    // The limits of the shorter axis, relative to the line's start.
    const std::int64_t shortLow = (alongX_ ? area.top() : area.left()) - shortStart_;
    const std::int64_t shortHigh = (alongX_ ? area.bottom() : area.right()) - shortStart_;
    std::int64_t first = std::max<std::int64_t>(0, low - start_);
    std::int64_t last = std::min(length_, high - start_);
    const auto [lowest, highest] = std::minmax({std::int64_t{0}, rise_});
    if (shortLow <= lowest && highest <= shortHigh) {
        return {first, last};
    }
    if (highest < shortLow || shortHigh < lowest) {
        return {0, -1};
    }
    // On the shorter axis, step i is at floor((2 i rise + length) / (2 length)). That is at least L
    // exactly when 2 i rise >= (2 L - 1) length, and at most H exactly when
    // 2 i rise < (2 H + 1) length.
    const std::int64_t atLeast = (2 * shortLow - 1) * length_;
    const std::int64_t below = (2 * shortHigh + 1) * length_;
    // A line whose rise is negative meets the two limits in the other order.
    const auto [outside, inside] =
        rise_ > 0 ? std::pair(atLeast - 1, below - 1) : std::pair(-below, -atLeast);
    first = std::max(first, DividedByTwiceRise(outside) + 1);
    last = std::min(last, DividedByTwiceRise(inside));
    return {first, last};
}

void LineSteps::Paint(const RasterTarget& target, std::int64_t first, std::int64_t last, int every,
                      std::uint32_t colour) const {
    if (length_ > LongestQuickLine) {
        for (std::int64_t i = first; i <= last; i += every) {
            const QPoint pixel = At(i);
            *target.At(pixel.x(), pixel.y()) = colour;
        }
        return;
    }
    const qsizetype along = every * (alongX_ ? 1 : target.stride);
    const qsizetype across = alongX_ ? target.stride : 1;
    // Where the pixel would be if the line had not moved on its shorter axis, perhaps outside of
    // the target: an index and not a pointer, which may not point there.
    const std::int64_t right = (alongX_ ? start_ + first : shortStart_) - target.exposed.left();
    const std::int64_t down = (alongX_ ? shortStart_ : start_ + first) - target.exposed.top();
    std::int64_t index = down * target.stride + right;
    const std::int64_t half = std::int64_t{1} << (FractionBits - 1);
    std::int64_t position = half + Ahead + first * slope_;
    for (std::int64_t i = first; i <= last; i += every) {
        target.pixels[index + (position >> FractionBits) * across] = colour;
        index += along;
        position += every * slope_;
    }
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

namespace {

// The line is a row of spans across its longer axis, of which the part in the target is painted.
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
        line.Paint(target, dotted ? first + first % 2 : first, last, dotted ? 2 : 1, colour);
    } else {
        PaintWideLine(target, line, first, last, reach, dotted, colour);
    }
}

} // namespace editor
