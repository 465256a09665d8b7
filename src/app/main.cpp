// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "app/frmMain.h"
#include "windows/Dialogs.h"
#include "windows/Look.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char** argv) {
    editor::LeaveNoConfiguration();
    QApplication application(argc, argv);
    editor::ApplyLook(application);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/torvak-level-editor.png")));
    editor::frmMain main;
    main.show();
    return QApplication::exec();
}
