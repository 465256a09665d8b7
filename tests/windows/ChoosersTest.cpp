// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/Choosers.h"

#include "windows/Look.h"
#include "windows/MessageBox.h"

#include <QTemporaryDir>
#include <QTest>
#include <QtWidgets>

#include <cstdlib>
#include <gtest/gtest.h>

namespace editor::test {

using namespace Qt::StringLiterals;

// Where programs keep their configuration; set before the first of them looks.
const QTemporaryDir configuration;
const bool configurationIsSet =
    setenv("XDG_CONFIG_HOME", QFile::encodeName(configuration.path()).constData(), 1) == 0;

/// Looks at the dialog that comes next, once it is shown, and enters a name in it; cancels it when
/// there is none.
void Answer(const QString& name, const std::function<void(QWidget&)>& look) {
    QTimer::singleShot(0, [=] {
        QWidget& dialog = *QApplication::activeModalWidget();
        look(dialog);
        if (auto* box = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)) {
            box->setText(name);
        }
        QTest::keyClick(&dialog, name.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    });
}

TEST(Choosers, GiveCleanPathsOfFilesThatNeedNotExistAndOfFoldersAndKeepNothing) {
    LeaveNoConfiguration();
    const QTemporaryDir temporary;
    const QString folder = temporary.path(), quoted = u"a \" b"_s;
    ASSERT_TRUE(configurationIsSet && QDir(folder).mkdir(u"sub"_s) && QDir(folder).mkdir(quoted));
    const QString files[][2] = {{u"sub/../no ending"_s, folder + u"/no ending"_s},
                                {u" \" "_s, folder + u"/ \" "_s},
                                {{}, {}}};
    for (const auto& [typed, chosen] : files) {
        Answer(typed, [](QWidget& dialog) {
            EXPECT_EQ(static_cast<QFileDialog&>(dialog).nameFilters(),
                      QStringList({u"PNG graphics (*.png)"_s, u"BMP graphics (*.bmp)"_s}));
        });
        EXPECT_EQ(choosers().openFileName(nullptr, u"Open File"_s, folder,
                                          u"PNG graphics|*.png|BMP graphics|*.bmp|"_s),
                  chosen);
    }
    for (const QString& name : {u"sub"_s, quoted}) {
        Answer(folder + u"/sub/../"_s + name,
               [](QWidget& dialog) { EXPECT_EQ(dialog.windowTitle(), u"Please"_s); });
        EXPECT_EQ(choosers().browseForFolder(nullptr, u"Please"_s), folder + u'/' + name);
    }
    EXPECT_TRUE(QDir(configuration.path()).isEmpty());
}

TEST(MsgBox, ShowsAMessageAsItIs) {
    Answer({}, [](QWidget& dialog) {
        const auto& box = static_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.windowTitle() + box.text(), u"Title<b>text"_s);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
    });
    MsgBox(nullptr, u"<b>text"_s, u"Title"_s);
}

TEST(Fitting, MakesAnyFaceFit) {
    QFont font;
    font.setPixelSize(40);
    EXPECT_LE(QFontMetrics(Fitting(font, u"Text"_s, 20)).horizontalAdvance(u"Text"_s), 20);
}

} // namespace editor::test
