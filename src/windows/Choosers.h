// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace editor {

/// The dialogs in which a person chooses a file or folder. They can be replaced as a set, so that a
/// test answers them without a modal loop.
struct Choosers {
    /// Lets the user choose an existing folder; `prompt` says what for. The result is its absolute,
    /// clean path, or empty when the user cancels.
    std::function<QString(QWidget* owner, const QString& prompt)> browseForFolder;

    /// Lets the user choose a file or type the name of one that need not exist. `filter` is a list
    /// of label and pattern pairs, every label and pattern followed by "|"; the first pair is
    /// preselected and patterns match any letter case. The result is the absolute, clean path, or
    /// empty when the user cancels.
    std::function<QString(QWidget* owner, const QString& title, const QString& initialFolder,
                          const QString& filter)>
        openFileName;
};

/// The choosers in use: at first Qt's own dialogs, which look and work the same on every desktop, or
/// on Windows the system's.
[[nodiscard]] Choosers& choosers();

/// Keeps the file dialogs from writing a configuration file of their own into the user's home. To
/// be called before the application object is made.
void LeaveNoConfiguration();

} // namespace editor
