// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "edit/StartPointGestures.h"

namespace editor {

void SelectStartPoint(const LevelModel& model, std::int16_t& curpoint, const LevelPoint& point) {
    curpoint = NoSelection;
    for (int i = 0; i < model.StartPointCount(); ++i) {
        const StartPointRec& start = model.StartPoints[static_cast<std::size_t>(i)];
        if (IsHit(point, start.X, start.Y)) {
            curpoint = static_cast<std::int16_t>(i);
        }
    }
}

GestureResult MoveStartPoint(LevelModel& model, int curpoint, const LevelPoint& point) {
    StartPointRec* start = SelectedRecord(model.StartPoints, model.NumStartPoints, curpoint);
    if (start == nullptr) {
        return {};
    }
    *start = {ToPosition(point.x), ToPosition(point.y)};
    return {.repaint = true};
}

GestureResult CreateStartPoint(LevelModel& model, std::int16_t& curpoint, const LevelPoint& point) {
    StartPointRec* start = AddSelected(model.StartPoints, model.NumStartPoints, curpoint);
    if (start == nullptr) {
        return TableFull(QStringLiteral("start points"), model.StartPoints.size());
    }
    *start = {ToPosition(point.x), ToPosition(point.y)};
    return {.repaint = true};
}

GestureResult DeleteStartPoint(LevelModel& model, std::int16_t& curpoint) {
    return {.repaint = RemoveSelected(model.StartPoints, model.NumStartPoints, curpoint)};
}

} // namespace editor
