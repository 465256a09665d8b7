// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "edit/ViewEvents.h"

#include "edit/EditHost.h"
#include "edit/Gesture.h"
#include "edit/HitTest.h"
#include "edit/ItemGestures.h"
#include "edit/StartPointGestures.h"
#include "edit/WaypointGestures.h"
#include "edit/frmWaypointSettings.h"
#include "model/mdlEdit.h"
#include "view/LevelGraphics.h"
#include "view/ViewHost.h"
#include "view/frmWaypoint.h"
#include "windows/Dialogs.h"

namespace editor {
namespace {

constexpr float LargestZoom = 8;
constexpr float SmallestZoom = 0.25F;
constexpr float ZoomStep = 2;

void Select(EditingMode mode, std::int16_t& curpoint, const LevelPoint& point) {
    frmWaypointSettings& settings = editHost.entitySettings();
    switch (mode) {
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

GestureResult Move(EditingMode mode, int curpoint, const LevelPoint& point) {
    switch (mode) {
    case EditingMode::Waypoints:
        return MoveWaypoint(mdlEdit, curpoint, point);
    case EditingMode::Items:
        return MoveItem(mdlEdit, curpoint, point);
    case EditingMode::StartPoints:
        return MoveStartPoint(mdlEdit, curpoint, point);
    case EditingMode::None:
        break;
    }
    return {};
}

GestureResult CreateOrLink(EditingMode mode, std::int16_t& curpoint, const LevelPoint& point) {
    const frmWaypointSettings& settings = editHost.entitySettings();
    switch (mode) {
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

GestureResult Delete(EditingMode mode, std::int16_t& curpoint) {
    switch (mode) {
    case EditingMode::Waypoints:
        return DeleteWaypoint(mdlEdit, curpoint);
    case EditingMode::Items:
        return DeleteItem(mdlEdit, curpoint);
    case EditingMode::StartPoints:
        return DeleteStartPoint(mdlEdit, curpoint);
    case EditingMode::None:
        break;
    }
    return {};
}

void Finish(frmWaypoint& view, const GestureResult& result) {
    if (result.repaint) {
        view.PaintPoints();
    }
    if (!result.message.isEmpty()) {
        MsgBox(&view, result.message);
    }
}

// From the selected waypoint to the pointer, with the pen that the repaint leaves.
void DragLink(frmWaypoint& view, float pointerX, float pointerY) {
    view.PaintPoints();
    if (const auto* from = SelectedRecord(mdlEdit.WayPoints, mdlEdit.NumWayPoints, view.curpoint)) {
        view.DrawRubberBand(static_cast<float>(from->X) * mdlEdit.Zoom,
                            static_cast<float>(from->Y) * mdlEdit.Zoom, pointerX, pointerY);
    }
}

void SetZoom(frmWaypoint& view, float zoom) {
    mdlEdit.Zoom = zoom;
    SizeView(view);
    DrawLevelPicture(view);
    view.PaintPoints();
    view.widget()->repaint();
}

} // namespace

EditingMode CurrentMode() {
    frmWaypointSettings& settings = editHost.entitySettings();
    if (settings.TakeUnpainted()) {
        // Like any change of the mode, that by a window made anew is seen at once.
        viewHost.mapView().PaintPoints();
    }
    return settings.Mode();
}

void Form_MouseDown(int button, float x, float y) {
    const LevelPoint point = ToLevel(x, y, mdlEdit.Zoom);
    const EditingMode mode = CurrentMode();
    frmWaypoint& view = viewHost.mapView();
    if (button == LeftButton) {
        Select(mode, view.curpoint, point);
    }
    view.PaintPoints();
}

void Form_MouseMove(int buttons, float x, float y) {
    const LevelPoint point = ToLevel(x, y, mdlEdit.Zoom);
    const EditingMode mode = CurrentMode();
    frmWaypoint& view = viewHost.mapView();
    if (buttons == LeftButton) {
        Finish(view, Move(mode, view.curpoint, point));
    } else if (buttons == RightButton && mode == EditingMode::Waypoints) {
        DragLink(view, x, y);
    }
}

void Form_MouseUp(int button, float x, float y) {
    const LevelPoint point = ToLevel(x, y, mdlEdit.Zoom);
    const EditingMode mode = CurrentMode();
    frmWaypoint& view = viewHost.mapView();
    Finish(view, button == RightButton ? CreateOrLink(mode, view.curpoint, point)
                                       : GestureResult{.repaint = true});
}

void Form_KeyDown(int key, bool keypad) {
    frmWaypoint& view = viewHost.mapView();
    if (keypad && key == Qt::Key_Plus && mdlEdit.Zoom < LargestZoom) {
        SetZoom(view, mdlEdit.Zoom * ZoomStep);
    } else if (keypad && key == Qt::Key_Minus && mdlEdit.Zoom > SmallestZoom) {
        SetZoom(view, mdlEdit.Zoom / ZoomStep);
    }
    const EditingMode mode = CurrentMode();
    if (key == Qt::Key_Delete) {
        Finish(view, Delete(mode, view.curpoint));
    }
}

void ResetWaypointCaption() {
    editHost.entitySettings().ShowWaypoint(NoSelection);
}

} // namespace editor
