// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "edit/ItemGestures.h"

namespace editor {

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
    for (int i = 0; i < model.ItemCount(); ++i) {
        const ItemRec& item = model.Items[static_cast<std::size_t>(i)];
        if (IsHit(point, item.PosX, item.PosY)) {
            curpoint = static_cast<std::int16_t>(i);
            show(item);
            return;
        }
    }
    curpoint = NoSelection;
    show(StandardItemSettings());
}

GestureResult MoveItem(LevelModel& model, int curpoint, const LevelPoint& point) {
    ItemRec* item = SelectedRecord(model.Items, model.NumItems, curpoint);
    if (item == nullptr) {
        return {};
    }
    item->PosX = ToPosition(point.x);
    item->PosY = ToPosition(point.y);
    return {.repaint = true};
}

GestureResult CreateItem(LevelModel& model, std::int16_t& curpoint, const LevelPoint& point,
                         const ItemRec& settings) {
    ItemRec* item = AddSelected(model.Items, model.NumItems, curpoint);
    if (item == nullptr) {
        return TableFull(QStringLiteral("items"), model.Items.size());
    }
    *item = settings;
    item->PosX = ToPosition(point.x);
    item->PosY = ToPosition(point.y);
    return {.repaint = true};
}

GestureResult DeleteItem(LevelModel& model, std::int16_t& curpoint) {
    return {.repaint = RemoveSelected(model.Items, model.NumItems, curpoint)};
}

} // namespace editor
