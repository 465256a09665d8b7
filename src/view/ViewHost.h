// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/EditingMode.h"

#include <functional>

namespace editor {

class frmWaypoint;

/// What the map view and the graphics loading ask of the windows around them. The application
/// fills every member before the first event.
struct ViewHost {
    std::function<frmWaypoint&()> mapView; // made when there is none
    std::function<EditingMode()> editingMode;
    std::function<void()> showEntitySettings;
    std::function<void()> hideEntitySettings;
    std::function<void()> resetWaypointCaption;
    std::function<void(bool)> checkLevelItems;
    std::function<void(bool)> setBusyPointer;
    std::function<void()> SetMenus;
};

extern ViewHost viewHost;

} // namespace editor
