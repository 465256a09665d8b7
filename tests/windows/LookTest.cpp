// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/Look.h"

#include "windows/MessageBox.h"

#include <QtWidgets>

#include <gtest/gtest.h>

namespace editor::test {

TEST(MsgBox, ShowsAMessageAsItIs) {
    QTimer::singleShot(0, [] {
        auto& box = *static_cast<QMessageBox*>(QApplication::activeModalWidget());
        EXPECT_EQ(box.windowTitle() + box.text(), QStringLiteral("Title<b>text"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        box.close();
    });
    MsgBox(nullptr, QStringLiteral("<b>text"), QStringLiteral("Title"));
}

TEST(Fitting, MakesAnyFaceFit) {
    const QString text = QStringLiteral("Text");
    QFont font;
    font.setPixelSize(40);
    EXPECT_LE(QFontMetrics(Fitting(font, text, 20)).horizontalAdvance(text), 20);
}

} // namespace editor::test
