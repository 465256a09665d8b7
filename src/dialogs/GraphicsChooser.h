// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

class QWidget;

namespace editor {

/// choosers().openFileName in a dialog titled "Open File". The folder of a chosen file becomes the
/// process's current directory.
[[nodiscard]] QString ShowOpenDialog(QWidget* owner, const QString& initialFolder,
                                     const QString& filter);

/// The folder in which browsing for graphics starts: the process's current directory, or the level
/// folder when that is gone. Inside the level folder it is named through mdlEdit.LevelPath, for
/// the system gives the current directory with its symbolic links resolved.
[[nodiscard]] QString BrowseStartFolder();

/// The name by which a level refers to the file `path`, absolute and clean: relative to
/// mdlEdit.LevelPath with "\" as the separator. Nothing when the file does not lie in that folder
/// or below it; the names are compared character for character.
[[nodiscard]] std::optional<QString> NameInLevelFolder(const QString& path);

} // namespace editor
