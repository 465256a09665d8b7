#pragma once

namespace editor {

/// Which of the three tables the map view shows and edits.
enum class EditingMode { None, Waypoints, Items, StartPoints };

} // namespace editor
