// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "edit/EditHost.h"

namespace editor {

EditHost editHost;

} // namespace editor
