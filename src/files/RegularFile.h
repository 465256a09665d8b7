// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

class QFile;

namespace editor {

/// True when `path` names an ordinary file or a symbolic link to one: not a folder, and not a
/// pipe, socket or device, opening which could block for ever or have effects.
[[nodiscard]] bool IsRegularFile(const QString& path);

/// Opens an ordinary file for reading. Null when it cannot be opened, is no ordinary file, or has
/// the size 0: some that the system itself provides say so and keep a reader waiting for ever.
[[nodiscard]] std::unique_ptr<QFile> OpenRegularFile(const QString& path);

/// Reads a whole file into `bytes`. A file that does not exist leaves `bytes` empty and is no
/// failure. Returns an empty text, or the reason, as part of a sentence, why an existing file was
/// not read: it is no ordinary file, it is larger than `maximumSize` bytes, or the system refused.
[[nodiscard]] QString ReadRegularFile(const QString& path, qint64 maximumSize, QByteArray& bytes);

/// Puts `bytes` in the place of the file `path`, which is created when it does not exist, so that
/// at every moment either the old or the new content is there, whole, also after the program or
/// the machine stopped: the bytes go to a temporary file beside it, which is written out and then
/// renamed. A symbolic link stays a link, permissions stay. Returns an empty text, or the reason
/// of the failure; then the old file is untouched and no temporary file is left.
[[nodiscard]] QString ReplaceFile(const QString& path, const QByteArray& bytes);

} // namespace editor
