// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "painting/PersistentImage.h"

#include <QImage>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace editor {
namespace {

/// A mark and, in the place of the steps that paint it, what its pixels are by definition.
struct Mark {
    bool isCircle;
    bool isDotted;
    int pen;
    QPoint from; // of a circle, the centre
    QPoint to;
    QRgb colour = 0;

    void Draw(PersistentImage& image) const {
        image.SetLineWidth(pen);
        image.SetLineStyle(isDotted ? LineStyle::Dotted : LineStyle::Solid);
        image.SetFillColour(~colour | Opaque);
        isCircle ? image.Circle(from, colour) : image.Line(from, to, colour);
    }

    /// The colour of a pixel that has the colour `below` without the mark.
    [[nodiscard]] QRgb Over(QRgb below, const QPoint& pixel) const {
        if (isCircle) {
            const QPoint distance = pixel - from;
            const int square = QPoint::dotProduct(distance, distance);
            return square <= (pen == 1 ? 2 : 1)    ? ~colour | Opaque
                   : square <= (pen == 1 ? 5 : 10) ? colour
                                                   : below;
        }
        const bool alongX = std::abs(to.x() - from.x()) >= std::abs(to.y() - from.y());
        const auto turned = [alongX](const QPoint& p) { return alongX ? p : p.transposed(); };
        const auto [first, last] =
            std::minmax({turned(from), turned(to)}, [](auto a, auto b) { return a.x() < b.x(); });
        const QPoint step = turned(pixel) - first, all = last - first;
        const double across = 1.0 * step.x() * all.y() / std::max(all.x(), 1);
        const bool isOn = step.x() >= 0 && step.x() <= all.x() &&
                          std::abs(step.y() - std::floor(across + 0.5)) <= pen / 2;
        return isOn && !(isDotted && step.x() % 2 != 0) ? colour : below;
    }
};

/// A mark in or at the edge of `area`: a line through it whose ends may be farther away than any
/// view is large.
Mark RandomMark(const QRect& area, std::mt19937& random) {
    const auto number = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    const bool isCircle = number(0, 2) == 0;
    const int reach = isCircle ? 0 : 1 << number(0, 22);
    const QPoint middle(number(area.left() - 5, area.right() + 5),
                        number(area.top() - 5, area.bottom() + 5));
    const QPoint half(number(-reach, reach), number(0, 4) == 0 ? 0 : number(-reach, reach));
    return {isCircle, number(0, 1) == 0, number(0, 1) == 0 ? 1 : 3, middle - half,
            middle + half + QPoint(number(0, 1), number(0, 1))};
}

/// Gives each pixel of a picture of `area` the colour made of its own and its position.
template <class Colour>
void Recolour(QImage& picture, const QRect& area, const Colour& colour) {
    for (int y = 0; y < area.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < area.width(); ++x) {
            row[x] = colour(row[x], area.topLeft() + QPoint(x, y));
        }
    }
}

/// Paints a part of the view into a picture of `area`.
void PaintInto(QImage& picture, const QRect& area, const PersistentImage& image,
               const QRect& part) {
    const QPoint at = part.topLeft() - area.topLeft();
    auto* row = reinterpret_cast<QRgb*>(picture.scanLine(at.y()));
    image.Paint(row + at.x(), picture.bytesPerLine() / 4, part);
}

TEST(PersistentImage, AnyPartitionAndWhatChangedHaveThePixelsOfThePictureAndTheMarks) {
    std::mt19937 random(7);
    // The sizes of the picture and the view, and what is painted; some of that lies beyond.
    const std::tuple<QSize, QSize, QRect> rows[] = {
        {{30, 20}, {30, 20}, {-6, -4, 43, 29}},
        {{30, 20}, {240, 160}, {0, 0, 253, 169}},
        {{200, 160}, {50, 40}, {0, 0, 63, 49}},
        {{77, 50}, {120, 91}, {0, 0, 133, 100}},
        {{90, 90}, {60, 41}, {0, 0, 73, 50}},
        {{32767, 2}, {262136, 16}, {260001, 0, 2150, 17}},
        {{32767, 2}, {8192, 1}, {6500, 0, 1705, 2}}};
    PersistentImage image;
    for (const auto& [size, stretched, area] : rows) {
        QImage picture(size, QImage::Format_RGB888), screen(area.size(), QImage::Format_RGB32);
        std::generate_n(picture.bits(), picture.sizeInBytes(), random);
        image.SetBackground(Picture(picture), stretched);
        for (const unsigned count : {0U, 300U, 200U, 400U}) {
            SCOPED_TRACE(testing::Message() << stretched.width() << " wide, marks: " << count);
            if (count > 0) { // otherwise the new background has taken the marks away
                image.Clear();
            }
            QImage expected(area.size(), QImage::Format_RGB32), parts = expected;
            Recolour(expected, area,
                     [&, &size = size, &stretched = stretched](QRgb, const QPoint& at) {
                         const qint64 x = qint64{at.x()} * size.width() / stretched.width();
                         const int y = at.y() * size.height() / stretched.height();
                         return QRect(QPoint(0, 0), stretched).contains(at)
                                    ? picture.pixel(static_cast<int>(x), y)
                                    : PersistentImage::PlainColour;
                     });
            std::mt19937 places(7); // The marks of the last time, but for the colours of a few.
            for (unsigned i = 0; i < count; ++i) {
                Mark mark = RandomMark(area, places);
                mark.colour = Opaque | i << 16 | (random() % 9 == 0 ? 0xff00 : 0xff);
                mark.Draw(image);
                Recolour(expected, area, [&](QRgb below, auto at) { return mark.Over(below, at); });
            }
            for (int y = area.top(), height = 0; y <= area.bottom(); y += height) {
                height = 1 + static_cast<int>(random() % 17);
                for (int x = area.left(), width = 0; x <= area.right(); x += width) {
                    width = 1 + static_cast<int>(random() % 23);
                    PaintInto(parts, area, image, QRect(x, y, width, height) & area);
                }
            }
            EXPECT_EQ(parts, expected);
            for (const QRect& changed : image.TakeChanges(area)) {
                PaintInto(screen, area, image, changed);
            }
            EXPECT_EQ(screen, expected);
            EXPECT_TRUE(image.TakeChanges(area).isEmpty());
        }
    }
}

} // namespace
} // namespace editor
