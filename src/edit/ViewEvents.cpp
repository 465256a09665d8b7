// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "edit/ViewEvents.h"

#include "edit/EntityGestures.h"
#include "edit/Gesture.h"
#include "edit/HitTest.h"
#include "edit/WaypointGestures.h"
#include "edit/frmWaypointSettings.h"
#include "model/mdlEdit.h"
#include "view/Zoom.h"
#include "view/frmWaypoint.h"
#include "windows/MessageBox.h"

namespace editor {
namespace {

void Select(frmWaypointSettings& settings, std::int16_t& curpoint, const LevelPoint& point) {
    switch (settings.Mode()) {
    case EditingMode::Waypoints:
        SelectWaypoint(mdlEdit, curpoint, point,
                       [&settings](int index) { settings.ShowWaypoint(index); });
        break;
    case EditingMode::Items:
        SelectItem(mdlEdit, curpoint, point,
                   [&settings](const ItemRec& item) { settings.ShowItem(item); });
        break;
    case EditingMode::StartPoints:
        SelectStartPoint(mdlEdit, curpoint, point);
        break;
    case EditingMode::None:
        break;
    }
}

GestureResult Create(const frmWaypointSettings& settings, std::int16_t& curpoint,
                     const LevelPoint& point) {
    switch (settings.Mode()) {
    case EditingMode::Waypoints:
        return LinkOrCreateWaypoint(mdlEdit, curpoint, point, settings.Choices());
    case EditingMode::Items:
        return CreateItem(mdlEdit, curpoint, point, settings.ShownItem());
    case EditingMode::StartPoints:
        return CreateStartPoint(mdlEdit, curpoint, point);
    case EditingMode::None:
        break;
    }
    return {.repaint = true};
}

void Finish(frmWaypoint& view, const GestureResult& result) {
    if (result.repaint) {
        view.PaintPoints();
    }
    if (!result.message.isEmpty()) {
        MsgBox(view.window(), result.message);
    }
}

// From the selected waypoint to the pointer, with the pen that the repaint leaves.
void DragLink(frmWaypoint& view, float pointerX, float pointerY) {
    view.PaintPoints();
    if (const auto* from = mdlEdit.WayPointTable().Find(view.curpoint)) {
        view.DrawRubberBand(static_cast<float>(from->X) * mdlEdit.Zoom,
                            static_cast<float>(from->Y) * mdlEdit.Zoom, pointerX, pointerY);
    }
}

} // namespace

void Form_MouseDown(frmWaypoint& view, frmWaypointSettings& settings, int button, float x,
                    float y) {
    if (button == LeftButton) {
        Select(settings, view.curpoint, ToLevel(x, y, mdlEdit.Zoom));
    }
    view.PaintPoints();
}

void Form_MouseMove(frmWaypoint& view, frmWaypointSettings& settings, int buttons, float x,
                    float y) {
    const EditingMode mode = settings.Mode();
    if (buttons == LeftButton) {
        Finish(view, MoveSelected(mdlEdit, mode, view.curpoint, ToLevel(x, y, mdlEdit.Zoom)));
    } else if (buttons == RightButton && mode == EditingMode::Waypoints) {
        DragLink(view, x, y);
    }
}

void Form_MouseUp(frmWaypoint& view, frmWaypointSettings& settings, int button, float x, float y) {
    Finish(view, button == RightButton
                     ? Create(settings, view.curpoint, ToLevel(x, y, mdlEdit.Zoom))
                     : GestureResult{.repaint = true});
}

void Form_KeyDown(frmWaypoint& view, frmWaypointSettings& settings, int key, bool keypad) {
    const bool plus = keypad && key == Qt::Key_Plus;
    const bool minus = keypad && key == Qt::Key_Minus;
    const float zoom = plus    ? LargerZoom(mdlEdit.Zoom)
                       : minus ? SmallerZoom(mdlEdit.Zoom)
                               : mdlEdit.Zoom;
    if (zoom != mdlEdit.Zoom) {
        SetZoom(view, zoom);
    }
    if (key == Qt::Key_Delete) {
        Finish(view, DeleteSelected(mdlEdit, settings.Mode(), view.curpoint));
    }
}

} // namespace editor
