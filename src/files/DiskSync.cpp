// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "files/DiskSync.h"

#ifdef Q_OS_UNIX
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace editor {

#ifdef Q_OS_UNIX

bool SyncToDisk(int descriptor) {
    return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP;
}

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

} // namespace editor
