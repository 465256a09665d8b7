// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "view/Zoom.h"

#include "model/Rounding.h"
#include "model/mdlEdit.h"
#include "view/frmWaypoint.h"
#include "windows/FormArea.h"

#include <algorithm>
#include <cmath>

namespace editor {

float LargerZoom(float zoom) {
    const auto* larger = std::upper_bound(ZoomSteps.begin(), ZoomSteps.end(), zoom);
    return larger == ZoomSteps.end() ? zoom : *larger;
}

float SmallerZoom(float zoom) {
    const auto* same = std::lower_bound(ZoomSteps.begin(), ZoomSteps.end(), zoom);
    return same == ZoomSteps.begin() ? zoom : *(same - 1);
}

void SizeView(frmWaypoint& view) {
    const auto outer = [](std::int16_t levelSize, std::int16_t added) {
        return RoundTo<std::int32_t>(mdlEdit.Zoom * static_cast<float>(levelSize) +
                                     static_cast<float>(added));
    };
    view.resize(outer(mdlEdit.LevelWidth, view.addwidth),
                outer(mdlEdit.LevelHeight, view.addheight));
}

void DrawLevelPicture(frmWaypoint& view) {
    if (mdlEdit.GraphicsLoaded) {
        view.Image().SetBackground(mdlEdit.LevelPicture, view.ClientSize());
    }
}

void SetZoom(frmWaypoint& view, float zoom) {
    const QPoint kept = view.LookedAt();
    const float factor = zoom / mdlEdit.Zoom;
    const auto moved = [factor](int pixel) {
        return static_cast<int>(std::floor((static_cast<float>(pixel) + 0.5F) * factor)) - pixel;
    };
    QPoint scrolled = view.Area().Scrolled() + QPoint(moved(kept.x()), moved(kept.y()));
    mdlEdit.Zoom = zoom;
    SizeView(view);
    // What can be seen as a whole without scrolling is not scrolled, also where it is partly
    // covered.
    const QRect unscrolled(view.standing.place, view.size());
    const QSize room = view.Area().viewport()->size();
    scrolled.rx() = unscrolled.right() < room.width() ? 0 : scrolled.x();
    scrolled.ry() = unscrolled.bottom() < room.height() ? 0 : scrolled.y();
    view.Area().ScrollTo(scrolled);
    DrawLevelPicture(view);
    view.PaintPoints();
    view.widget()->repaint();
}

} // namespace editor
