// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "dialogs/GraphicsChooser.h"

#include "files/FileNames.h"
#include "model/mdlEdit.h"
#include "windows/Choosers.h"

#include <QDir>
#include <QFileInfo>

namespace editor {
namespace {

// What `path` has behind `folder` and a separator.
std::optional<QString> Below(const QString& folder, const QString& path) {
    const QString prefix = JoinPath(folder, QString());
    if (folder.isEmpty() || !path.startsWith(prefix)) {
        return std::nullopt;
    }
    return path.sliced(prefix.size());
}

} // namespace

QString ShowOpenDialog(QWidget* owner, const QString& initialFolder, const QString& filter) {
    QString chosen =
        choosers().openFileName(owner, QStringLiteral("Open File"), initialFolder, filter);
    if (!chosen.isEmpty()) {
        QDir::setCurrent(QFileInfo(chosen).path());
    }
    return chosen;
}

QString BrowseStartFolder() {
    const QString current = QDir::currentPath();
    if (current.isEmpty() || !QFileInfo(current).isDir()) {
        return mdlEdit.LevelPath;
    }
    const QString resolvedLevel = QFileInfo(mdlEdit.LevelPath).canonicalFilePath();
    if (current == resolvedLevel) {
        return mdlEdit.LevelPath;
    }
    const std::optional<QString> below = Below(resolvedLevel, current);
    return below ? JoinPath(mdlEdit.LevelPath, *below) : current;
}

std::optional<QString> NameInLevelFolder(const QString& path) {
    std::optional<QString> name = Below(mdlEdit.LevelPath, path);
    if (name) {
        name->replace(u'/', u'\\');
    }
    return name;
}

} // namespace editor
