// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QRect>

#include <cstdint>
#include <utility>

namespace editor {

/// A part of a window's pixels in memory. Whatever is painted on it is clipped to `exposed`
/// without a trace: the pixels inside are those that a larger target would show there.
struct RasterTarget {
    std::uint32_t* pixels = nullptr; // the top left pixel of `exposed`
    qsizetype stride = 0;            // pixels from row to row
    QRect exposed;                   // in window pixels

    [[nodiscard]] std::uint32_t* At(int x, int y) const {
        return pixels + (y - exposed.top()) * stride + (x - exposed.left());
    }
};

/// The pixels of a line between two pixels, both included, as steps along its longer axis. The
/// steps begin at the same end whichever way round the two are given.
class LineSteps {
  public:
    LineSteps() = default;
    LineSteps(const QPoint& from, const QPoint& to);

    /// The pixel of step i, 0 to Count() - 1: along the shorter axis the nearest one.
    [[nodiscard]] QPoint At(std::int64_t i) const;
    [[nodiscard]] std::int64_t Count() const { return length_ + 1; }
    [[nodiscard]] bool AlongX() const { return alongX_; }

    /// The rows of the topmost and of the lowest pixel.
    [[nodiscard]] std::pair<std::int64_t, std::int64_t> Rows() const;

    /// The first and the last step whose pixel lies in `area`; first > last when there is none.
    [[nodiscard]] std::pair<std::int64_t, std::int64_t> Inside(const QRect& area) const;

    /// Sets every `every`th pixel of the steps from `first` to `last`, all of which lie in
    /// `target`.
    void Paint(const RasterTarget& target, std::int64_t first, std::int64_t last, int every,
               std::uint32_t colour) const;

    bool operator==(const LineSteps&) const = default;

  private:
    [[nodiscard]] std::int64_t DividedByTwiceRise(std::int64_t a) const;

    bool alongX_ = true;
    // Along the longer axis the position grows by 1 a step, along the shorter one by
    // rise_ / length_.
    std::int64_t start_ = 0;
    std::int64_t shortStart_ = 0;
    std::int64_t length_ = 0;
    std::int64_t rise_ = 0;
    std::int64_t slope_ = 0; // rise_ / length_ as a binary fraction, for Paint()
    double inverse_ = 0;     // 1 / (2 |rise_|), for Inside()
};

/// How far a circle's pixels lie from its centre, on each axis, with a pen of that width.
[[nodiscard]] int MarkReach(int lineWidth);

void PaintCircle(const RasterTarget& target, const QPoint& centre, int lineWidth,
                 std::uint32_t colour, std::uint32_t fill);

/// A pen of more than one pixel widens the line across its longer axis. A dotted line has the
/// pixels of its even steps.
void PaintLine(const RasterTarget& target, const LineSteps& line, int lineWidth, bool dotted,
               std::uint32_t colour);

} // namespace editor
