// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace editor {

/// Which of the three tables the map view shows and edits.
enum class EditingMode { None, Waypoints, Items, StartPoints };

/// The value of a selection, an index into one of the tables, when nothing is selected.
inline constexpr std::int16_t NoSelection = -1;

} // namespace editor
