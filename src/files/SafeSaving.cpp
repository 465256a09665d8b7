// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "files/SafeSaving.h"

#include "files/DiskSync.h"
#include "files/FileProblem.h"
#include "files/RegularFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace editor {
namespace {

// The permission bits of the file itself; the others say what the current user may do with it.
constexpr QFileDevice::Permissions EveryonesPermissions =
    QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::WriteGroup |
    QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

// A disk that becomes full first takes a part, which is no error yet and gives no reason.
bool WriteAll(QSaveFile& file, const QByteArray& bytes) {
    qint64 written = 1;
    for (qint64 done = 0; done < bytes.size() && written > 0; done += written) {
        written = file.write(bytes.constData() + done, bytes.size() - done);
    }
    return written > 0;
}

} // namespace

void ReplaceFile(const QString& path, const QByteArray& bytes) {
    const auto fail = [&path](const QString& reason) {
        throw FileProblem(QStringLiteral("%1 could not be saved: %2.")
                              .arg(QDir::toNativeSeparators(path), reason));
    };
    const bool exists = QFileInfo::exists(path); // not so of a link that leads nowhere
    if (exists && !IsRegularFile(path)) {
        fail(QStringLiteral("it is not a file"));
    }
    // What is not committed goes with this object. QSaveFile::commit() does not check the last
    // buffer that it writes: on a full disk it would put an empty file in place and report success.
    // Without a buffer, and synced before, only the rename is left to it.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        fail(file.errorString());
    }
    if (exists && (file.permissions() & EveryonesPermissions) !=
                      (QFile::permissions(path) & EveryonesPermissions)) {
        fail(QStringLiteral("its permissions cannot be kept"));
    }
    if (!WriteAll(file, bytes)) {
        fail(file.errorString());
    }
    if (!SyncToDisk(file.handle())) {
        fail(qt_error_string());
    }
    if (!file.commit()) {
        fail(file.errorString());
    }
    SyncFolder(QFileInfo(QFileInfo(path).canonicalFilePath()).absolutePath());
}

} // namespace editor
