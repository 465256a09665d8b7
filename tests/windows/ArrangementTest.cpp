// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/Arrangement.h"

#include <QRect>

#include <gtest/gtest.h>
#include <random>

namespace editor::test {

constexpr int Bar = 16;

/// An area as it is used: a view that scrolls, and one or two pinned windows.
class AnyArea : public testing::Test {
  protected:
    int Number(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
    QSize Size(int low, int high) { return {Number(low, high), Number(low, high)}; }

    void Make() {
        forms = {{Size(1, 1500), {.place = {Number(0, 1) * Number(0, 90), Number(0, 60)}}}};
        for (int pinned = Number(0, 2); pinned > 0; --pinned) {
            forms.push_back({Size(60, 260), {.pinned = true, .fromRight = Number(0, 1) == 1}});
        }
        area = Size(Number(0, 9) == 0 ? 0 : 40, 700);
    }

    /// What a user can do: another size of the area or the view, a window moved, a bar moved.
    void Change() {
        StandingForm& form = forms[static_cast<std::size_t>(Number(0, int(forms.size()) - 1))];
        const Arrangement now = Arranged();
        const Arrangement::Place place = now.places[static_cast<std::size_t>(&form - forms.data())];
        switch (Number(0, 3)) {
        case 0:
            area = Size(40, 700);
            break;
        case 1:
            forms[0].size = Size(1, 1500);
            break;
        case 2:
            MoveTo(place.corner + QPoint(Number(-300, 300), Number(-300, 300)), form.size, now.room,
                   place.slid, form.standing, scrolled);
            break;
        default:
            scrolled = {Number(-900, 1900), Number(-900, 1900)};
        }
    }

    [[nodiscard]] Arrangement Arranged() const { return Arrange(area, Bar, forms, scrolled); }

    /// Whether `pixel` of the view can be scrolled to where no pinned window lies: to an edge of
    /// the room, as far as it goes, or beside an edge of one of them at either end.
    [[nodiscard]] bool CanBeBroughtClear(const QPoint& pixel, const Arrangement& now) const {
        std::vector<int> across = {0, now.room.width() - 1};
        std::vector<int> down = {0, now.room.height() - 1};
        const QPoint inContents = forms[0].standing.place + pixel;
        for (const QPoint& end : {QPoint(now.across.minimum, now.down.minimum),
                                  QPoint(now.across.maximum, now.down.maximum)}) {
            across.push_back(inContents.x() - end.x());
            down.push_back(inContents.y() - end.y());
            const Arrangement there = Arrange(area, Bar, forms, end);
            for (std::size_t i = 1; i < forms.size(); ++i) {
                const QRect form(there.places[i].corner, forms[i].size);
                across.insert(across.end(), {form.left() - 1, form.right() + 1});
                down.insert(down.end(), {form.top() - 1, form.bottom() + 1});
            }
        }
        for (const int x : across) {
            for (const int y : down) {
                const QPoint asked = inContents - QPoint(x, y);
                const Arrangement there = Arrange(area, Bar, forms, asked);
                bool clear = there.scrolled == asked && QRect({}, now.room).contains(x, y);
                for (std::size_t i = 1; i < forms.size() && clear; ++i) {
                    clear = !QRect(there.places[i].corner, forms[i].size).contains(x, y);
                }
                if (clear) {
                    return true;
                }
            }
        }
        return false;
    }

    std::vector<StandingForm> forms;
    QSize area;
    QPoint scrolled;

  private:
    std::mt19937 random_{13};
};

TEST_F(AnyArea, IsArrangedOnceForAllAndHidesNothing) {
    for (int round = 0; round < 500; ++round) {
        Make();
        for (int change = 0; change < 4; ++change) {
            Change();
            SCOPED_TRACE(testing::Message() << "round " << round << ", change " << change);
            const Arrangement once = Arranged();
            const auto& [across, down] = std::tie(once.across, once.down);
            ASSERT_TRUE(across.minimum <= 0 && across.maximum >= 0);
            ASSERT_TRUE(down.minimum <= 0 && down.maximum >= 0);
            ASSERT_TRUE(!across.NeedsBar() ||
                        once.room.height() == std::max(0, area.height() - Bar));
            ASSERT_TRUE(!down.NeedsBar() || once.room.width() == std::max(0, area.width() - Bar));
            const Arrangement end = Arrange(area, Bar, forms, {across.maximum, down.maximum});
            scrolled = once.scrolled;
            for (std::size_t i = 0; i < forms.size(); ++i) {
                const auto& [corner, slid] = once.places[i];
                const QSize size = forms[i].size;
                const bool fits = size.boundedTo(once.room) == size;
                if (forms[i].standing.pinned && fits && slid.isNull()) {
                    ASSERT_TRUE(QRect({}, once.room).contains({corner, size}));
                }
                if (forms[i].standing.pinned) { // its far end can be seen
                    const QPoint far = end.places[i].corner + QPoint(size.width(), size.height());
                    ASSERT_TRUE(far.x() <= end.room.width() && far.y() <= end.room.height());
                }
            }
            const Arrangement twice = Arranged();
            ASSERT_EQ(twice.scrolled, once.scrolled);
            ASSERT_EQ(twice.room, once.room);
            for (std::size_t i = 0; i < forms.size(); ++i) {
                ASSERT_EQ(twice.places[i].corner, once.places[i].corner);
            }
            const QPoint last(forms[0].size.width() - 1, forms[0].size.height() - 1);
            for (const QPoint& pixel : {QPoint(), last, QPoint(Number(0, last.x()), last.y()),
                                        QPoint(0, Number(0, last.y()))}) {
                ASSERT_TRUE(once.room.isEmpty() || CanBeBroughtClear(pixel, once))
                    << pixel.x() << ", " << pixel.y();
            }
        }
    }
}

TEST(MoveTo, KeepsTheDistanceFromTheNearerSideAndScrollsBeyondTheEdge) {
    const QSize room(400, 300);
    using Row = std::tuple<bool, QPoint, QPoint, QPoint>; // pinned, to, slid, in a wider room
    for (const auto& [pinned, to, slid, corner] :
         {Row{true, {10, 20}, {}, {10, 20}}, Row{true, {290, 5}, {}, {390, 5}},
          Row{true, {10, 20}, {30, 0}, {40, 20}}, Row{false, {-20, 30}, {}, {-20, 30}},
          Row{false, {20, -30}, {}, {20, -30}}}) {
        StandingForm form{pinned ? QSize(100, 50) : QSize(600, 400), {.pinned = pinned}};
        QPoint scrolled(7, 7);
        MoveTo(to, form.size, room, slid, form.standing, scrolled);
        const QSize wider = room + QSize(100, 0);
        EXPECT_EQ(Arrange(wider, Bar, {&form, 1}, scrolled).places[0].corner, corner);
        EXPECT_TRUE(form.standing.place.x() >= 0 && form.standing.place.y() >= 0);
    }
}

} // namespace editor::test
