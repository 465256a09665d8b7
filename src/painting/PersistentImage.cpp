// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "painting/PersistentImage.h"

#include "painting/MarkRaster.h"
#include "pictures/WideRows.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace editor {
namespace {

// Beyond this many small rectangles, a region costs more than painting everything.
constexpr int MaximumRegionRects = 256;

// A line's changed area is made of pieces of this length, since the rectangle around the whole of a
// long slanted line would be far too large.
constexpr int ChangePiece = 64;

// Rows are copied in runs of this many view pixels; with each, the same run of the next row is
// prefetched.
constexpr int RunLength = 512;

int SourceIndex(int view, int pictureSize, int stretchedSize) {
    return static_cast<int>(static_cast<std::int64_t>(view) * pictureSize / stretchedSize);
}

/// Some view pixels side by side, and where in a row of the picture their colours come from. Each
/// zoom has a loop of its own; only where neither size is a multiple of the other, an index is
/// looked up for every pixel.
class SourceRun {
  public:
    SourceRun(int first, int count, int pictureSize, int stretchedSize)
        : first_(SourceIndex(first, pictureSize, stretchedSize)),
          last_(SourceIndex(first + count - 1, pictureSize, stretchedSize)), count_(count) {
        if (pictureSize % stretchedSize == 0) {
            step_ = pictureSize / stretchedSize;
        } else if (stretchedSize % pictureSize == 0) {
            repeat_ = stretchedSize / pictureSize;
            repeated_ = first % repeat_;
        } else {
            indices_.resize(static_cast<std::size_t>(count));
            for (int i = 0; i < count; ++i) {
                indices_[static_cast<std::size_t>(i)] =
                    SourceIndex(first + i, pictureSize, stretchedSize);
            }
        }
    }

    /// Prefetches the run's pixels of `row`. The rows of a picture are too far apart in memory for
    /// the processor to foresee which comes next.
    void Prefetch(const std::uint32_t* row) const { editor::Prefetch(row + first_, row + last_); }

    /// Writes the run's pixels of `row`.
    void Copy(std::uint32_t* target, const std::uint32_t* row) const {
        if (step_ == 1) {
            std::memcpy(target, row + first_,
                        static_cast<std::size_t>(count_) * sizeof(std::uint32_t));
        } else if (step_ == 2) {
            CopyEvery(std::integral_constant<int, 2>(), target, row + first_);
        } else if (step_ == 4) {
            CopyEvery(std::integral_constant<int, 4>(), target, row + first_);
        } else if (step_ > 0) {
            CopyEvery(step_, target, row + first_);
        } else if (repeat_ == 2) {
            Repeat(std::integral_constant<int, 2>(), target, row + first_);
        } else if (repeat_ == 4) {
            Repeat(std::integral_constant<int, 4>(), target, row + first_);
        } else if (repeat_ == 8) {
            Repeat(std::integral_constant<int, 8>(), target, row + first_);
        } else if (repeat_ > 0) {
            Repeat(repeat_, target, row + first_);
        } else {
            std::transform(indices_.begin(), indices_.end(), target,
                           [row](int index) { return row[index]; });
        }
    }

  private:
    // `step` and `times` are constants of the compiler's for the zooms, variables for other sizes.
    template <class Step>
    void CopyEvery(Step step, std::uint32_t* target, const std::uint32_t* source) const {
        for (int i = 0; i < count_; ++i) {
            target[i] = source[i * step];
        }
    }

    template <class Times>
    void Repeat(Times times, std::uint32_t* target, const std::uint32_t* source) const {
        std::uint32_t* const end = target + count_;
        const std::ptrdiff_t begun = times - repeated_; // view pixels left of the first one
        target = std::fill_n(target, std::min<std::ptrdiff_t>(begun, count_), *source);
        for (; end - target >= times; target += times) {
            // A copy, which no store below can change; so the compiler can use wide ones.
            const std::uint32_t pixel = *++source;
            for (int i = 0; i < times; ++i) {
                target[i] = pixel;
            }
        }
        if (target < end) {
            std::fill(target, end, source[1]);
        }
    }

    int first_; // the run's first and last pixel in the picture's row
    int last_;
    int count_;                // view pixels
    int step_ = 0;             // picture pixels per view pixel, where that is a whole number
    int repeat_ = 0;           // view pixels per picture pixel, where that is a whole number
    int repeated_ = 0;         // how many view pixels of the first picture pixel are before the run
    std::vector<int> indices_; // for all other sizes: each view pixel's picture pixel
};

} // namespace

void PersistentImage::SetBackground(const Picture& picture, const QSize& size) {
    background_ = size.isEmpty() ? Picture() : picture;
    stretched_ = size;
    marks_.clear();
    allChanged_ = true;
}

void PersistentImage::Clear() {
    marks_.clear();
}

