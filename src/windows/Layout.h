// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace editor {

/// Twips (1/1440 inch) as pixels, 15 twips each.
[[nodiscard]] constexpr int Twips(int twips) {
    return twips / 15;
}

/// Puts a control at a place in its parent, in pixels.
inline void Place(QWidget* control, int left, int top, int width, int height) {
    control->setGeometry(left, top, width, height);
}

/// The same in twips.
inline void PlaceTwips(QWidget* control, int left, int top, int width, int height) {
    Place(control, Twips(left), Twips(top), Twips(width), Twips(height));
}

} // namespace editor
