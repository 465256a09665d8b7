// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "files/RegularFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace editor {
namespace {

// The permission bits of the file itself; the others say what the current user may do with it.
constexpr QFileDevice::Permissions EveryonesPermissions =
    QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::WriteGroup |
    QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

#ifdef Q_OS_UNIX

// True when the file's bytes are on the disk and not only in the system's memory; also on a file
// system that knows no such step.
bool SyncToDisk(int descriptor) {
    return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP;
}

// A renamed file is safe against a power cut only when its folder was written out too. File
// systems that cannot do so answer EINVAL; the rename itself is done by then, so that no answer
// here is a reason to tell the user that the file was not saved.
void SyncFolder(const QString& folder) {
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

#else

bool SyncToDisk(int) {
    return true;
}
void SyncFolder(const QString&) {}

#endif

// A disk that becomes full takes a part first, which is no error yet and gives no reason.
bool WriteAll(QSaveFile& file, const QByteArray& bytes) {
    qint64 written = 1;
    for (qint64 done = 0; done < bytes.size() && written > 0; done += written) {
        written = file.write(bytes.constData() + done, bytes.size() - done);
    }
    return written > 0;
}

} // namespace

bool IsRegularFile(const QString& path) {
    return QFileInfo(path).isFile();
}

std::unique_ptr<QFile> OpenRegularFile(const QString& path) {
    auto file = std::make_unique<QFile>(path);
    const bool hasContent = IsRegularFile(path) && file->size() > 0;
    return hasContent && file->open(QIODevice::ReadOnly) ? std::move(file) : nullptr;
}

QString ReadRegularFile(const QString& path, qint64 maximumSize, QByteArray& bytes) {
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink()) {
        bytes.clear();
        return {};
    }
    if (!info.exists()) {
        return QStringLiteral("the symbolic link leads nowhere");
    }
    if (!info.isFile()) {
        return QStringLiteral("it is not a file");
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return file.errorString();
    }
    // One byte more than allowed tells a file that is too large, also one that is still growing.
    QByteArray read = info.size() > 0 ? file.read(maximumSize + 1) : QByteArray();
    if (file.error() != QFileDevice::NoError) {
        return file.errorString();
    }
    if (read.size() > maximumSize) {
        return QStringLiteral("it is larger than %1 MiB").arg(maximumSize / (1024 * 1024));
    }
    bytes = std::move(read);
    return {};
}

QString ReplaceFile(const QString& path, const QByteArray& bytes) {
    if (QFileInfo::exists(path) && !IsRegularFile(path)) {
        return QStringLiteral("it is not a file");
    }
    const bool existed = QFileInfo::exists(path);
    const QFileDevice::Permissions permissions = QFile::permissions(path) & EveryonesPermissions;
    QSaveFile file(path);
    // QSaveFile::commit() does not check the last buffer that it writes: on a full disk it would
    // put an empty file in place and report success. Without buffer, and synced before, nothing is
    // left for it but the rename.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return file.errorString();
    }
    if (existed && (file.permissions() & EveryonesPermissions) != permissions) {
        file.cancelWriting();
        return QStringLiteral("its permissions cannot be kept");
    }
    if (!WriteAll(file, bytes)) {
        const QString reason = file.errorString();
        file.cancelWriting();
        return reason;
    }
    if (!SyncToDisk(file.handle())) {
        const QString reason = qt_error_string();
        file.cancelWriting();
        return reason;
    }
    if (!file.commit()) {
        return file.errorString();
    }
    SyncFolder(QFileInfo(QFileInfo(path).canonicalFilePath()).absolutePath());
    return {};
}

} // namespace editor