void PersistentImage::Add(Mark mark) {
    const auto [top, bottom] = mark.line.Rows();
    mark.top = top - MaximumReach;
    mark.bottom = bottom + MaximumReach;
    marks_.push_back(mark);
}

void PersistentImage::Circle(const QPoint& centre, std::uint32_t colour) {
    Mark mark = pen_;
    mark.kind = MarkKind::Circle;
    mark.style = LineStyle::Solid;
    mark.colour = colour;
    mark.line = LineSteps(centre, centre);
    Add(mark);
}

void PersistentImage::Line(const QPoint& from, const QPoint& to, std::uint32_t colour) {
    Mark mark = pen_;
    mark.fill = 0;
    mark.colour = colour;
    mark.line = LineSteps(from, to);
    Add(mark);
}

void PersistentImage::AddChange(QRegion& region, const Mark& mark, const QRect& visible) {
    const int reach = mark.kind == MarkKind::Circle ? MarkReach(mark.width) : mark.width / 2;
    const auto add = [&](const QPoint& from, const QPoint& to) {
        const QRect box(
            QPoint(std::min(from.x(), to.x()) - reach, std::min(from.y(), to.y()) - reach),
            QPoint(std::max(from.x(), to.x()) + reach, std::max(from.y(), to.y()) + reach));
        const QRect seen = box & visible;
        if (!seen.isEmpty()) {
            region |= seen;
        }
    };
    const auto [first, last] = mark.line.Inside(visible.adjusted(-reach, -reach, reach, reach));
    for (std::int64_t i = first; i <= last; i += ChangePiece) {
        add(mark.line.At(i), mark.line.At(std::min(i + ChangePiece, last)));
    }
}

QRegion PersistentImage::TakeChanges(const QRect& visible) {
    QRegion region;
    if (allChanged_) {
        region = visible;
    }
    // A pixel outside all marks that differ is painted by the same marks in the same order as
    // before.
    const std::size_t longer = std::max(marks_.size(), reported_.size());
    for (std::size_t i = 0; i < longer && !allChanged_; ++i) {
        const bool before = i < reported_.size();
        const bool now = i < marks_.size();
        if (before && now && reported_[i] == marks_[i]) {
            continue;
        }
        if (before) {
            AddChange(region, reported_[i], visible);
        }
        if (now) {
            AddChange(region, marks_[i], visible);
        }
        if (region.rectCount() > MaximumRegionRects) {
            region = visible;
            break;
        }
    }
    reported_ = marks_;
    allChanged_ = false;
    return region;
}

void PersistentImage::PaintBackground(std::uint32_t* target, qsizetype stride,
                                      const QRect& exposed) const {
    const QRect covered = HasBackground() ? exposed & QRect(QPoint(0, 0), stretched_) : QRect();
    if (covered != exposed) {
        for (int y = 0; y < exposed.height(); ++y) {
            std::fill_n(target + y * stride, exposed.width(), PlainColour);
        }
    }
    if (covered.isEmpty()) {
        return;
    }
    std::vector<SourceRun> runs;
    for (int x = covered.left(); x <= covered.right(); x += RunLength) {
        runs.emplace_back(x, std::min(RunLength, covered.right() + 1 - x), background_.width(),
                          stretched_.width());
    }
    const auto sourceRow = [this](int y) {
        return SourceIndex(y, background_.height(), stretched_.height());
    };
    std::uint32_t* row =
        target + (covered.top() - exposed.top()) * stride + (covered.left() - exposed.left());
    const std::uint32_t* drawn = nullptr; // the view row that shows row `drawnSource` already
    int drawnSource = -1;
    for (int y = covered.top(); y <= covered.bottom(); ++y, row += stride) {
        const int source = sourceRow(y);
        if (source == drawnSource) {
            std::memcpy(row, drawn,
                        static_cast<std::size_t>(covered.width()) * sizeof(std::uint32_t));
            continue;
        }
        const int next = std::min(std::max(source + 1, sourceRow(y + 1)), background_.height() - 1);
        for (std::size_t i = 0; i < runs.size(); ++i) {
            runs[i].Prefetch(background_.row(next));
            runs[i].Copy(row + static_cast<std::ptrdiff_t>(i) * RunLength, background_.row(source));
        }
        drawn = row;
        drawnSource = source;
    }
}

void PersistentImage::Paint(std::uint32_t* target, qsizetype stride, const QRect& exposed) const {
    if (exposed.isEmpty()) {
        return;
    }
    PaintBackground(target, stride, exposed);
    const RasterTarget raster{target, stride, exposed};
    for (const Mark& mark : marks_) {
        if (mark.bottom < exposed.top() || mark.top > exposed.bottom()) {
            continue;
        }
        if (mark.kind == MarkKind::Circle) {
            PaintCircle(raster, mark.line.At(0), mark.width, mark.colour, mark.fill);
        } else {
            PaintLine(raster, mark.line, mark.width, mark.style == LineStyle::Dotted, mark.colour);
        }
    }
}

} // namespace editor
