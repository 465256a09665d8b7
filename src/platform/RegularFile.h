// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace editor {

/// True when `path` names an ordinary file or a symbolic link to one: not a folder, and not a
/// pipe, socket or device, opening which could block for ever or have effects.
[[nodiscard]] bool IsRegularFile(const QString& path);

/// True when `path` names an ordinary file whose size is not 0. Some that the system itself
/// provides have the size 0 and keep a reader waiting for ever, and an empty file need not be read.
[[nodiscard]] bool HasContent(const QString& path);

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
