// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "painting/MarkRaster.h"
#include "pictures/Picture.h"
#include "pictures/Pixel.h"

#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QSize>

#include <cstdint>
#include <vector>

namespace editor {

/// How a line's pixels follow one another.
enum class LineStyle : std::uint8_t { Solid, Dotted };

/// What was drawn on a window, kept so that any part can be painted again: a background picture
/// and the marks drawn over it since the last Clear(). Nothing is kept at the window's size:
/// painting works out the pixels of the exposed part alone, so that memory and time depend on what
/// is visible. Any partition of the window, painted in any order, gives the pixels of one painting.
///
/// Positions are window pixels, the origin at the top left; colours are 0xffRRGGBB. Nothing is
/// antialiased.
class PersistentImage {
  public:
    /// Paint() should not be asked for more rows than this at a time. That many rows of a wide
    /// screen fit into a processor's own cache: there the marks are painted over the background,
    /// and from there both are copied to the window.
    static constexpr int BandHeight = 128;

    /// What is seen where there is no background.
    static constexpr std::uint32_t PlainColour = NeutralGrey;

    /// Makes `picture`, stretched over the pixels from (0, 0) to `size`, the background. Pixel v
    /// of the window shows the picture's pixel floor(v × picture size / size) on each axis. What
    /// was drawn before is gone.
    void SetBackground(const Picture& picture, const QSize& size);
    [[nodiscard]] bool HasBackground() const { return !background_.isNull(); }

    /// Back to the background alone. The pen and the fill colour stay.
    void Clear();

    // The pen, 1 or 3 pixels wide, and the inside of circles, for all marks until they are set
    // again.
    void SetLineWidth(int pixels) { pen_.width = static_cast<std::uint8_t>(pixels); }
    void SetLineStyle(LineStyle style) { pen_.style = style; }
    void SetFillColour(std::uint32_t colour) { pen_.fill = colour; }

    /// A circle of radius 2 with its outline in `colour`, always solid, filled with the fill
    /// colour; with a pen of 3 pixels the fill shows in the middle.
    void Circle(const QPoint& centre, std::uint32_t colour);

    /// A line between two points, both included. Of a dotted one, every other pixel is drawn. Drawn
    /// from the other end, a line has the same pixels.
    void Line(const QPoint& from, const QPoint& to, std::uint32_t colour);

    /// The part of `visible` in which the image may differ from what it was at the last call.
    [[nodiscard]] QRegion TakeChanges(const QRect& visible);

    /// Writes the pixels of `exposed` to `target`, whose rows are `stride` pixels apart.
    void Paint(std::uint32_t* target, qsizetype stride, const QRect& exposed) const;

  private:
    enum class MarkKind : std::uint8_t { Line, Circle };
    struct Mark {
        std::int64_t top = 0; // no pixel is above this row or below the other
        std::int64_t bottom = 0;
        MarkKind kind = MarkKind::Line;
        std::uint8_t width = 1;
        LineStyle style = LineStyle::Solid;
        std::uint32_t fill = 0;
        std::uint32_t colour = 0;
        LineSteps line; // of a circle, the line from its centre to its centre

        bool operator==(const Mark&) const = default;
    };

    void Add(Mark mark);
    void PaintBackground(std::uint32_t* target, qsizetype stride, const QRect& exposed) const;
    static void AddChange(QRegion& region, const Mark& mark, const QRect& visible);

    Picture background_;
    QSize stretched_;
    Mark pen_; // width, style and fill for the next marks
    std::vector<Mark> marks_;
    std::vector<Mark> reported_; // the marks at the last TakeChanges()
    bool allChanged_ = true;
};

} // namespace editor
