// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "app/Wiring.h"

#include "app/frmMain.h"
#include "dialogs/frmLevel.h"
#include "edit/ViewEvents.h"
#include "edit/frmWaypointSettings.h"
#include "view/frmWaypoint.h"
#include "windows/FormArea.h"

namespace editor {
namespace {

template <class Form>
Form* Watched(Form* form, frmMain& main) {
    QObject::connect(form, &MdiForm::Hidden, &main, &frmMain::KeepKeyboardInSight,
                     Qt::QueuedConnection);
    return form;
}

} // namespace

frmWaypoint* MakeMapView(frmMain& main, FormArea& area) {
    auto* view = new frmWaypoint(area, [&main] {
        const frmWaypointSettings* settings = main.entitySettings.Existing();
        return settings != nullptr ? settings->Mode() : frmWaypointSettings::InitialMode;
    });
    // An event of the view that comes when the settings were closed makes them anew.
    const auto answer = [&main, view](auto signal, auto handler) {
        QObject::connect(view, signal, view, [&main, handler](frmWaypoint& sender, auto... what) {
            frmWaypointSettings& settings = main.entitySettings.Use();
            handler(sender, settings, what...);
        });
    };
    answer(&frmWaypoint::MouseDown, Form_MouseDown);
    answer(&frmWaypoint::MouseMove, Form_MouseMove);
    answer(&frmWaypoint::MouseUp, Form_MouseUp);
    answer(&frmWaypoint::KeyDown, Form_KeyDown);
    QObject::connect(view, &MdiForm::Closed, &main, &frmMain::MapViewClosed);
    return Watched(view, main);
}

frmWaypointSettings* MakeEntitySettings(frmMain& main, FormArea& area) {
    return Watched(new frmWaypointSettings(area, main.mapView), main);
}

frmLevel* MakeLevelSettings(frmMain& main, FormArea& area) {
    auto* dialog = new frmLevel(area);
    QObject::connect(dialog, &frmLevel::Accepted, &main, &frmMain::LevelSettingsAccepted);
    QObject::connect(dialog, &MdiForm::Closed, &main, &frmMain::LevelSettingsClosed);
    return Watched(dialog, main);
}

} // namespace editor
