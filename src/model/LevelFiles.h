// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace editor {

/// What a person must be told of a level folder that could not be read or written: one text that
/// says what, where and why.
using LevelFileError = QString;

/// Reads `level.cfg` and `waypoint.cfg` of the folder mdlEdit.LevelPath into mdlEdit and ends by
/// calling loadGraphics. A missing file gives the defaults of all its keys, silently. When a file
/// exists and cannot be read, a count exceeds its table or a number does not fit its field, the
/// result says so, the model keeps all that it held, and loadGraphics is not called.
[[nodiscard]] std::optional<LevelFileError> LoadLevel(const std::function<void()>& loadGraphics);

/// Writes mdlEdit into the folder mdlEdit.LevelPath: `level.cfg` and, when the level has
/// waypoints, `waypoint.cfg`, which is begun when the first is in place. Each file is replaced as
/// a whole or, when that fails, left as it was. The model is only read.
[[nodiscard]] std::optional<LevelFileError> SaveLevel();

} // namespace editor
