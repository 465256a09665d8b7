// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "dialogs/DialogHost.h"

namespace editor {

DialogHost dialogHost;

} // namespace editor
