// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/EditingMode.h"
#include "model/mdlEdit.h"
#include "painting/PersistentImage.h"

#include <QPoint>

namespace editor {

/// The pixel of the view that lies nearest to a position in view pixels; halves go to the even one.
[[nodiscard]] QPoint ViewPixel(float x, float y);

/// Draws the entities of `mode` over the image's background, in table order, the selected one
/// (`curpoint`, none when it is outside the table) last. Leaves the pen as its last step set it.
void PaintEntities(PersistentImage& image, const LevelModel& model, EditingMode mode, int curpoint);

} // namespace editor
