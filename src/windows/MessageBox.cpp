// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/MessageBox.h"

#include <QMessageBox>

namespace editor {
namespace {

void ShowMessageBox(QWidget* owner, const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::NoIcon, title, text, QMessageBox::Ok, owner);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace

QString ApplicationTitle() {
    return QStringLiteral("Torvak! level editor");
}

void MsgBox(QWidget* owner, const QString& text, const QString& title) {
    messageBox()(owner, text, title);
}

MessageBox& messageBox() {
    static MessageBox shown = ShowMessageBox;
    return shown;
}

} // namespace editor
