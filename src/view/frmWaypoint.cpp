// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "view/frmWaypoint.h"

#include "model/Rounding.h"
#include "model/mdlEdit.h"
#include "view/LevelGraphics.h"
#include "view/PaintPoints.h"
#include "view/ViewHost.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <vector>

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
        QAccessible::installFactory(&Canvas::Accessible); // before it is asked for, by the name
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFocusPolicy(Qt::StrongFocus);
        setMouseTracking(true);
        setAccessibleName(QStringLiteral("Level picture"));
        setAccessibleDescription(
            QStringLiteral("The level with the entities of the current mode. Plus and minus on the "
                           "keypad zoom, DEL deletes what is selected."));
    }

    // Has `changed` painted again. With an odd scale the system's rounding lets gaps come up
    // between the rectangles of a region, and its edge may run through a pixel that changed.
    void UpdatePart(const QRegion& changed) {
        const qreal scale = devicePixelRatioF();
        if (scale == std::floor(scale)) {
            update(changed);
        } else if (!changed.isEmpty()) {
            update(Widened(changed.boundingRect()));
        }
    }

  protected:
    // Only the exposed rectangles are worked out, band by band, into buffers that are kept: new
    // ones for each frame would cost more than the painting.
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        const qreal scale = devicePixelRatioF();
        for (const QRect& exposed : event->region()) {
            for (int top = exposed.top(); top <= exposed.bottom();
                 top += PersistentImage::BandHeight) {
                const QRect band = exposed & QRect(exposed.left(), top, exposed.width(),
                                                   PersistentImage::BandHeight);
                if (scale == 1) {
                    painter.drawImage(band.topLeft(), Painted(band),
                                      QRect(QPoint(0, 0), band.size()));
                } else {
                    PaintScaled(painter, Widened(band) & rect(), scale);
                }
            }
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
    // To assistive programs a widget without a role of its own is mere filling.
    static QAccessibleInterface* Accessible(const QString&, QObject* object) {
        auto* canvas = dynamic_cast<Canvas*>(object);
        return canvas != nullptr ? new QAccessibleWidget(canvas, QAccessible::Canvas) : nullptr;
    }

    static QRect Widened(const QRect& part) { return part.adjusted(-2, -2, 2, 2); }

    // Makes a buffer at least `size` large. It only grows.
    static void Enlarge(QImage& buffer, const QSize& size) {
        if (buffer.width() < size.width() || buffer.height() < size.height()) {
            buffer = QImage(size.expandedTo(buffer.size()), QImage::Format_RGB32);
        }
    }

    static std::uint32_t* Row(QImage& buffer, int y) {
        return reinterpret_cast<std::uint32_t*>(buffer.scanLine(y));
    }

    // The pixels of `exposed` in the top left corner of a buffer.
    const QImage& Painted(const QRect& exposed) {
        Enlarge(buffer_, exposed.size());
        form_.image_.Paint(Row(buffer_, 0),
                           buffer_.bytesPerLine() / qsizetype{sizeof(std::uint32_t)}, exposed);
        return buffer_;
    }

    // On a scaled screen each device pixel shows the view pixel in which its centre lies. That
    // depends on where it is on the window alone, so that no seam shows between two paintings.
    void PaintScaled(QPainter& painter, const QRect& exposed, qreal scale) {
        const QPoint origin = mapTo(window(), QPoint(0, 0));
        const auto firstDevice = [scale](int view) { return qCeil(view * scale - 0.5); };
        const auto viewPixel = [scale](int device) { return qFloor((device + 0.5) / scale); };
        const QRect onWindow = exposed.translated(origin);
        const QPoint first(firstDevice(onWindow.left()), firstDevice(onWindow.top()));
        const QPoint end(firstDevice(onWindow.right() + 1), firstDevice(onWindow.bottom() + 1));
        const QSize size(end.x() - first.x(), end.y() - first.y());
        if (size.isEmpty()) {
            return;
        }
        static_cast<void>(Painted(exposed));
        Enlarge(scaled_, size);
        columns_.resize(static_cast<std::size_t>(size.width()));
        for (int x = 0; x < size.width(); ++x) {
            const int viewX = viewPixel(first.x() + x) - onWindow.left();
            columns_[static_cast<std::size_t>(x)] = std::clamp(viewX, 0, exposed.width() - 1);
        }
        for (int y = 0; y < size.height(); ++y) {
            const int viewY = viewPixel(first.y() + y) - onWindow.top();
            const std::uint32_t* source = Row(buffer_, std::clamp(viewY, 0, exposed.height() - 1));
            std::transform(columns_.begin(), columns_.end(), Row(scaled_, y),
                           [source](int column) { return source[column]; });
        }
        // An image of the screen's own scale is drawn pixel by pixel.
        QImage drawn(scaled_.constBits(), size.width(), size.height(), scaled_.bytesPerLine(),
                     scaled_.format());
        drawn.setDevicePixelRatio(scale);
        painter.drawImage(QPointF(first) / scale - origin, drawn);
    }

    void Report(void (frmWaypoint::*signal)(int, float, float), QMouseEvent* event,
                Qt::MouseButtons buttons) {
        const QPointF position = event->position();
        Q_EMIT(form_.*signal)
        (ButtonMask(buttons), static_cast<float>(position.x()), static_cast<float>(position.y()));
    }

    frmWaypoint& form_;
    QImage buffer_;
    QImage scaled_;
    std::vector<int> columns_; // of buffer_ behind those of scaled_
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
    image_.Line(ViewPixel(x1, y1), ViewPixel(x2, y2), ForegroundColour);
    UpdateChanges();
}

void frmWaypoint::UpdateChanges() {
    canvas_->UpdatePart(image_.TakeChanges(canvas_->visibleRegion().boundingRect()));
}

void frmWaypoint::Form_QueryUnload() {
    viewHost.hideEntitySettings();
    viewHost.checkLevelItems(false);
}

} // namespace editor
