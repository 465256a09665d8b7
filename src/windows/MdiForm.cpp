// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/MdiForm.h"

#include "windows/FormArea.h"

#include <QCloseEvent>
#include <QLayout>
#include <QMouseEvent>

namespace editor {

MdiForm::MdiForm(FormArea& area, const QString& caption, QWidget* client, const Standing& place)
    : standing(place), area_(area) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(caption);
    client->setWindowTitle(caption);
    setWidget(client);
    // The system menu's entries would let a key close the form and let it leave the top. And the
    // menu opens in the client area too, when the pointer gets there from the icon in one jump.
    setSystemMenu(nullptr);
    // No maximise and minimise boxes: such a form would change the main window's caption and get
    // into states in which its size cannot be set. The close box needs the hint of a system menu.
    Qt::WindowFlags flags = Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    flags.setFlag(Qt::WindowStaysOnTopHint, standing.pinned);
    area.addSubWindow(this, flags);
    hide();
}

QSize MdiForm::FrameSize() {
    // Before it was shown, the frame is known only once the style was applied and the layout that
    // keeps the client inside the frame was worked out for the size that the form has now.
    ensurePolished();
    layout()->invalidate();
    layout()->activate();
    return size() - widget()->size();
}

void MdiForm::FixClientSize(const QSize& size) {
    setFixedSize(size + FrameSize());
}

void MdiForm::closeEvent(QCloseEvent* event) {
    event->accept();
    Q_EMIT Closed();
}

void MdiForm::hideEvent(QHideEvent* event) {
    QMdiSubWindow::hideEvent(event);
    Q_EMIT Hidden();
}

// The base class knows what the pointer is over since it last moved. Under a pointer that rests the
// form may have come to stand since.
void MdiForm::mousePressEvent(QMouseEvent* event) {
    QMouseEvent hover(QEvent::MouseMove, event->position(), event->globalPosition(), Qt::NoButton,
                      Qt::NoButton, event->modifiers());
    mouseMoveEvent(&hover);
    QMdiSubWindow::mousePressEvent(event);
}

// Two clicks on the icon would close the form.
void MdiForm::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

} // namespace editor
