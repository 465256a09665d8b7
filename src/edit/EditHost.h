// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

namespace editor {

class frmWaypointSettings;

/// What the editing asks of the windows around it; the map view is that of ViewHost. The
/// application fills every member before the first event.
struct EditHost {
    std::function<frmWaypointSettings&()> entitySettings; // made when there is none
};

extern EditHost editHost;

} // namespace editor
