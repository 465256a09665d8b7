// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "files/FileNames.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <set>
#include <utility>

namespace editor {
namespace {

// Looks for the components of one name.
class Search {
  public:
    explicit Search(const QStringList& components) : components_(components) {}

    // Empty when nothing below `folder` matches the components from `index` on.
    QString From(const QString& folder, qsizetype index) {
        if (index == components_.size()) {
            return folder;
        }
        if (!failed_.empty() && failed_.contains({QFileInfo(folder).canonicalFilePath(), index})) {
            return {};
        }
        const QString found = InListing(folder, index);
        if (found.isEmpty()) {
            failed_.emplace(QFileInfo(folder).canonicalFilePath(), index);
        }
        return found;
    }

  private:
    QString InListing(const QString& folder, qsizetype index) {
        const QString& wanted = components_[index];
        const QString exact = JoinPath(folder, wanted);
        if (QFileInfo::exists(exact)) {
            const QString found = From(exact, index + 1);
            if (!found.isEmpty()) {
                return found;
            }
        }
        const QStringList entries =
            QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System, QDir::Name);
        for (const QString& entry : entries) {
            if (entry != wanted && entry.compare(wanted, Qt::CaseInsensitive) == 0) {
                const QString found = From(JoinPath(folder, entry), index + 1);
                if (!found.isEmpty()) {
                    return found;
                }
            }
        }
        return {};
    }

    const QStringList components_;
    // Folders, by their canonical paths, below which the components from an index on are not: "a"
    // beside "A" would double the ways at each step of "a/../a/../a" and so on.
    std::set<std::pair<QString, qsizetype>> failed_;
};

} // namespace

QString JoinPath(const QString& folder, const QString& name) {
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

QString FindInFolder(const QString& folder, const QString& name) {
    QString forward = name;
    forward.replace(u'\\', u'/');
    const QString found = Search(forward.split(u'/', Qt::SkipEmptyParts)).From(folder, 0);
    return found.isEmpty() ? JoinPath(folder, forward) : found;
}

} // namespace editor
