// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/EditingMode.h"
#include "painting/PersistentImage.h"
#include "windows/MdiForm.h"

#include <cstdint>
#include <functional>

namespace editor {

class Canvas;

/// Mouse buttons as a bit mask.
enum MouseButtons : int { NoButton = 0, LeftButton = 1, RightButton = 2, MiddleButton = 4 };

/// The map view, caption "Entities": the level picture magnified by mdlEdit.Zoom with the entities
/// of the current editing mode over it. It shows and reports; what an event does is decided by
/// those who listen to its signals.
class frmWaypoint : public MdiForm {
    Q_OBJECT

  public:
    /// `shownMode` tells the editing mode whose entities are to be seen. It is asked at every
    /// repaint and changes nothing.
    frmWaypoint(FormArea& area, std::function<EditingMode()> shownMode);

    /// The selection: an index into the table of the current editing mode, or NoSelection.
    std::int16_t curpoint = NoSelection;
    // Outer size minus client size in pixels, measured when the view is made.
    std::int16_t addwidth = 0;
    std::int16_t addheight = 0;

    /// Clears the selection, sizes and repaints the view, and gives it the keyboard. The entity
    /// settings are to be shown before.
    void Init();

    /// Repaints the entities of the current mode over the background.
    void PaintPoints();

    /// Draws a line over what PaintPoints() left, with the pen that it left, until the next
    /// repaint. Positions are view pixels.
    void DrawRubberBand(float x1, float y1, float x2, float y2);

    /// Makes the view the active window and gives it the keyboard.
    void TakeKeyboard();

    /// The view pixel that the user looks at: the one under the pointer, or the one in the middle
    /// of what can be seen when the pointer is elsewhere.
    [[nodiscard]] QPoint LookedAt() const;

    /// The view's client area in pixels.
    [[nodiscard]] QSize ClientSize() const { return widget()->size(); }

    [[nodiscard]] PersistentImage& Image();

  Q_SIGNALS:
    // Positions are view pixels and may have fractions on scaled screens. A press or release
    // names the one button that changed, a move all buttons that are held. A second press within
    // the double-click time is a press like any other.
    void MouseDown(frmWaypoint& view, int button, float x, float y);
    void MouseMove(frmWaypoint& view, int buttons, float x, float y);
    void MouseUp(frmWaypoint& view, int button, float x, float y);
    /// `key` is a Qt::Key, `keypad` tells whether it lies on the numeric keypad.
    void KeyDown(frmWaypoint& view, int key, bool keypad);

  private:
    class LevelCanvas;

    void Form_Load();

    std::function<EditingMode()> shownMode_;
    Canvas* canvas_;
};

} // namespace editor
