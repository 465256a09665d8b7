// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "platform/FileNames.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace editor {
namespace {

// Empty when nothing below `folder` matches the components from `index` on.
QString FindFrom(const QString& folder, const QStringList& components, qsizetype index) {
    if (index == components.size()) {
        return folder;
    }
    const QString& wanted = components[index];
    const QString exact = JoinPath(folder, wanted);
    if (QFileInfo::exists(exact)) {
        const QString found = FindFrom(exact, components, index + 1);
        if (!found.isEmpty()) {
            return found;
        }
    }
    const QStringList entries =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System, QDir::Name);
    for (const QString& entry : entries) {
        if (entry != wanted && entry.compare(wanted, Qt::CaseInsensitive) == 0) {
            const QString found = FindFrom(JoinPath(folder, entry), components, index + 1);
            if (!found.isEmpty()) {
                return found;
            }
        }
    }
    return {};
}

} // namespace

QString JoinPath(const QString& folder, const QString& name) {
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

QString CleanFolderPath(const QString& path) {
    return path.isEmpty() ? path : QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

QString FindInFolder(const QString& folder, const QString& name) {
    QString forward = name;
    forward.replace(u'\\', u'/');
    const QString found = FindFrom(folder, forward.split(u'/', Qt::SkipEmptyParts), 0);
    return found.isEmpty() ? JoinPath(folder, forward) : found;
}

} // namespace editor
