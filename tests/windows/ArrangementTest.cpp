// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/Arrangement.h"

#include <QRect>

#include <gtest/gtest.h>
#include <random>

namespace editor::test {

constexpr int Bar = 16;

/// An area as it is used: a view that scrolls, and up to two pinned windows.
class AnyArea : public testing::Test {
  protected:
    int Number(int low, int high) { return std::uniform_int_distribution(low, high)(random); }
    QSize Size(int low, int high) { return {Number(low, high), Number(low, high)}; }

    /// What a user can do: other windows, another size of the area, a window moved, a bar moved.
    void Change() {
        const Arrangement now = Arranged(scrolled);
        const auto which = std::size_t(Number(0, int(forms.size()) - 1));
        switch (Number(0, 3)) {
        case 0:
            forms = {{Size(1, 1500), {.place = {Number(0, 1) * Number(0, 90), Number(0, 60)}}}};
            for (int pinned = Number(0, 2); pinned > 0; --pinned) {
                forms.push_back({Size(60, 260), {.pinned = true, .fromRight = Number(0, 1) == 1}});
            }
            break;
        case 1:
            area = Size(Number(0, 9) == 0 ? 0 : 40, 700);
            break;
        case 2:
            Move(which, now);
            break;
        default:
            scrolled = {Number(-900, 1900), Number(-900, 1900)};
        }
    }

    /// A pinned window stays where it was moved, as far from the side that it is nearer to.
    void Move(std::size_t which, const Arrangement& before) {
        const auto& [size, standing] = forms[which];
        const QPoint slid = before.places[which].slid;
        const QPoint to(Number(-50, before.room.width()), Number(-50, before.room.height()));
        MoveTo(to, size, before.room, slid, forms[which].standing, scrolled);
        const bool isInside = QRect({}, before.room).contains({to + slid, size});
        const bool isRight = 2 * (to + slid).x() + size.width() > before.room.width();
        for (const int wider : {0, 100, -100}) {
            area += QSize(wider, 0);
            const Arrangement after = Arranged(scrolled);
            const QPoint follows(isRight ? (after.room - before.room).width() : 0, 0);
            const auto& [corner, slides] = after.places[which];
            EXPECT_TRUE(!standing.pinned || !isInside || corner + slides == to + slid + follows);
        }
    }

    [[nodiscard]] Arrangement Arranged(const QPoint& asked) const {
        return Arrange(area, Bar, forms, asked);
    }

    /// Whether `pixel` of the view can be scrolled to where no pinned window lies: to some place
    /// of the room, or as near to it as scrolling goes.
    [[nodiscard]] bool CanBeBroughtClear(const QPoint& pixel, const QSize& room) const {
        const int step = std::min({12, (room.width() + 1) / 2, (room.height() + 1) / 2});
        for (int y = 0; y < room.height(); y += step) {
            for (int x = 0; x < room.width(); x += step) {
                const auto there = Arranged(forms[0].standing.place + pixel - QPoint(x, y));
                const QPoint at = there.places[0].corner + pixel;
                bool clear = QRect({}, there.room).contains(at);
                for (std::size_t i = 1; i < forms.size(); ++i) {
                    clear = clear && !QRect(there.places[i].corner, forms[i].size).contains(at);
                }
                if (clear) {
                    return true;
                }
            }
        }
        return false;
    }

    std::vector<StandingForm> forms = {{{100, 100}, {}}};
    QSize area;
    QPoint scrolled;
    std::mt19937 random{13};
};

TEST_F(AnyArea, IsArrangedOnceForAllAndHidesNothing) {
    for (int change = 0; change < 700; ++change) {
        Change();
        SCOPED_TRACE(change);
        const Arrangement once = Arranged(scrolled);
        const QSize less = (area - QSize(Bar, Bar)).expandedTo({0, 0});
        ASSERT_TRUE(once.across.minimum <= 0 && once.across.maximum >= 0);
        ASSERT_TRUE(once.down.minimum <= 0 && once.down.maximum >= 0);
        ASSERT_TRUE(!once.across.NeedsBar() || once.room.height() == less.height());
        ASSERT_TRUE(!once.down.NeedsBar() || once.room.width() == less.width());
        scrolled = once.scrolled;
        const Arrangement twice = Arranged(scrolled);
        const Arrangement end = Arranged({once.across.maximum, once.down.maximum});
        ASSERT_EQ(std::tuple(twice.scrolled, twice.room), std::tuple(scrolled, once.room));
        for (std::size_t i = 0; i < forms.size(); ++i) {
            const auto& [corner, slid] = once.places[i];
            const QSize size = forms[i].size;
            ASSERT_EQ(twice.places[i].corner, corner);
            if (forms[i].standing.pinned) {
                const bool fits = size.boundedTo(once.room) == size && slid.isNull();
                ASSERT_TRUE(!fits || QRect({}, once.room).contains({corner, size}));
                const QPoint far = end.places[i].corner + QPoint(size.width(), size.height());
                ASSERT_TRUE(far.x() <= end.room.width() && far.y() <= end.room.height());
            }
        }
        const QPoint last(forms[0].size.width() - 1, forms[0].size.height() - 1);
        for (const QPoint& pixel : {QPoint(), last, QPoint(Number(0, last.x()), last.y()),
                                    QPoint(0, Number(0, last.y()))}) {
            ASSERT_TRUE(once.room.isEmpty() || CanBeBroughtClear(pixel, once.room));
        }
    }
}

} // namespace editor::test
