#include "platform/PersistentImage.h"

#include "platform/MarkRaster.h"

#include <QImage>

#include <gtest/gtest.h>
#include <random>

namespace editor {
namespace {

constexpr std::uint32_t Red = 0xffff0000;
constexpr std::uint32_t Green = 0xff00ff00;

Picture RandomPicture(std::mt19937& random, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, 0xff000000 | (random() & 0xffffff));
        }
    }
    return Picture(image);
}

QImage Painted(const PersistentImage& image, const QRect& area) {
    QImage target(area.size(), QImage::Format_RGB32);
    image.Paint(reinterpret_cast<std::uint32_t*>(target.bits()), target.bytesPerLine() / 4, area);
    return target;
}

void PaintInto(QImage& screen, const PersistentImage& image, const QRect& area) {
    const QImage part = Painted(image, area);
    for (int y = 0; y < area.height(); ++y) {
        for (int x = 0; x < area.width(); ++x) {
            screen.setPixel(area.left() + x, area.top() + y, part.pixel(x, y));
        }
    }
}

/// Draws marks of all kinds in and around `area`, near and far ones.
void DrawRandomMarks(PersistentImage& image, std::mt19937& random, const QRect& area, int count) {
    const auto number = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int i = 0; i < count; ++i) {
        const int beyond = number(0, 9) == 0 ? 300000 : 20;
        const auto x = [&] {
            return static_cast<float>(number(area.left() - beyond, area.right() + beyond)) + 0.25F;
        };
        const auto y = [&] {
            return static_cast<float>(number(area.top() - beyond, area.bottom() + beyond));
        };
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
    const std::pair<QSize, QSize> sizes[] = {{{30, 20}, {30, 20}},
                                             {{30, 20}, {240, 160}},
                                             {{200, 160}, {50, 40}},
                                             {{77, 50}, {120, 91}},
                                             {{90, 90}, {60, 41}}};
    for (const auto& [pictureSize, stretched] : sizes) {
        PersistentImage image;
        image.SetBackground(RandomPicture(random, pictureSize.width(), pictureSize.height()),
                            stretched);
        const QRect whole(QPoint(0, 0), stretched + QSize(13, 9)); // some of it lies beyond
        DrawRandomMarks(image, random, whole, 60);
        const QImage expected = Painted(image, whole);

        QImage screen(whole.size(), QImage::Format_RGB32);
        for (int y = 0; y < whole.height();) {
            const int height = std::min(1 + static_cast<int>(random() % 17), whole.height() - y);
            for (int x = 0; x < whole.width();) {
                const int width = std::min(1 + static_cast<int>(random() % 23), whole.width() - x);
                PaintInto(screen, image, QRect(x, y, width, height));
                x += width;
            }
            y += height;
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
    const QImage end = Painted(image, QRect(262100, 0, 50, 17));
    for (int x = 0; x < 36; ++x) {
        ASSERT_EQ(end.pixel(x, 7), picture.row(0)[(262100 + x) / 8]);
        ASSERT_EQ(end.pixel(x, 8), picture.row(1)[(262100 + x) / 8]);
    }
    EXPECT_EQ(end.pixel(36, 0), PersistentImage::PlainColour);
    EXPECT_EQ(end.pixel(0, 16), PersistentImage::PlainColour);

    image.SetBackground(picture, QSize(8192, 1));
    const QImage quarter = Painted(image, QRect(8000, 0, 100, 1));
    for (int x = 0; x < 100; ++x) {
        ASSERT_EQ(quarter.pixel(x, 0), picture.row(0)[(8000LL + x) * 32767 / 8192]);
    }
}

TEST(PersistentImage, CirclesShowTheirFillAndRoundTheirCentre) {
    PersistentImage image;
    image.SetFillColour(Green);
    image.Circle(10.5F, 9.5F, Red); // halves to even: (10, 10)
    image.SetLineWidth(3);
    image.SetLineStyle(LineStyle::Dotted);
    image.Circle(30, 10, Red);
    const QImage seen = Painted(image, QRect(0, 0, 40, 20));
    EXPECT_EQ(seen.pixel(10, 10), Green);
    EXPECT_EQ(seen.pixel(11, 11), Green);
    EXPECT_EQ(seen.pixel(12, 10), Red);
    EXPECT_EQ(seen.pixel(12, 12), PersistentImage::PlainColour);
    EXPECT_EQ(seen.pixel(13, 10), PersistentImage::PlainColour);
    EXPECT_EQ(seen.pixel(30, 10), Green);
    EXPECT_EQ(seen.pixel(32, 10), Red);
    EXPECT_EQ(seen.pixel(33, 10), Red);
    EXPECT_EQ(seen.pixel(34, 10), PersistentImage::PlainColour);
}

TEST(PersistentImage, LinesJoinTheirEndsInEveryDirection) {
    for (int angle = 0; angle < 32; ++angle) {
        const QPoint end(32 + qRound(25 * std::cos(angle * 0.19635)),
                         32 + qRound(25 * std::sin(angle * 0.19635)));
        PersistentImage there;
        PersistentImage back;
        PersistentImage solid;
        solid.Line(32, 32, static_cast<float>(end.x()), static_cast<float>(end.y()), Red);
        there.SetLineStyle(LineStyle::Dotted);
        back.SetLineStyle(LineStyle::Dotted);
        there.Line(32, 32, static_cast<float>(end.x()), static_cast<float>(end.y()), Red);
        back.Line(static_cast<float>(end.x()), static_cast<float>(end.y()), 32, 32, Red);
        const QRect whole(0, 0, 64, 64);
        const QImage line = Painted(solid, whole);
        const QImage dots = Painted(there, whole);
        EXPECT_EQ(dots, Painted(back, whole)) << angle;
        EXPECT_EQ(line.pixel(32, 32), Red) << angle;
        EXPECT_EQ(line.pixel(end), Red) << angle;

        int pixels = 0;
        int dotted = 0;
        for (int i = 0; i < 64 * 64; ++i) {
            pixels += line.pixel(i % 64, i / 64) == Red ? 1 : 0;
            dotted += dots.pixel(i % 64, i / 64) == Red ? 1 : 0;
        }
        const int steps = std::max(std::abs(end.x() - 32), std::abs(end.y() - 32)) + 1;
        EXPECT_EQ(pixels, steps) << angle;
        EXPECT_EQ(dotted, (steps + 1) / 2) << angle;
    }
}

} // namespace
} // namespace editor
