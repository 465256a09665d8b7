// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

class QFile;

namespace editor {

/// True when `path` names an ordinary file or a symbolic link to one, and not a folder, pipe,
/// socket or device: opening one of these could block for ever or have side effects.
[[nodiscard]] bool IsRegularFile(const QString& path);

/// Opens an ordinary file for reading. Null when it cannot be opened, is not an ordinary file, or
/// has size 0: some of the system's own files claim that and never end.
[[nodiscard]] std::unique_ptr<QFile> OpenRegularFile(const QString& path);

/// The content of a file; empty when there is no such file. Throws FileProblem, with path and
/// reason, when the file is not an ordinary one, is larger than `maximumSize` bytes, or cannot be
/// read.
[[nodiscard]] QByteArray ReadRegularFile(const QString& path, qint64 maximumSize);

} // namespace editor
