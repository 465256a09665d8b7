// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "view/ViewHost.h"

namespace editor {

ViewHost viewHost;

} // namespace editor
