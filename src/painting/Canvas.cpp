// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "painting/Canvas.h"

#include <QPaintEvent>
#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace editor {
namespace {

// What may show a pixel that changed, on a scaled screen: a pixel of the device may lie across the
// edge of a rectangle.
QRect Widened(const QRect& part) {
    return part.adjusted(-2, -2, 2, 2);
}

// Makes a buffer at least `size` large. It only grows.
void Enlarge(QImage& buffer, const QSize& size) {
    if (buffer.width() < size.width() || buffer.height() < size.height()) {
        buffer = QImage(size.expandedTo(buffer.size()), QImage::Format_RGB32);
    }
}

std::uint32_t* Row(QImage& buffer, int y) {
    return reinterpret_cast<std::uint32_t*>(buffer.scanLine(y));
}

} // namespace

Canvas::Canvas(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void Canvas::UpdateChanges() {
    const QRegion changed = image_.TakeChanges(visibleRegion().boundingRect());
    const qreal scale = devicePixelRatioF();
    if (scale == std::floor(scale)) {
        update(changed);
    } else if (!changed.isEmpty()) {
        // With an odd scale the system's rounding lets gaps come up between a region's rectangles.
        update(Widened(changed.boundingRect()));
    }
}

// Only the exposed rectangles are worked out, one band after the other.
void Canvas::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const qreal scale = devicePixelRatioF();
    for (const QRect& exposed : event->region()) {
        for (int top = exposed.top(); top <= exposed.bottom(); top += PersistentImage::BandHeight) {
            const QRect band =
                exposed & QRect(exposed.left(), top, exposed.width(), PersistentImage::BandHeight);
            if (scale == 1) {
                painter.drawImage(band.topLeft(), Painted(band), QRect(QPoint(0, 0), band.size()));
            } else {
                PaintScaled(painter, Widened(band) & rect(), scale);
            }
        }
    }
}

// The pixels of `exposed` in the top left corner of a buffer.
const QImage& Canvas::Painted(const QRect& exposed) {
    Enlarge(buffer_, exposed.size());
    image_.Paint(Row(buffer_, 0), buffer_.bytesPerLine() / qsizetype{sizeof(std::uint32_t)},
                 exposed);
    return buffer_;
}

// On a scaled screen each device pixel shows the canvas pixel in which its centre lies. That
// depends on nothing but its place in the window, so that no seam shows between two paintings.
void Canvas::PaintScaled(QPainter& painter, const QRect& exposed, qreal scale) {
    const QPoint origin = mapTo(window(), QPoint(0, 0));
    const auto firstDevice = [scale](int pixel) { return qCeil(pixel * scale - 0.5); };
    const auto pixelOf = [scale](int device) { return qFloor((device + 0.5) / scale); };
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
    std::generate(columns_.begin(), columns_.end(), [&, x = first.x()]() mutable {
        return std::clamp(pixelOf(x++) - onWindow.left(), 0, exposed.width() - 1);
    });
    for (int y = 0; y < size.height(); ++y) {
        const int row = pixelOf(first.y() + y) - onWindow.top();
        const std::uint32_t* source = Row(buffer_, std::clamp(row, 0, exposed.height() - 1));
        std::transform(columns_.begin(), columns_.end(), Row(scaled_, y),
                       [source](int column) { return source[column]; });
    }
    // An image of the screen's own scale is drawn pixel by pixel.
    QImage drawn(scaled_.constBits(), size.width(), size.height(), scaled_.bytesPerLine(),
                 scaled_.format());
    drawn.setDevicePixelRatio(scale);
    painter.drawImage(QPointF(first) / scale - origin, drawn);
}

} // namespace editor
