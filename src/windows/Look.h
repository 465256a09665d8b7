// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

class QApplication;

namespace editor {

/// Gives the application the style and the font that the windows' fixed layouts were made for: a
/// plain style with narrow label spacing and a sans serif face of 11 pixels.
void ApplyLook(QApplication& application);

} // namespace editor
