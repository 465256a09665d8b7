// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "view/frmWaypoint.h"

#include "model/Rounding.h"
#include "model/mdlEdit.h"
#include "painting/Canvas.h"
#include "view/PaintPoints.h"
#include "view/Zoom.h"
#include "windows/FormArea.h"

#include <QAccessibleWidget>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace editor {
namespace {

// In which the rubber band is drawn.
constexpr std::uint32_t ForegroundColour = 0xff000000;

int ButtonMask(Qt::MouseButtons buttons) {
    return (buttons.testFlag(Qt::LeftButton) ? LeftButton : 0) |
           (buttons.testFlag(Qt::RightButton) ? RightButton : 0) |
           (buttons.testFlag(Qt::MiddleButton) ? MiddleButton : 0);
}

} // namespace

/// The view's client area, which passes the mouse and the keys on as the view's signals.
class frmWaypoint::LevelCanvas : public Canvas {
  public:
    explicit LevelCanvas(frmWaypoint& form) : form_(form) {
        QAccessible::installFactory(&LevelCanvas::Accessible); // before its name asks for it
        setFocusPolicy(Qt::StrongFocus);
        setMouseTracking(true);
        setAccessibleName(QStringLiteral("Level picture"));
        setAccessibleDescription(
            QStringLiteral("The level with the entities of the current mode. Plus and minus on the "
                           "keypad zoom, DEL deletes what is selected."));
    }

  protected:
    void mousePressEvent(QMouseEvent* event) override {
        held_.setFlag(event->button());
        dropped_.setFlag(event->button(), false);
        Report(&frmWaypoint::MouseDown, event, event->button());
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseMoveEvent(QMouseEvent* event) override {
        dropped_ &= event->buttons();
        if (dropped_ == Qt::NoButton) {
            Report(&frmWaypoint::MouseMove, event, event->buttons());
        }
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        held_.setFlag(event->button(), false);
        if (!dropped_.testFlag(event->button())) {
            Report(&frmWaypoint::MouseUp, event, event->button());
        }
        dropped_.setFlag(event->button(), false);
    }

    // A gesture must not go on where nobody sees it: a view that is hidden while a button is held
    // still gets the mouse; a menu that opens takes it, and the release.
    bool event(QEvent* event) override {
        bool away = event->type() == QEvent::WindowDeactivate;
        if (event->type() == QEvent::FocusOut) {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            away = reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
        }
        if (away || event->type() == QEvent::Hide) {
            dropped_ |= std::exchange(held_, Qt::NoButton);
        }
        if (away && dropped_ != Qt::NoButton) {
            form_.PaintPoints(); // without the line of a link
        }
        return Canvas::event(event);
    }

    void keyPressEvent(QKeyEvent* event) override {
        Q_EMIT form_.KeyDown(form_, event->key(), event->modifiers().testFlag(Qt::KeypadModifier));
    }

  private:
    // To assistive technology a widget without a role of its own is a mere container.
    static QAccessibleInterface* Accessible(const QString&, QObject* object) {
        auto* canvas = dynamic_cast<LevelCanvas*>(object);
        return canvas != nullptr ? new QAccessibleWidget(canvas, QAccessible::Canvas) : nullptr;
    }

    void Report(void (frmWaypoint::*signal)(frmWaypoint&, int, float, float), QMouseEvent* event,
                Qt::MouseButtons buttons) {
        const QPointF position = event->position();
        Q_EMIT(form_.*signal)
        (form_, ButtonMask(buttons), static_cast<float>(position.x()),
         static_cast<float>(position.y()));
    }

    frmWaypoint& form_;
    Qt::MouseButtons held_;
    Qt::MouseButtons dropped_; // held too, by a gesture that has ended
};

frmWaypoint::frmWaypoint(FormArea& area, std::function<EditingMode()> shownMode)
    : MdiForm(area, QStringLiteral("Entities"), new LevelCanvas(*this)),
      shownMode_(std::move(shownMode)), canvas_(static_cast<Canvas*>(widget())) {
    Form_Load();
}

void frmWaypoint::Form_Load() {
    const QSize frame = FrameSize();
    addwidth = RoundTo<std::int16_t>(frame.width());
    addheight = RoundTo<std::int16_t>(frame.height());
}

void frmWaypoint::Init() {
    curpoint = NoSelection;
    SizeView(*this);
    if (!Image().HasBackground()) {
        DrawLevelPicture(*this);
    }
    PaintPoints();
    TakeKeyboard();
}

// The window that was shown last has the keyboard; the first key would be typed into its text box.
void frmWaypoint::TakeKeyboard() {
    Area().setActiveSubWindow(this);
    canvas_->setFocus();
}

QPoint frmWaypoint::LookedAt() const {
    const QPoint pointer = QCursor::pos();
    return window()->childAt(window()->mapFromGlobal(pointer)) == canvas_
               ? canvas_->mapFromGlobal(pointer)
               : canvas_->visibleRegion().boundingRect().center();
}

void frmWaypoint::PaintPoints() {
    PaintEntities(Image(), mdlEdit, shownMode_(), curpoint);
    canvas_->UpdateChanges();
}

void frmWaypoint::DrawRubberBand(float x1, float y1, float x2, float y2) {
    Image().Line(ViewPixel(x1, y1), ViewPixel(x2, y2), ForegroundColour);
    canvas_->UpdateChanges();
}

PersistentImage& frmWaypoint::Image() {
    return canvas_->Image();
}

} // namespace editor
