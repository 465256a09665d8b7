// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>

class QApplication;

namespace editor {

/// Keeps the desktop's colours and fonts out, which would take the place of the application's own
/// at any time. To be called before the application object is made.
void KeepDesktopLookOut();

/// Gives the application the style, the colours and the font that the windows' fixed layouts were
/// made for: a plain style with narrow label spacing, light, and a sans serif face of 11 pixels.
void ApplyLook(QApplication& application);

/// The font, made smaller until `caption` in one line is no wider than `width` pixels.
[[nodiscard]] QFont Fitting(QFont font, const QString& caption, int width);

} // namespace editor
