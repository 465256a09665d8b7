#include "view/frmWaypoint.h"

#include "model/mdlEdit.h"
#include "platform/Rounding.h"
#include "view/LevelGraphics.h"
#include "view/PaintPoints.h"
#include "view/ViewHost.h"

#include <QKeyEvent>
#include <QMdiArea>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

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

/// The view's client area.
class frmWaypoint::Canvas : public QWidget {
  public:
    explicit Canvas(frmWaypoint& form) : form_(form) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFocusPolicy(Qt::StrongFocus);
        setMouseTracking(true);
        setAccessibleName(QStringLiteral("Level picture"));
    }

  protected:
    // Only the exposed rectangles are worked out, into a buffer that is kept: a new one for each
    // frame would cost more than the painting.
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        for (const QRect& exposed : event->region()) {
            if (buffer_.width() < exposed.width() || buffer_.height() < exposed.height()) {
                buffer_ = QImage(exposed.size().expandedTo(buffer_.size()), QImage::Format_RGB32);
            }
            form_.image_.Paint(reinterpret_cast<std::uint32_t*>(buffer_.bits()),
                               buffer_.bytesPerLine() / qsizetype{sizeof(std::uint32_t)}, exposed);
            painter.drawImage(exposed.topLeft(), buffer_, QRect(QPoint(0, 0), exposed.size()));
        }
    }

    void mousePressEvent(QMouseEvent* event) override {
        Report(&frmWaypoint::MouseDown, event, event->button());
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseMoveEvent(QMouseEvent* event) override {
        Report(&frmWaypoint::MouseMove, event, event->buttons());
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        Report(&frmWaypoint::MouseUp, event, event->button());
    }

    void keyPressEvent(QKeyEvent* event) override {
        Q_EMIT form_.KeyDown(event->key(), event->modifiers().testFlag(Qt::KeypadModifier));
    }

  private:
    void Report(void (frmWaypoint::*signal)(int, float, float), QMouseEvent* event,
                Qt::MouseButtons buttons) {
        const QPointF position = event->position();
        Q_EMIT(form_.*signal)
        (ButtonMask(buttons), static_cast<float>(position.x()), static_cast<float>(position.y()));
    }

    frmWaypoint& form_;
    QImage buffer_;
};

frmWaypoint::frmWaypoint(QMdiArea& area)
    : MdiForm(area, QStringLiteral("Entities"), new Canvas(*this)),
      canvas_(static_cast<Canvas*>(widget())) {
    Form_Load();
}

void frmWaypoint::Form_Load() {
    const QSize frame = FrameSize();
    addwidth = RoundTo<std::int16_t>(frame.width());
    addheight = RoundTo<std::int16_t>(frame.height());
}

void frmWaypoint::Init() {
    curpoint = -1;
    viewHost.showEntitySettings();
    SizeView(*this);
    if (!image_.HasBackground()) {
        DrawLevelPicture(*this);
    }
    PaintPoints();
    TakeKeyboard();
}

// The window that was shown last has the keyboard; the first key would be typed into its text box.
void frmWaypoint::TakeKeyboard() {
    mdiArea()->setActiveSubWindow(this);
    canvas_->setFocus();
}

void frmWaypoint::PaintPoints() {
    // Before the selection is read: asking for the mode may change it.
    const EditingMode mode = viewHost.editingMode();
    PaintEntities(image_, mdlEdit, mode, curpoint);
    UpdateChanges();
}

void frmWaypoint::DrawRubberBand(float x1, float y1, float x2, float y2) {
    image_.Line(x1, y1, x2, y2, ForegroundColour);
    UpdateChanges();
}

void frmWaypoint::UpdateChanges() {
    canvas_->update(image_.TakeChanges(canvas_->visibleRegion().boundingRect()));
}

void frmWaypoint::Form_QueryUnload() {
    viewHost.hideEntitySettings();
    viewHost.checkLevelItems(false);
}

} // namespace editor
