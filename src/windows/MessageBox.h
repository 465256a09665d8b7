// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace editor {

/// The caption of message boxes that give none.
[[nodiscard]] QString ApplicationTitle();

/// Shows a message box with `text` as it is, an OK button only, no icon, and `title` as the
/// caption, and returns when it was closed.
void MsgBox(QWidget* owner, const QString& text, const QString& title = ApplicationTitle());

/// What MsgBox() calls. It can be replaced, so that a test needs no modal loop.
using MessageBox = std::function<void(QWidget* owner, const QString& text, const QString& title)>;
[[nodiscard]] MessageBox& messageBox();

} // namespace editor
