// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

namespace editor {

/// Which of the three tables the map view shows and edits.
enum class EditingMode { None, Waypoints, Items, StartPoints };

} // namespace editor
