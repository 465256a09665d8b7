// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace editor {

/// Puts `bytes` in the place of the file `path`, which is created when it does not exist. At every
/// moment either the old or the new content is there as a whole, even after the program or the
/// machine stopped: the bytes go to a temporary file beside it, which is written out and then
/// renamed. A symbolic link stays a link; permissions stay. Throws FileProblem, with path and
/// reason; then the old file is untouched and no temporary file is left.
void ReplaceFile(const QString& path, const QByteArray& bytes);

} // namespace editor
