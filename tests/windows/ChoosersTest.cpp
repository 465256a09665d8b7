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

/// Answers the dialog that comes next: `answer` gets it once it is shown, and closes it.
void Answer(const std::function<void(QWidget&)>& answer) {
    QTimer::singleShot(0, [answer] { answer(*QApplication::activeModalWidget()); });
}

/// Enters a name in a file dialog; cancels any dialog when there is none.
void Enter(QWidget& dialog, const QString& name = {}) {
    if (!name.isEmpty()) {
        dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(name);
    }
    QTest::keyClick(&dialog, name.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
}

class PlatformDialogs : public testing::Test {
  protected:
    void SetUp() override {
        LeaveNoConfiguration();
        ASSERT_TRUE(configurationIsSet && QDir(folder_).mkpath(u"sub"_s));
        for (const QString& name : {u"/a.png"_s, u"/B.PNG"_s, u"/c.bmp"_s}) {
            ASSERT_TRUE(QFile(folder_ + name).open(QIODevice::WriteOnly));
        }
    }
    void TearDown() override { QDir::setCurrent(QDir::rootPath()); }

    QString Open() {
        return choosers().openFileName(nullptr, u"Open File"_s, folder_,
                                       u"PNG graphics|*.png|BMP graphics|*.bmp|"_s);
    }

    const QTemporaryDir temporary_;
    const QString folder_ = temporary_.filePath(u"level"_s);
};

TEST_F(PlatformDialogs, AChosenFileNeedNotExistItsFolderBecomesCurrentAndNothingElseIsKept) {
    const QString rows[][3] = {{u"a.png"_s, u"/a.png"_s, u""_s}, // typed, chosen, current
                               {u"sub/new.png"_s, u"/sub/new.png"_s, u"/sub"_s},
                               {u"sub/../no ending"_s, u"/no ending"_s, u""_s},
                               {u" a \" b "_s, u"/ a \" b "_s, u""_s}};
    for (const auto& [typed, chosen, current] : rows) {
        Answer([name = typed](QWidget& dialog) {
            EXPECT_EQ(static_cast<QFileDialog&>(dialog).nameFilters(),
                      QStringList({u"PNG graphics (*.png)"_s, u"BMP graphics (*.bmp)"_s}));
            Enter(dialog, name);
        });
        EXPECT_EQ(Open(), folder_ + chosen);
        EXPECT_EQ(QDir::currentPath(), folder_ + current);
    }
    QDir::setCurrent(temporary_.path());
    Answer([](QWidget& dialog) { Enter(dialog); });
    EXPECT_EQ(Open(), QString());
    EXPECT_EQ(QDir::currentPath(), temporary_.path());
    EXPECT_TRUE(QDir(configuration.path()).isEmpty());
}

TEST_F(PlatformDialogs, TheFolderBrowserShowsItsPromptAndGivesACleanPath) {
    for (const QString& name : {u"sub"_s, u"with \" in it"_s}) {
        QDir(folder_).mkpath(name);
        Answer([&](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Please"_s);
            Enter(dialog, folder_ + u"/sub/../"_s + name);
        });
        EXPECT_EQ(choosers().browseForFolder(nullptr, u"Please"_s), folder_ + u'/' + name);
    }
}

TEST_F(PlatformDialogs, AMessageIsShownAsItIs) {
    Answer([](QWidget& dialog) {
        const auto& box = static_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.windowTitle() + box.text(), u"Title<b>text"_s);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        Enter(dialog);
    });
    MsgBox(nullptr, u"<b>text"_s, u"Title"_s);
}

TEST_F(PlatformDialogs, AnyFaceIsMadeToFit) {
    QFont font;
    font.setPixelSize(40);
    EXPECT_LE(
        QFontMetrics(Fitting(font, u"Start points"_s, 57)).horizontalAdvance(u"Start points"_s),
        57);
}

} // namespace editor::test
