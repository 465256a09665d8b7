// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/FormArea.h"

#include "windows/MdiForm.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>

namespace editor {
namespace {

constexpr int LineHeight = 20; // pixels that one click of a bar's arrow scrolls
constexpr int OneNotch = 120;  // of a wheel, in the units of its events

} // namespace

// With both of its own bars switched off the base class leaves its sub-windows where they are.
FormArea::FormArea(QWidget* parent)
    : QMdiArea(parent), across_(MakeBar(Qt::Horizontal, QStringLiteral("across"))),
      down_(MakeBar(Qt::Vertical, QStringLiteral("down"))) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(QStringLiteral("Level windows"));
}

QScrollBar* FormArea::MakeBar(Qt::Orientation orientation, const QString& name) {
    auto* bar = new QScrollBar(orientation, this);
    bar->setObjectName(name);
    bar->setSingleStep(LineHeight);
    bar->hide();
    connect(bar, &QScrollBar::valueChanged, this, [this] {
        if (!arranging_) {
            ScrollTo({across_->value(), down_->value()});
        }
    });
    // The thumb stands for all that can be seen; a click beside it leaves a line of that in sight.
    connect(bar, &QScrollBar::actionTriggered, this, [bar](int action) {
        const int page = std::max(LineHeight, bar->pageStep() - LineHeight);
        if (action == QScrollBar::SliderPageStepAdd) {
            bar->setSliderPosition(bar->value() + page);
        } else if (action == QScrollBar::SliderPageStepSub) {
            bar->setSliderPosition(bar->value() - page);
        }
    });
    return bar;
}

void FormArea::ScrollTo(const QPoint& scrolled) {
    scrolled_ = scrolled;
    Arrange();
}

std::vector<MdiForm*> FormArea::Shown() const {
    std::vector<MdiForm*> forms;
    for (QMdiSubWindow* window : subWindowList()) {
        auto* form = qobject_cast<MdiForm*>(window);
        if (form != nullptr && !form->isHidden()) {
            forms.push_back(form);
        }
    }
    return forms;
}

Arrangement FormArea::Plan(const std::vector<MdiForm*>& forms) const {
    std::vector<StandingForm> standing;
    for (const MdiForm* form : forms) {
        standing.push_back({form->size(), form->standing});
    }
    return editor::Arrange(size(), style()->pixelMetric(QStyle::PM_ScrollBarExtent), standing,
                           scrolled_);
}

void FormArea::Arrange() {
    if (arranging_) {
        return;
    }
    const QScopedValueRollback guard(arranging_, true);
    const std::vector<MdiForm*> forms = Shown();
    const Arrangement plan = Plan(forms);
    const QSize bars = size() - plan.room;
    setViewportMargins(0, 0, bars.width(), bars.height());
    for (std::size_t i = 0; i < forms.size(); ++i) {
        forms[i]->move(plan.places[i].corner);
    }
    // A view that is hidden for a while comes back where it was.
    if (std::any_of(forms.begin(), forms.end(),
                    [](const MdiForm* form) { return !form->standing.pinned; })) {
        scrolled_ = plan.scrolled;
    }
    const auto set = [](QScrollBar& bar, const Arrangement::Range& range, int page, int value) {
        bar.setRange(range.minimum, range.maximum);
        bar.setPageStep(page);
        bar.setValue(value);
        bar.setVisible(range.NeedsBar());
    };
    set(*across_, plan.across, plan.room.width(), plan.scrolled.x());
    set(*down_, plan.down, plan.room.height(), plan.scrolled.y());
    across_->setGeometry(0, plan.room.height(), plan.room.width(), bars.height());
    down_->setGeometry(plan.room.width(), 0, bars.width(), plan.room.height());
}

void FormArea::FormWasMoved(MdiForm& form) {
    const std::vector<MdiForm*> forms = Shown();
    const auto index = std::find(forms.begin(), forms.end(), &form) - forms.begin();
    const Arrangement before = Plan(forms);
    MoveTo(form.pos(), form.size(), before.room,
           before.places.at(static_cast<std::size_t>(index)).slid, form.standing, scrolled_);
}

bool FormArea::eventFilter(QObject* watched, QEvent* event) {
    bool handled = false;
    {
        const QScopedValueRollback guard(arranging_, true);
        handled = QMdiArea::eventFilter(watched, event);
    }
    auto* form = qobject_cast<MdiForm*>(watched);
    if (form == nullptr || arranging_) {
        return handled;
    }
    switch (event->type()) {
    case QEvent::Move:
        if (form->isVisible()) { // else the base class looks for a place before the first showing
            FormWasMoved(*form);
        }
        [[fallthrough]];
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        Arrange();
        break;
    default:
        break;
    }
    return handled;
}

void FormArea::resizeEvent(QResizeEvent* event) {
    QMdiArea::resizeEvent(event);
    Arrange();
}

// A touchpad tells pixels, on both axes, and when it is touched. From any other device they can be
// anything.
void FormArea::wheelEvent(QWheelEvent* event) {
    QPoint moved = event->pixelDelta();
    if (moved.isNull() || event->phase() == Qt::NoScrollPhase) {
        turned_ += event->angleDelta() * QApplication::wheelScrollLines() * LineHeight;
        moved = {turned_.x() / OneNotch, turned_.y() / OneNotch};
        turned_ -= moved * OneNotch;
    }
    if (moved.x() == 0 && (event->modifiers() & (Qt::ShiftModifier | Qt::AltModifier))) {
        moved = moved.transposed();
    }
    across_->setValue(across_->value() - moved.x());
    down_->setValue(down_->value() - moved.y());
    event->accept();
}

} // namespace editor
