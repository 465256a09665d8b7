// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "edit/EntityGestures.h"

#include "edit/WaypointGestures.h"

#include <utility>

namespace editor {
namespace {

// Calls `act` with the table of the mode; without a mode nothing happens.
template <class Act>
void WithTable(LevelModel& model, EditingMode mode, Act act) {
    switch (mode) {
    case EditingMode::StartPoints:
        return act(model.StartPointTable());
    case EditingMode::Items:
        return act(model.ItemTable());
    case EditingMode::Waypoints:
        return act(model.WayPointTable());
    case EditingMode::None:
        return;
    }
}

} // namespace

void SelectStartPoint(const LevelModel& model, std::int16_t& curpoint, const LevelPoint& point) {
    SelectLastHit(model.StartPointTable(), curpoint, point, [](int) {});
}

ItemRec StandardItemSettings() {
    ItemRec item;
    item.Type = Medikit;
    item.Amount = StandardItem::Amount;
    item.Respawn = StandardItem::Respawn;
    item.Bounce = StandardItem::Bounce;
    item.Gravity = StandardItem::Gravity;
    item.DetectDist = StandardItem::DetectDist;
    return item;
}

void SelectItem(const LevelModel& model, std::int16_t& curpoint, const LevelPoint& point,
                const std::function<void(const ItemRec& item)>& show) {
    curpoint = FirstHit(model.ItemTable(), point);
    const ItemRec* item = model.ItemTable().Find(curpoint);
    show(item != nullptr ? *item : StandardItemSettings());
}

GestureResult CreateStartPoint(LevelModel& model, std::int16_t& curpoint, const LevelPoint& point) {
    return CreateEntity(model.StartPointTable(), curpoint, point, [](StartPointRec&) {});
}

GestureResult CreateItem(LevelModel& model, std::int16_t& curpoint, const LevelPoint& point,
                         const ItemRec& settings) {
    return CreateEntity(model.ItemTable(), curpoint, point,
                        [&settings](ItemRec& item) { item = settings; });
}

GestureResult MoveSelected(LevelModel& model, EditingMode mode, int curpoint,
                           const LevelPoint& point) {
    GestureResult result;
    WithTable(model, mode, [&](const auto& table) {
        if (auto* selected = table.Find(curpoint)) {
            MoveTo(*selected, point);
            result.repaint = true;
        }
    });
    return result;
}

GestureResult DeleteSelected(LevelModel& model, EditingMode mode, std::int16_t& curpoint) {
    GestureResult result;
    WithTable(model, mode, [&](const auto& table) {
        if (table.Find(curpoint) != nullptr) {
            table.Remove(curpoint);
            result.repaint = true;
        }
    });
    if (result.repaint) {
        const int removed = std::exchange(curpoint, NoSelection);
        if (mode == EditingMode::Waypoints) {
            FixLinks(model, removed);
        }
    }
    return result;
}

} // namespace editor
