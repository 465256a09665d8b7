// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/EditingMode.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace editor {

/// What a gesture leaves to be done when its own work is finished.
struct GestureResult {
    bool repaint = false;
    QString message = {}; // what a person must be told; empty: nothing
};

/// The refusal of a creation: nothing was changed. `things` names the table.
[[nodiscard]] inline GestureResult TableFull(const QString& things, std::size_t capacity) {
    return {.message =
                QStringLiteral("Maximum number of %1 reached (%2)").arg(things).arg(capacity)};
}

// The tables are dense: the first `count` records are in use. A count below 0, which a file may
// hold, counts as 0, and a selection outside the records in use as none.

/// The selected record, or null.
template <class Record, std::size_t Capacity>
[[nodiscard]] Record* SelectedRecord(std::array<Record, Capacity>& table, int count, int curpoint) {
    return curpoint >= 0 && curpoint < count ? &table[static_cast<std::size_t>(curpoint)] : nullptr;
}

/// Takes the first free record into use and selects it. It holds what it held before. Null when
/// the table is full; nothing is changed then.
template <class Record, std::size_t Capacity, class Count>
[[nodiscard]] Record* AddSelected(std::array<Record, Capacity>& table, Count& count,
                                  std::int16_t& curpoint) {
    const auto added = static_cast<std::size_t>(std::max<Count>(count, 0));
    if (added >= Capacity) {
        return nullptr;
    }
    curpoint = static_cast<std::int16_t>(added);
    count = static_cast<Count>(added + 1);
    return &table[added];
}

/// Puts the last record into the place of the selected one and selects nothing. Returns false when
/// nothing was selected.
template <class Record, std::size_t Capacity, class Count>
bool RemoveSelected(std::array<Record, Capacity>& table, Count& count, std::int16_t& curpoint) {
    Record* removed = SelectedRecord(table, count, curpoint);
    if (removed == nullptr) {
        return false;
    }
    --count;
    *removed = table[static_cast<std::size_t>(count)];
    curpoint = NoSelection;
    return true;
}

} // namespace editor
