#include "app/LevelArea.h"

#include "platform/MdiForm.h"

#include <QResizeEvent>

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

LevelArea::LevelArea(QWidget* parent) : QMdiArea(parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(QStringLiteral("Level windows"));
}

void LevelArea::Pin(MdiForm& form) {
    form.setWindowFlag(Qt::WindowStaysOnTopHint);
    std::erase_if(pinned_, [](const QPointer<MdiForm>& gone) { return gone.isNull(); });
    pinned_.emplace_back(&form);
}

template <class Action>
void LevelArea::ForEachPinned(Action action) {
    for (const QPointer<MdiForm>& form : pinned_) {
        if (!form.isNull()) {
            action(*form);
        }
    }
}

// QMdiArea has moved all its windows by then.
void LevelArea::scrollContentsBy(int dx, int dy) {
    QMdiArea::scrollContentsBy(dx, dy);
    const QSize room = viewport()->size();
    ForEachPinned([&](MdiForm& form) {
        form.move(PinnedPlace(form.x() - dx, dx, form.width(), room.width()),
                  PinnedPlace(form.y() - dy, dy, form.height(), room.height()));
    });
}

// A pinned window follows the side that it is nearer to, and is not left outside.
void LevelArea::resizeEvent(QResizeEvent* event) {
    QMdiArea::resizeEvent(event);
    const QSize room = viewport()->size();
    ForEachPinned([&](MdiForm& form) {
        const bool right = form.geometry().center().x() > event->oldSize().width() / 2;
        const int x = form.x() + (right ? room.width() - event->oldSize().width() : 0);
        form.move(std::clamp(x, 0, std::max(0, room.width() - form.width())),
                  std::clamp(form.y(), 0, std::max(0, room.height() - form.height())));
    });
}

} // namespace editor
