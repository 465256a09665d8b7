// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "files/RegularFile.h"

#include "files/FileProblem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace editor {

bool IsRegularFile(const QString& path) {
    return QFileInfo(path).isFile();
}

std::unique_ptr<QFile> OpenRegularFile(const QString& path) {
    auto file = std::make_unique<QFile>(path);
    const bool hasContent = IsRegularFile(path) && file->size() > 0;
    return hasContent && file->open(QIODevice::ReadOnly) ? std::move(file) : nullptr;
}

QByteArray ReadRegularFile(const QString& path, qint64 maximumSize) {
    const auto fail = [&path](const QString& reason) {
        throw FileProblem(QStringLiteral("%1 cannot be read: %2.")
                              .arg(QDir::toNativeSeparators(path), WithoutFullStop(reason)));
    };
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink()) {
        return {};
    }
    if (!info.exists()) {
        fail(QStringLiteral("the symbolic link leads nowhere"));
    }
    if (!info.isFile()) {
        fail(QStringLiteral("it is not a file"));
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(file.errorString());
    }
    // One byte more than allowed reveals a file that is too large, even one that is still growing.
    QByteArray bytes = info.size() > 0 ? file.read(maximumSize + 1) : QByteArray();
    if (file.error() != QFileDevice::NoError) {
        fail(file.errorString());
    }
    if (bytes.size() > maximumSize) {
        fail(QStringLiteral("it is larger than %1 MiB").arg(maximumSize / (1024 * 1024)));
    }
    return bytes;
}

} // namespace editor
