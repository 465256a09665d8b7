// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "platform/PersistentImage.h"

#include "platform/MarkRaster.h"

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

void PaintInto(QImage& screen, const PersistentImage& image, const QRect& area) {
    auto* first = reinterpret_cast<std::uint32_t*>(screen.scanLine(area.top())) + area.left();
    image.Paint(first, screen.bytesPerLine() / 4, area);
}

QImage Painted(const PersistentImage& image, const QRect& area) {
    QImage target(area.size(), QImage::Format_RGB32);
    image.Paint(reinterpret_cast<std::uint32_t*>(target.bits()), target.width(), area);
    return target;
}

/// Draws marks of all kinds in and around `area`, near and far ones.
void DrawRandomMarks(PersistentImage& image, std::mt19937& random, const QRect& area, int count) {
    const auto number = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int i = 0; i < count; ++i) {
        const int beyond = number(0, 9) == 0 ? 300000 : 20;
        const auto x = [&] {
            return static_cast<float>(number(-beyond, area.width() + beyond)) + 0.25F;
        };
        const auto y = [&] { return static_cast<float>(number(-beyond, area.height() + beyond)); };
        image.SetLineWidth(number(0, 1) == 0 ? 1 : 3);
        image.SetLineStyle(number(0, 1) == 0 ? LineStyle::Solid : LineStyle::Dotted);
        image.SetFillColour(0xff000000 | (random() & 0xffffff));
        const std::uint32_t colour = 0xff000000 | (random() & 0xffffff);
        if (number(0, 1) == 0) {
            image.Circle(x(), y(), colour);
        } else {
            image.Line(x(), y(), x(), y(), colour);
        }
    }
}

TEST(PersistentImage, AnyPartitionPaintsThePixelsOfOnePainting) {
    std::mt19937 random(7);
    const std::tuple<int, int, QSize> rows[] = {{30, 20, {30, 20}},
                                                {30, 20, {240, 160}},
                                                {200, 160, {50, 40}},
                                                {77, 50, {120, 91}},
                                                {90, 90, {60, 41}}};
    for (const auto& [pictureWidth, pictureHeight, stretched] : rows) {
        PersistentImage image;
        image.SetBackground(RandomPicture(random, pictureWidth, pictureHeight), stretched);
        const QRect whole(QPoint(0, 0), stretched + QSize(13, 9)); // some of it lies beyond
        DrawRandomMarks(image, random, whole, 60);
        const QImage expected = Painted(image, whole);

        QImage screen(whole.size(), QImage::Format_RGB32);
        for (int y = 0, height = 0; y < whole.height(); y += height) {
            height = 1 + static_cast<int>(random() % 17);
            for (int x = 0, width = 0; x < whole.width(); x += width) {
                width = 1 + static_cast<int>(random() % 23);
                PaintInto(screen, image, QRect(x, y, width, height) & whole);
            }
        }
        EXPECT_EQ(screen, expected) << stretched.width();
    }
}

TEST(PersistentImage, PaintingWhatChangedGivesThePixelsOfAFullPainting) {
    std::mt19937 random(11);
    const QRect whole(0, 0, 150, 110);
    PersistentImage image;
    QImage screen(whole.size(), QImage::Format_RGB32);
    for (int frame = 0; frame < 300; ++frame) {
        if (frame % 50 == 0) {
            image.SetBackground(RandomPicture(random, 40, 30), whole.size() - QSize(frame / 10, 0));
        }
        // Most marks are those of the frame before.
        std::mt19937 marks(static_cast<std::mt19937::result_type>(frame / 10));
        image.Clear();
        DrawRandomMarks(image, marks, whole, 20);
        DrawRandomMarks(image, random, whole, frame % 3);
        DrawRandomMarks(image, marks, whole, 5);
        for (const QRect& changed : image.TakeChanges(whole)) {
            PaintInto(screen, image, changed);
        }
        ASSERT_EQ(screen, Painted(image, whole)) << frame;
    }
    EXPECT_TRUE(image.TakeChanges(whole).isEmpty());
}

TEST(PersistentImage, EachViewPixelShowsItsLevelPixelAlsoInTheLargestView) {
    std::mt19937 random(3);
    const Picture picture = RandomPicture(random, 32767, 2);
    PersistentImage image;
    image.SetBackground(picture, QSize(262136, 16));
    const QImage end = Painted(image, QRect(260001, 0, 2150, 17));
    for (int x = 0; x < 2135; ++x) {
        ASSERT_EQ(end.pixel(x, 7), picture.row(0)[(260001 + x) / 8]);
        ASSERT_EQ(end.pixel(x, 8), picture.row(1)[(260001 + x) / 8]);
    }
    EXPECT_EQ(end.pixel(2135, 0), PersistentImage::PlainColour);
    EXPECT_EQ(end.pixel(0, 16), PersistentImage::PlainColour);

    image.SetBackground(picture, QSize(8192, 1));
    const QImage quarter = Painted(image, QRect(6500, 0, 1692, 1));
    for (int x = 0; x < 1692; ++x) {
        ASSERT_EQ(quarter.pixel(x, 0), picture.row(0)[(6500LL + x) * 32767 / 8192]);
    }
}

TEST(PersistentImage, ALineOfAnyLengthHasTheNearestPixelsFromEitherEnd) {
    std::mt19937 random(5);
    const QRect whole(100, 200, 90, 70);
    for (int i = 0; i < 3000; ++i) {
        // Through the middle of the area, as far away as a view can be large, and further.
        const int reach = 1 << random() % 21;
        const auto number = [&] { return static_cast<int>(random() % (2 * reach + 1)) - reach; };
        const QPoint middle = whole.center() + QPoint(static_cast<int>(random() % 9), 0);
        const QPoint half(number(), i % 5 == 0 ? 0 : number());
        const QPoint from = middle - half, to = middle + half;
        const int every = 1 + i % 2;
        PersistentImage image;
        image.SetLineStyle(every == 1 ? LineStyle::Solid : LineStyle::Dotted);
        image.Line(static_cast<float>(from.x()), static_cast<float>(from.y()),
                   static_cast<float>(to.x()), static_cast<float>(to.y()), Red);
        QImage expected(whole.size(), QImage::Format_RGB32);
        expected.fill(PersistentImage::PlainColour);
        const LineSteps steps(to, from);
        const QPoint first = steps.At(0), last = steps.At(steps.Count() - 1);
        ASSERT_TRUE((first == from && last == to) || (first == to && last == from)) << i;
        ASSERT_EQ(steps.Count(), 2 * std::max(std::abs(half.x()), std::abs(half.y())) + 1) << i;
        const auto [enters, leaves] = steps.Inside(whole);
        ASSERT_TRUE(enters == 0 || !whole.contains(steps.At(enters - 1))) << i;
        ASSERT_TRUE(leaves + 1 == steps.Count() || !whole.contains(steps.At(leaves + 1))) << i;
        for (std::int64_t step = enters; step <= leaves; ++step) {
            if (step % every == 0) {
                expected.setPixel(steps.At(step) - whole.topLeft(), Red);
            }
        }
        ASSERT_EQ(Painted(image, whole), expected) << i;
    }
}

} // namespace
} // namespace editor
