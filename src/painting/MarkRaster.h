// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QRect>

#include <cstdint>
#include <utility>

namespace editor {

/// A part of a window's pixels in memory. What is painted on it is clipped to `exposed`, and the
/// pixels inside do not show that: a larger target would have the same ones there.
struct RasterTarget {
    std::uint32_t* pixels = nullptr; // the top left pixel of `exposed`
    qsizetype stride = 0;            // pixels from one row to the next
    QRect exposed;                   // in window pixels

    [[nodiscard]] std::uint32_t* At(int x, int y) const {
        return pixels + (y - exposed.top()) * stride + (x - exposed.left());
    }
};

/// The pixels of a line between two pixels, both included, as steps along its longer axis. The
/// steps begin at the same end whichever of the two is given first. The coordinates of lines, and
/// of areas that they are clipped to, are within -2^29 .. 2^29.
class LineSteps {
  public:
    LineSteps() = default;
    LineSteps(const QPoint& from, const QPoint& to);

    /// The pixel of step i, 0 to Count() - 1: on the shorter axis, the one nearest to the line.
    [[nodiscard]] QPoint At(std::int64_t i) const;
    [[nodiscard]] std::int64_t Count() const { return length_ + 1; }
    [[nodiscard]] bool AlongX() const { return alongX_; }

    /// The rows of the topmost and of the lowest pixel.
    [[nodiscard]] std::pair<std::int64_t, std::int64_t> Rows() const;

    /// The first and the last step whose pixel lies in `area`; first > last when there is none.
    [[nodiscard]] std::pair<std::int64_t, std::int64_t> Inside(const QRect& area) const;

    /// Sets every `every`th pixel from step `first` to step `last`, all of which are in `target`.
    void Paint(const RasterTarget& target, std::int64_t first, std::int64_t last, int every,
               std::uint32_t colour) const;

    bool operator==(const LineSteps&) const = default;

  private:
    [[nodiscard]] std::int64_t DividedByTwiceRise(std::int64_t a) const;

    bool alongX_ = true;
    // With every step the position grows by 1 on the longer axis and by rise_ / length_ on the
    // shorter one.
    std::int64_t start_ = 0;
    std::int64_t shortStart_ = 0;
    std::int64_t length_ = 0;
    std::int64_t rise_ = 0;
    std::int64_t slope_ = 0; // rise_ / length_ as a binary fraction, for Paint()
    double inverse_ = 0;     // 1 / (2 |rise_|), for Inside()
};

/// No pixel of a mark is farther from its points than this, on each axis.
inline constexpr int MaximumReach = 3;

/// How far a circle of a pen of that width reaches from its centre, on each axis.
[[nodiscard]] int MarkReach(int lineWidth);

void PaintCircle(const RasterTarget& target, const QPoint& centre, int lineWidth,
                 std::uint32_t colour, std::uint32_t fill);

/// A wide pen widens the line on its shorter axis. A dotted line has the pixels of its even steps.
void PaintLine(const RasterTarget& target, const LineSteps& line, int lineWidth, bool dotted,
               std::uint32_t colour);

} // namespace editor
