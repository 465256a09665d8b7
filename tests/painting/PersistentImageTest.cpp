// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "painting/PersistentImage.h"

#include "painting/MarkRaster.h"

#include <QImage>

#include <gtest/gtest.h>
#include <random>

namespace editor {
namespace {

constexpr std::uint32_t Red = 0xffff0000;

Picture RandomPicture(std::mt19937& random, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    std::generate_n(reinterpret_cast<std::uint32_t*>(image.bits()), width * height,
                    [&] { return 0xff000000U | static_cast<std::uint32_t>(random()); });
    return Picture(image);
}

/// Paints a part of the view into the pixels of the screen, which shows the view from `origin` on.
void PaintInto(QImage& screen, const PersistentImage& image, const QRect& part,
               const QPoint& origin = {}) {
    auto* row = reinterpret_cast<std::uint32_t*>(screen.scanLine(part.top() - origin.y()));
    image.Paint(row + part.left() - origin.x(), screen.bytesPerLine() / 4, part);
}

QImage Painted(const PersistentImage& image, const QRect& area) {
    QImage target(area.size(), QImage::Format_RGB32);
    PaintInto(target, image, area, area.topLeft());
    return target;
}

/// Draws marks of all kinds in and around `area`, near and far ones.
void DrawRandomMarks(PersistentImage& image, std::mt19937& random, const QRect& area, int count) {
    const auto number = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int i = 0; i < count; ++i) {
        const int beyond = number(0, 9) == 0 ? 300000 : 20;
        const auto point = [&] {
            const int x = area.left() + number(-beyond, area.width() + beyond);
            return QPoint(x, number(-beyond, area.height() + beyond));
        };
        image.SetLineWidth(number(0, 1) == 0 ? 1 : 3);
        image.SetLineStyle(number(0, 1) == 0 ? LineStyle::Solid : LineStyle::Dotted);
        image.SetFillColour(0xff000000 | (random() & 0xffffff));
        const std::uint32_t colour = 0xff000000 | (random() & 0xffffff);
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
    for (const auto& [size, stretched, whole] : rows) {
        SCOPED_TRACE(stretched.width());
        const Picture picture = RandomPicture(random, size.width(), size.height());
        PersistentImage image;
        image.SetBackground(picture, stretched);
        const QImage ground = Painted(image, whole);
        for (int y = whole.top(); y <= whole.bottom(); ++y) {
            for (std::int64_t x = whole.left(); x <= whole.right(); ++x) {
                ASSERT_EQ(
                    ground.pixel(static_cast<int>(x) - whole.left(), y),
                    x >= stretched.width() || y >= stretched.height()
                        ? PersistentImage::PlainColour
                        : picture.row(y * size.height() /
                                      stretched.height())[x * size.width() / stretched.width()]);
            }
        }
        DrawRandomMarks(image, random, whole, 60);
        QImage screen(whole.size(), QImage::Format_RGB32);
        for (int y = whole.top(), height = 0; y <= whole.bottom(); y += height) {
            height = 1 + static_cast<int>(random() % 17);
            for (int x = whole.left(), width = 0; x <= whole.right(); x += width) {
                width = 1 + static_cast<int>(random() % 23);
                PaintInto(screen, image, QRect(x, y, width, height) & whole, whole.topLeft());
            }
        }
        EXPECT_EQ(screen, Painted(image, whole));
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
        const QPoint from = whole.center() - half, to = whole.center() + half;
        const int every = 1 + i % 2;
        PersistentImage image;
        image.SetLineStyle(every == 1 ? LineStyle::Solid : LineStyle::Dotted);
        image.Line(from, to, Red);
        QImage expected(whole.size(), QImage::Format_RGB32);
        expected.fill(PersistentImage::PlainColour);
        const LineSteps steps(to, from);
        ASSERT_EQ(steps.Count(), 2 * std::max(std::abs(half.x()), std::abs(half.y())) + 1) << i;
        ASSERT_TRUE(steps.At(0) == from || steps.At(0) == to) << i;
        // Near enough to the middle every step is looked at, whether it is said to be inside or
        // not.
        const std::int64_t middle = steps.Count() / 2;
        for (std::int64_t step = std::max<std::int64_t>(0, middle - 200);
             step < std::min(steps.Count(), middle + 200); ++step) {
            const QPoint pixel = steps.At(step);
            const qint64 across =
                qint64{(pixel - from).x()} * half.y() - qint64{(pixel - from).y()} * half.x();
            ASSERT_LE(4 * std::abs(across), steps.Count() - 1) << i << ": half a pixel at most";
            if (step % every == 0 && whole.contains(pixel)) {
                expected.setPixel(pixel - whole.topLeft(), Red);
            }
        }
        ASSERT_EQ(Painted(image, whole), expected) << i;
    }
}

} // namespace
} // namespace editor
