// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

namespace editor {

/// What a person must be told of a level folder that could not be read or written: one text that
/// says what, where and why.
using LevelFileError = QString;

/// Whether New must leave a folder alone: it holds an ordinary file `level.cfg`, in any letter
/// case, that is not hidden.
[[nodiscard]] bool IsUsedFolder(const QString& folder);

/// Makes mdlEdit a new level in `folder`: no entities, no graphics loaded. The names of the
/// graphics, the forces, the zoom and the loaded pictures stay.
void BeginLevel(const QString& folder);

/// Reads `level.cfg` and `waypoint.cfg` of the folder mdlEdit.LevelPath into mdlEdit. A missing
/// file gives the defaults of all its keys, silently. When a file exists and cannot be read, a
/// count exceeds its table or a number does not fit its field, the result says so, and the model
/// keeps all that it held. The graphics are loaded by the caller.
[[nodiscard]] std::optional<LevelFileError> LoadLevel();

/// Writes mdlEdit into the folder mdlEdit.LevelPath: `level.cfg` and, when the level has
/// waypoints, `waypoint.cfg`, which is begun when the first is in place. Each file is replaced as
/// a whole or, when that fails, left as it was. The model is only read.
[[nodiscard]] std::optional<LevelFileError> SaveLevel();

} // namespace editor
