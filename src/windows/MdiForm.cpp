// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/MdiForm.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QMdiArea>

namespace editor {

MdiForm::MdiForm(QMdiArea& area, const QString& caption, QWidget* client) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(caption);
    client->setWindowTitle(caption);
    setWidget(client);
    // No maximise and minimise boxes: such a form would change the main window's caption and get
    // into states in which its size cannot be set.
    area.addSubWindow(this, Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
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

// By itself a hidden window passes the keyboard round among its own controls, where keys would do
// their work unseen.
void MdiForm::hideEvent(QHideEvent* event) {
    QMdiSubWindow::hideEvent(event);
    QWidget* focused = QApplication::focusWidget();
    if (focused != nullptr && isAncestorOf(focused)) {
        focused->clearFocus();
    }
    Q_EMIT Hidden();
}

void MdiForm::resizeEvent(QResizeEvent* event) {
    QMdiSubWindow::resizeEvent(event);
    Q_EMIT Resized();
}

} // namespace editor
