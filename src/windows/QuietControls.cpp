// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/QuietControls.h"

#include <QComboBox>
#include <QKeyEvent>

namespace editor {
namespace {

bool IsEnterOrEsc(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        return true;
    default:
        return false;
    }
}

} // namespace

void QuietControls::InstallOn(QWidget& window) {
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (control->focusPolicy() != Qt::NoFocus) {
            control->installEventFilter(this);
        }
        if (auto* list = qobject_cast<QComboBox*>(control)) {
            list->setFocusPolicy(Qt::StrongFocus); // by default the wheel brings the keyboard
        }
    }
}

bool QuietControls::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        // Some desktops have Enter press the button or check the box that has the keyboard.
        return IsEnterOrEsc(static_cast<const QKeyEvent&>(*event));
    case QEvent::Wheel:
        if (const auto* list = qobject_cast<QComboBox*>(watched); list && !list->hasFocus()) {
            event->ignore(); // the area may scroll with it
            return true;
        }
        return false;
    default:
        return false;
    }
}

} // namespace editor
