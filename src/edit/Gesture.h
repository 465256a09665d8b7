// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "edit/HitTest.h"
#include "model/EditingMode.h"
#include "model/Table.h"

#include <QString>

#include <cstdint>

namespace editor {

/// What a gesture leaves to be done when its own work is finished.
struct GestureResult {
    bool repaint = false;
    QString message = {}; // what a person must be told; empty: nothing
};

// What the gestures of all three tables have in common.

/// Selects the entity of the highest index that is hit, or none. `show` is called at every hit,
/// one after the other, when `curpoint` is set to it.
template <class Record, class Count, class Show>
void SelectLastHit(const Table<Record, Count>& table, std::int16_t& curpoint,
                   const LevelPoint& point, Show show) {
    curpoint = NoSelection;
    for (int i = 0; i < table.Size(); ++i) {
        if (IsHit(point, table[i])) {
            curpoint = static_cast<std::int16_t>(i);
            show(i);
        }
    }
}

/// The entity of the lowest index that is hit, or NoSelection.
template <class Record, class Count>
[[nodiscard]] std::int16_t FirstHit(const Table<Record, Count>& table, const LevelPoint& point) {
    for (int i = 0; i < table.Size(); ++i) {
        if (IsHit(point, table[i])) {
            return static_cast<std::int16_t>(i);
        }
    }
    return NoSelection;
}

/// Creates an entity at the pointer, whatever lies there, and selects it. `fill` sets what else it
/// needs: its record holds leftovers. Refuses when the table is full; nothing is changed then.
template <class Record, class Count, class Fill>
[[nodiscard]] GestureResult CreateEntity(const Table<Record, Count>& table, std::int16_t& curpoint,
                                         const LevelPoint& point, Fill fill) {
    Record* created = table.Add();
    if (created == nullptr) {
        return {.message = QStringLiteral("Maximum number of %1 reached (%2)")
                               .arg(table.Things())
                               .arg(table.Capacity())};
    }
    fill(*created);
    MoveTo(*created, point);
    curpoint = static_cast<std::int16_t>(table.Size() - 1);
    return {.repaint = true};
}

} // namespace editor
