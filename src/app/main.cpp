// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "app/frmMain.h"
#include "windows/Choosers.h"
#include "windows/Look.h"

#include <QApplication>
#include <QIcon>

#include <algorithm>

int main(int argc, char** argv) {
    editor::LeaveNoConfiguration();
    editor::KeepDesktopLookOut();
    argc = std::min(argc, 1); // there is no command line, and Qt's own options are not part of one
    QApplication application(argc, argv);
    editor::ApplyLook(application);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/torvak-level-editor.png")));
    editor::frmMain main;
    main.show();
    return QApplication::exec();
}
