// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/FormArea.h"

#include "windows/MdiForm.h"

#include <QCoreApplication>
#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>

namespace editor {

int PinnedPlace(int place, int moved, int size, int room) {
    if (moved < 0 && place + size > room) {
        return std::max(place + moved, room - size);
    }
    if (moved > 0 && place < 0) {
        return std::min(place + moved, 0);
    }
    return place;
}

FormArea::FormArea(QWidget* parent) : QMdiArea(parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(QStringLiteral("Level windows"));
}

void FormArea::Watch(MdiForm& form) {
    // Once the area itself has taken notice.
    connect(&form, &MdiForm::Hidden, this, &FormArea::Settle, Qt::QueuedConnection);
    connect(&form, &MdiForm::Resized, this, &FormArea::Settle, Qt::QueuedConnection);
}

void FormArea::Pin(MdiForm& form) {
    Watch(form);
    form.setWindowFlag(Qt::WindowStaysOnTopHint);
    std::erase_if(pinned_, [](const QPointer<MdiForm>& gone) { return gone.isNull(); });
    pinned_.emplace_back(&form);
}

template <class Action>
void FormArea::ForEachPinned(Action action) {
    for (const QPointer<MdiForm>& form : pinned_) {
        if (!form.isNull()) {
            action(*form);
        }
    }
}

// QMdiArea counts the pinned windows among what can be scrolled to and keeps a range that it once
// had: after zooming out or hiding the view it would go on scrolling, over nothing. So a view that
// was scrolled comes back as far as the room allows, and the bars stand for where it is.
void FormArea::Settle() {
    QPoint scrolled;
    const QSize room = viewport()->size();
    for (QMdiSubWindow* form : subWindowList()) {
        const bool pinned = form->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
        if (pinned || !form->isVisible()) {
            continue;
        }
        const auto back = [](int place, int size, int space) {
            return place < 0 ? std::max(place, std::min(0, space - size)) : place;
        };
        form->move(back(form->x(), form->width(), room.width()),
                   back(form->y(), form->height(), room.height()));
        scrolled = QPoint(std::max(0, -form->x()), std::max(0, -form->y()));
    }
    settling_ = true;
    const auto set = [](QScrollBar* bar, int value) {
        bar->setRange(0, value);
        bar->setValue(value);
    };
    set(horizontalScrollBar(), scrolled.x());
    set(verticalScrollBar(), scrolled.y());
    settling_ = false;
    // A viewport that is told its size works the ranges out anew.
    QResizeEvent same(room, room);
    QCoreApplication::sendEvent(viewport(), &same);
}

// QMdiArea has moved all its windows by then.
void FormArea::scrollContentsBy(int dx, int dy) {
    if (settling_) {
        return;
    }
    QMdiArea::scrollContentsBy(dx, dy);
    const QSize room = viewport()->size();
    ForEachPinned([&](MdiForm& form) {
        form.move(PinnedPlace(form.x() - dx, dx, form.width(), room.width()),
                  PinnedPlace(form.y() - dy, dy, form.height(), room.height()));
    });
}

// A pinned window follows the side that it is nearer to. One that was inside is not left outside.
void FormArea::resizeEvent(QResizeEvent* event) {
    QMdiArea::resizeEvent(event);
    const QSize room = viewport()->size();
    const QSize old = event->oldSize();
    ForEachPinned([&](MdiForm& form) {
        const bool right = form.geometry().center().x() > old.width() / 2;
        const bool inside = QRect(QPoint(0, 0), old).contains(form.geometry());
        QPoint place = form.pos() + QPoint(right ? room.width() - old.width() : 0, 0);
        if (inside) {
            place.setX(std::clamp(place.x(), 0, std::max(0, room.width() - form.width())));
            place.setY(std::clamp(place.y(), 0, std::max(0, room.height() - form.height())));
        }
        form.move(place);
    });
}

} // namespace editor
