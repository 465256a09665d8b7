// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace editor {

/// The caption of message boxes that give none.
[[nodiscard]] QString ApplicationTitle();

/// The dialogs in which the program waits for a person. They can be replaced as a set, so that a
/// test answers them without a modal loop.
struct Dialogs {
    /// Shows `text` (plain) with an OK button only, no icon, and `title` as the caption.
    std::function<void(QWidget* owner, const QString& text, const QString& title)> messageBox;

    /// Lets the user choose an existing folder; `prompt` says what for. The result is its absolute,
    /// clean path, or empty when the user cancels.
    std::function<QString(QWidget* owner, const QString& prompt)> browseForFolder;

    /// Lets the user choose a file or type the name of one that need not exist. `filter` is a list
    /// of label and pattern pairs, every label and pattern followed by "|"; the first pair is
    /// preselected and patterns match any letter case. The result is the absolute, clean path, or
    /// empty when the user cancels. The folder of a chosen file becomes the process's current
    /// directory.
    std::function<QString(QWidget* owner, const QString& title, const QString& initialFolder,
                          const QString& filter)>
        openFileName;
};

/// The dialogs in use: at first those of the platform.
[[nodiscard]] Dialogs& dialogs();

/// Shows a message box with an OK button and returns when it was closed.
void MsgBox(QWidget* owner, const QString& text, const QString& title = ApplicationTitle());

/// Keeps the file dialogs from writing a configuration file of their own into the user's home. To
/// be called before the application object is made.
void LeaveNoConfiguration();

} // namespace editor
