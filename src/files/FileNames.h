// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace editor {

/// Where a name that the game would open on its own platform lies on this one.
///
/// `name` is relative to `folder`; both "\" and "/" separate its components. Each component is
/// looked for with its exact name first and then without regard to letter case (of several such
/// matches the first in code point order that leads to a file). The result is the full path of the
/// entry that was found, or, when there is none, the path that the exact name would have. An empty
/// name is the folder itself.
[[nodiscard]] QString FindInFolder(const QString& folder, const QString& name);

/// `folder` and `name` joined by one "/".
[[nodiscard]] QString JoinPath(const QString& folder, const QString& name);

} // namespace editor
