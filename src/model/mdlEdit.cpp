// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "model/mdlEdit.h"

namespace editor {

LevelModel mdlEdit;

} // namespace editor
