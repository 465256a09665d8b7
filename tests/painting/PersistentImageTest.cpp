// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "painting/PersistentImage.h"

#include <QImage>

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace editor {
namespace {

constexpr std::uint32_t Red = 0xffff0000;
constexpr std::uint32_t Blue = 0xff0000ff;

/// Paints a part of the view into the pixels of the screen, which shows the view from `origin` on.
void PaintInto(QImage& screen, const PersistentImage& image, const QRect& part,
               const QPoint& origin) {
    auto* row = reinterpret_cast<std::uint32_t*>(screen.scanLine(part.top() - origin.y()));
    image.Paint(row + part.left() - origin.x(), screen.bytesPerLine() / 4, part);
}

QImage Painted(const PersistentImage& image, const QRect& area) {
    QImage target(area.size(), QImage::Format_RGB32);
    PaintInto(target, image, area, area.topLeft());
    return target;
}

/// The image of `area` whose pixels have the colours that the view's pixels should have.
QImage Expected(const QRect& area, const std::function<QRgb(const QPoint&)>& colourOf) {
    QImage expected(area.size(), QImage::Format_RGB32);
    for (int i = 0; i < area.width() * area.height(); ++i) {
        const QPoint pixel(i % area.width(), i / area.width());
        expected.setPixel(pixel, colourOf(area.topLeft() + pixel));
    }
    return expected;
}

/// Draws marks of all kinds in and around `area`, near and far ones: the same ones for the same
/// area, but for the colours of a few.
void DrawMarks(PersistentImage& image, const QRect& area, unsigned count, std::mt19937& random) {
    std::mt19937 places(7);
    const auto number = [&places](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(places);
    };
    for (unsigned i = 0; i < count; ++i) {
        const int beyond = number(0, 9) == 0 ? 300000 : 20;
        const auto point = [&] {
            const int x = area.left() + number(-beyond, area.width() + beyond);
            return QPoint(x, area.top() + number(-beyond, area.height() + beyond));
        };
        const std::uint32_t colour = Opaque | i << 16 | (random() % 9 == 0 ? 0xff00 : 0xff);
        image.SetLineWidth(number(0, 1) == 0 ? 1 : 3);
        image.SetLineStyle(number(0, 1) == 0 ? LineStyle::Solid : LineStyle::Dotted);
        image.SetFillColour(~colour | Opaque);
        if (number(0, 1) == 0) {
            image.Circle(point(), colour);
        } else {
            image.Line(point(), point(), colour);
        }
    }
}

TEST(PersistentImage, EachViewPixelShowsItsLevelPixelAndAnyPartitionThePixelsOfOnePainting) {
    std::mt19937 random(7);
    // The sizes of the picture and the view, and what is painted; some of that lies beyond.
    const std::tuple<QSize, QSize, QRect> rows[] = {
        {{30, 20}, {30, 20}, {0, 0, 43, 29}},
        {{30, 20}, {240, 160}, {0, 0, 253, 169}},
        {{200, 160}, {50, 40}, {0, 0, 63, 49}},
        {{77, 50}, {120, 91}, {0, 0, 133, 100}},
        {{90, 90}, {60, 41}, {0, 0, 73, 50}},
        {{32767, 2}, {262136, 16}, {260001, 0, 2150, 17}},
        {{32767, 2}, {8192, 1}, {6500, 0, 1705, 2}}};
    PersistentImage image;
    for (const auto& [size, stretched, whole] : rows) {
        SCOPED_TRACE(stretched.width());
        QImage picture(size, QImage::Format_RGB32);
        std::generate_n(reinterpret_cast<std::uint32_t*>(picture.bits()),
                        size.width() * size.height(), std::ref(random));
        image.SetBackground(Picture(picture), stretched);
        const QImage ground = Painted(image, whole);
        EXPECT_EQ(ground, Expected(whole, [&](const QPoint& pixel) {
                      const qint64 x = qint64{pixel.x()} * size.width() / stretched.width();
                      const int y = pixel.y() * size.height() / stretched.height();
                      return QRect(QPoint(0, 0), stretched).contains(pixel)
                                 ? picture.pixel(static_cast<int>(x), y)
                                 : PersistentImage::PlainColour;
                  }));
        QImage screen = ground;
        for (const unsigned count : {60U, 40U, 70U}) {
            image.Clear();
            EXPECT_EQ(Painted(image, whole), ground);
            DrawMarks(image, whole, count, random);
            for (const QRect& changed : image.TakeChanges(whole)) {
                PaintInto(screen, image, changed, whole.topLeft());
            }
            EXPECT_EQ(screen, Painted(image, whole));
            EXPECT_TRUE(image.TakeChanges(whole).isEmpty());
        }
        QImage parts(whole.size(), QImage::Format_RGB32);
        for (int y = whole.top(), height = 0; y <= whole.bottom(); y += height) {
            height = 1 + static_cast<int>(random() % 17);
            for (int x = whole.left(), width = 0; x <= whole.right(); x += width) {
                width = 1 + static_cast<int>(random() % 23);
                PaintInto(parts, image, QRect(x, y, width, height) & whole, whole.topLeft());
            }
        }
        EXPECT_EQ(parts, screen);
    }
}

TEST(PersistentImage, ACircleIsRoundAndItsInsideIsSeenWithAnyPen) {
    const QRect whole(50, 60, 9, 9);
    // The pen, and the largest square of the distance of an inner pixel and of one of the outline.
    for (const auto& [pen, inside, outline] : {std::array{1, 2, 5}, {3, 1, 10}}) {
        PersistentImage image;
        image.SetLineWidth(pen);
        image.SetFillColour(Blue);
        image.Circle(whole.center(), Red);
        const auto colourOf = [&, inside = inside, outline = outline](const QPoint& pixel) {
            const QPoint distance = pixel - whole.center();
            const int square = QPoint::dotProduct(distance, distance);
            return square <= inside ? Blue : square <= outline ? Red : PersistentImage::PlainColour;
        };
        EXPECT_EQ(Painted(image, whole), Expected(whole, colourOf)) << pen;
    }
}

TEST(PersistentImage, ALineOfAnyLengthHasTheNearestPixelsFromEitherEnd) {
    std::mt19937 random(5);
    const QRect whole(100, 200, 90, 70);
    for (int i = 0; i < 3000; ++i) {
        // Through the middle of the area, as far away as a view can be large, and further.
        const int reach = 1 << random() % 21;
        const auto number = [&] { return static_cast<int>(random() % (2 * reach + 1)) - reach; };
        const QPoint half(number(), i % 5 == 0 ? 0 : number());
        const int pen = i % 3 == 0 ? 3 : 1;
        PersistentImage image;
        image.SetLineWidth(pen);
        image.SetLineStyle(i % 2 == 0 ? LineStyle::Solid : LineStyle::Dotted);
        image.Line(whole.center() - half, whole.center() + half, Red);
        const bool alongX = std::abs(half.x()) >= std::abs(half.y());
        const QPoint end = alongX ? half : half.transposed();
        const auto colourOf = [&](const QPoint& pixel) {
            const QPoint seen = pixel - whole.center(), at = alongX ? seen : seen.transposed();
            const double across = 1.0 * at.x() * end.y() / (end.x() == 0 ? 1 : end.x());
            const bool isOn = std::abs(at.x()) <= std::abs(end.x()) &&
                              std::abs(at.y() - std::floor(across + 0.5)) <= pen / 2;
            const bool isDrawn = i % 2 == 0 || (at.x() - end.x()) % 2 == 0;
            return isOn && isDrawn ? Red : PersistentImage::PlainColour;
        };
        ASSERT_EQ(Painted(image, whole), Expected(whole, colourOf)) << i;
    }
}

} // namespace
} // namespace editor
