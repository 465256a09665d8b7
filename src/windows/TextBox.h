// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>

namespace editor {

/// A one-line text box. Any text can be typed; what would break a line (pasted line feeds, line
/// separators and the like) or end a text in a level file (NUL) becomes a blank.
class TextBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit TextBox(QWidget* parent);
};

} // namespace editor
