// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "view/PaintPoints.h"

#include "model/Rounding.h"

#include <array>

namespace editor {
namespace {

constexpr std::uint32_t White = 0xffffffff;
constexpr std::uint32_t Black = 0xff000000;
constexpr std::uint32_t Blue = 0xff0000ff;

// For what the palette has no colour for: types and link flags without a meaning. It is none of
// the colours that have one.
constexpr std::uint32_t Unknown = 0xffff00ff;

constexpr std::array<std::uint32_t, 16> Palette = {
    0xff000000, 0xff000080, 0xff008000, 0xff008080, 0xff800000, 0xff800080, 0xff808000, 0xffc0c0c0,
    0xff808080, 0xff0000ff, 0xff00ff00, 0xff00ffff, 0xffff0000, 0xffff00ff, 0xffffff00, 0xffffffff};

constexpr int MaxLinkFlags = JumpRequired | RopeRequired;

constexpr int NarrowPen = 1;
constexpr int WidePen = 3;

std::uint32_t ItemColour(const ItemRec& item) {
    return item.Type >= 0 && item.Type < NumItemTypes ? Palette[static_cast<std::size_t>(item.Type)]
                                                      : Unknown;
}

std::uint32_t LinkColour(int flags) {
    return flags >= 0 && flags <= MaxLinkFlags ? Palette[static_cast<std::size_t>(15 - 4 * flags)]
                                               : Unknown;
}

/// Draws the entities of one model in view pixels.
class Painter {
  public:
    Painter(PersistentImage& image, const LevelModel& model) : image_(image), model_(model) {}

    void Waypoints(int selected) {
        for (int i = 0; i < model_.WayPointCount(); ++i) {
            const WaypointRec& waypoint = Waypoint(i);
            image_.SetLineWidth(NarrowPen);
            image_.SetLineStyle(LineStyle::Solid);
            Mark(waypoint.X, waypoint.Y, Blue, waypoint.Flags == 0 ? Black : White);
            image_.SetLineWidth(NarrowPen);
            image_.SetLineStyle(LineStyle::Dotted);
            Links(waypoint);
        }
        if (selected >= 0 && selected < model_.WayPointCount()) {
            image_.SetLineWidth(WidePen);
            image_.SetLineStyle(LineStyle::Solid);
            Mark(Waypoint(selected).X, Waypoint(selected).Y, Black, White);
            Links(Waypoint(selected));
        }
    }

    void StartPoints(int selected) {
        image_.SetLineWidth(NarrowPen);
        image_.SetLineStyle(LineStyle::Solid);
        image_.SetFillColour(Black);
        const auto draw = [this](int i) {
            const StartPointRec& point = model_.StartPoints[static_cast<std::size_t>(i)];
            Mark(point.X, point.Y, White, Black);
        };
        for (int i = 0; i < model_.StartPointCount(); ++i) {
            draw(i);
        }
        if (selected >= 0 && selected < model_.StartPointCount()) {
            image_.SetLineWidth(WidePen);
            draw(selected);
        }
    }

    void Items(int selected) {
        image_.SetLineWidth(NarrowPen);
        image_.SetLineStyle(LineStyle::Solid);
        const auto draw = [this](int i) {
            const ItemRec& item = model_.Items[static_cast<std::size_t>(i)];
            Mark(item.PosX, item.PosY, White, ItemColour(item));
        };
        for (int i = 0; i < model_.ItemCount(); ++i) {
            draw(i);
        }
        if (selected >= 0 && selected < model_.ItemCount()) {
            image_.SetLineWidth(WidePen);
            draw(selected);
        }
    }

  private:
    [[nodiscard]] const WaypointRec& Waypoint(int index) const {
        return model_.WayPoints[static_cast<std::size_t>(index)];
    }

    [[nodiscard]] QPoint ToView(std::int16_t x, std::int16_t y) const {
        return ViewPixel(static_cast<float>(x) * model_.Zoom, static_cast<float>(y) * model_.Zoom);
    }

    void Mark(std::int16_t x, std::int16_t y, std::uint32_t outline, std::uint32_t fill) {
        image_.SetFillColour(fill);
        image_.Circle(ToView(x, y), outline);
    }

    void Links(const WaypointRec& from) {
        for (int j = 0; j <= from.NumLinks && j < MaxLinks; ++j) {
            const auto slot = static_cast<std::size_t>(j);
            const int target = from.LinkDest[slot];
            if (target >= 0 && target < model_.WayPointCount()) {
                const WaypointRec& to = Waypoint(target);
                image_.Line(ToView(from.X, from.Y), ToView(to.X, to.Y),
                            LinkColour(from.LinkFlags[slot]));
            }
        }
    }

    PersistentImage& image_;
    const LevelModel& model_;
};

} // namespace

QPoint ViewPixel(float x, float y) {
    return {RoundTo<std::int32_t>(x), RoundTo<std::int32_t>(y)};
}

void PaintEntities(PersistentImage& image, const LevelModel& model, EditingMode mode,
                   int curpoint) {
    image.Clear();
    Painter painter(image, model);
    switch (mode) {
    case EditingMode::Waypoints:
        painter.Waypoints(curpoint);
        break;
    case EditingMode::StartPoints:
        painter.StartPoints(curpoint);
        break;
    case EditingMode::Items:
        painter.Items(curpoint);
        break;
    case EditingMode::None:
        break;
    }
}

} // namespace editor
