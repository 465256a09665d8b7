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
        for (const WaypointRec& waypoint : model_.WayPointTable()) {
            SetPen(NarrowPen, LineStyle::Solid);
            Mark(waypoint, Blue, waypoint.Flags == 0 ? Black : White);
            SetPen(NarrowPen, LineStyle::Dotted);
            Links(waypoint);
        }
        if (const WaypointRec* waypoint = model_.WayPointTable().Find(selected)) {
            SetPen(WidePen, LineStyle::Solid);
            Mark(*waypoint, Black, White);
            Links(*waypoint);
        }
    }

    /// Start points or items; `fill` gives the colour inside of one.
    template <class Record, class Count, class Fill>
    void Marks(const Table<Record, Count>& table, int selected, Fill fill) {
        SetPen(NarrowPen, LineStyle::Solid);
        for (const Record& entity : table) {
            Mark(entity, White, fill(entity));
        }
        if (const Record* entity = table.Find(selected)) {
            SetPen(WidePen, LineStyle::Solid);
            Mark(*entity, White, fill(*entity));
        }
    }

  private:
    template <class Record>
    [[nodiscard]] QPoint ToView(const Record& entity) const {
        const auto& [x, y] = PositionOf(entity);
        return ViewPixel(static_cast<float>(x) * model_.Zoom, static_cast<float>(y) * model_.Zoom);
    }

    void SetPen(int width, LineStyle style) {
        image_.SetLineWidth(width);
        image_.SetLineStyle(style);
    }

    template <class Record>
    void Mark(const Record& entity, std::uint32_t outline, std::uint32_t fill) {
        image_.SetFillColour(fill);
        image_.Circle(ToView(entity), outline);
    }

    void Links(const WaypointRec& from) {
        for (std::size_t slot = 0; slot < from.LinkCount(); ++slot) {
            if (const WaypointRec* to = model_.WayPointTable().Find(from.LinkDest[slot])) {
                image_.Line(ToView(from), ToView(*to), LinkColour(from.LinkFlags[slot]));
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
        painter.Marks(model.StartPointTable(), curpoint,
                      [](const StartPointRec&) { return Black; });
        break;
    case EditingMode::Items:
        painter.Marks(model.ItemTable(), curpoint, ItemColour);
        break;
    case EditingMode::None:
        break;
    }
}

} // namespace editor
