// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/Choosers.h"

#include <QTemporaryDir>
#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

namespace editor::test {

using namespace Qt::StringLiterals;

// Where programs keep their configuration; set before the first of them looks.
const QTemporaryDir configuration;
const bool isSet = qputenv("XDG_CONFIG_HOME", QFile::encodeName(configuration.path()));

/// Looks at the dialog that comes next, once it is shown, and enters a name in it; cancels it when
/// there is none.
void Answer(const QString& name, const std::function<void(const QFileDialog&)>& look) {
    QTimer::singleShot(0, [=] {
        auto& dialog = *static_cast<QFileDialog*>(QApplication::activeModalWidget());
        look(dialog);
        dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(name);
        QTest::keyClick(&dialog, name.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    });
}

TEST(Choosers, GiveCleanPathsOfFilesThatNeedNotExistAndOfFoldersAndKeepNothing) {
    LeaveNoConfiguration();
    const QTemporaryDir temporary;
    const QString folder = temporary.path(), quoted = u"a \" b"_s;
    ASSERT_TRUE(isSet && QDir(folder).mkdir(u"sub"_s) && QDir(folder).mkdir(quoted));
    const QString files[][2] = {{u"sub/../no ending"_s, folder + u"/no ending"_s},
                                {u" \" "_s, folder + u"/ \" "_s},
                                {{}, {}}};
    for (const auto& [typed, chosen] : files) {
        Answer(typed, [](const QFileDialog& dialog) {
            EXPECT_EQ(dialog.nameFilters(), QStringList({u"A c (*.a)"_s, u"B (*.b)"_s}));
        });
        EXPECT_EQ(choosers().openFileName(nullptr, u"Open File"_s, folder, u"A c|*.a|B|*.b|"_s),
                  chosen);
    }
    for (const QString& name : {u"sub"_s, quoted}) {
        Answer(folder + u"/sub/../"_s + name,
               [](const QFileDialog& dialog) { EXPECT_EQ(dialog.windowTitle(), u"Please"_s); });
        EXPECT_EQ(choosers().browseForFolder(nullptr, u"Please"_s), folder + u'/' + name);
    }
    EXPECT_TRUE(QDir(configuration.path()).isEmpty());
}

} // namespace editor::test
