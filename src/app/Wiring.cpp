// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "app/Wiring.h"

#include "app/frmMain.h"
#include "dialogs/DialogHost.h"
#include "dialogs/frmLevel.h"
#include "edit/EditHost.h"
#include "edit/ViewEvents.h"
#include "edit/frmWaypointSettings.h"
#include "view/ViewHost.h"
#include "view/frmWaypoint.h"
#include "windows/FormArea.h"

#include <QApplication>

namespace editor {

void WireWindows(frmMain& main) {
    viewHost = {
        .mapView = [&main]() -> frmWaypoint& { return main.mapView(); },
        .editingMode = CurrentMode,
        .showEntitySettings = [&main] { main.ShowEntitySettings(); },
        .hideEntitySettings = [&main] { main.HideEntitySettings(); },
        .resetWaypointCaption = ResetWaypointCaption,
        .checkLevelItems = [&main](bool checked) { main.mnuLevWay->setChecked(checked); },
        .setBusyPointer =
            [](bool busy) {
                if (busy) {
                    QApplication::setOverrideCursor(Qt::WaitCursor);
                } else {
                    QApplication::restoreOverrideCursor();
                }
            },
        .SetMenus = [&main] { main.SetMenus(); },
    };
    editHost = {
        .entitySettings = [&main]() -> frmWaypointSettings& { return main.entitySettings(); },
    };
    dialogHost = {
        .mainWindow = [&main] { return &main; },
        .checkLevelSettings = [&main](bool checked) { main.mnuLevSettings->setChecked(checked); },
    };
}

frmWaypoint* MakeMapView(FormArea& area) {
    auto* view = new frmWaypoint(area);
    area.Watch(*view);
    QObject::connect(view, &frmWaypoint::MouseDown, view, Form_MouseDown);
    QObject::connect(view, &frmWaypoint::MouseMove, view, Form_MouseMove);
    QObject::connect(view, &frmWaypoint::MouseUp, view, Form_MouseUp);
    QObject::connect(view, &frmWaypoint::KeyDown, view, Form_KeyDown);
    return view;
}

frmWaypointSettings* MakeEntitySettings(FormArea& area) {
    auto* settings = new frmWaypointSettings(area);
    area.Pin(*settings);
    return settings;
}

frmLevel* MakeLevelSettings(FormArea& area) {
    auto* dialog = new frmLevel(area);
    area.Pin(*dialog);
    return dialog;
}

} // namespace editor
