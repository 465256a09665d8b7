// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/mdlEdit.h"

#include <QByteArray>
#include <QString>

namespace editor {

/// Longest text value that is read, in characters.
inline constexpr int MaxStringLength = 199;

// Read the content of one of the level files into `model`, key by key in the order of the format.
// The first number that does not fit its field and the first count above its table throw
// FileProblem, which names `path`, section, key, value and reason; `model` is then half changed.

void ReadLevelCfg(const QString& path, const QByteArray& text, LevelModel& model);
void ReadWaypointCfg(const QString& path, const QByteArray& text, LevelModel& model);

} // namespace editor
