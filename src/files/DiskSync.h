// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace editor {

// What saving asks of the system beyond writing and renaming files.

/// Has the system write out what an open file holds in memory. Returns whether the bytes are on
/// the disk, or its file system knows no such step; the reason why not is the system's last error.
[[nodiscard]] bool SyncToDisk(int descriptor);

/// Has the system write out which files a folder holds, so that a file that was renamed in it
/// survives a power cut. Does what it can: the file is saved already, and no failure here is a
/// reason to tell a person otherwise.
void SyncFolder(const QString& folder);

} // namespace editor
