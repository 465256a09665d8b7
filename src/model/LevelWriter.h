// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/mdlEdit.h"

#include <QByteArray>

namespace editor {

/// The content of `level.cfg` for `model`, in the code page, every line ended by CR LF. Throws
/// FileProblem when a text of the model cannot stand in the file: it holds a character that the
/// code page lacks, or one that would end the line or the value.
[[nodiscard]] QByteArray WriteLevelCfg(const LevelModel& model);

/// The content of `waypoint.cfg`; it holds numbers only.
[[nodiscard]] QByteArray WriteWaypointCfg(const LevelModel& model);

} // namespace editor
