// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "platform/Dialogs.h"

#include "dialogs/DialogHost.h"
#include "dialogs/frmAbout.h"
#include "dialogs/frmLevel.h"
#include "model/mdlEdit.h"
#include "platform/Look.h"
#include "platform/OnceForm.h"
#include "support/Captions.h"
#include "view/ViewHost.h"

#include <QTemporaryDir>
#include <QTest>

namespace editor {
namespace {

using namespace Qt::StringLiterals;

/// A shown level settings dialog, and a record of what it asks of the others.
class LevelDialog : public testing::Test {
  protected:
    void SetUp() override {
        ApplyLook(*qApp);
        mdlEdit = {};
        dialogHost = {[this] { return &area_; },
                      [this](bool on) { calls_ << (on ? "on" : "off"); }};
        viewHost.setBusyPointer = [](bool) {};
        viewHost.SetMenus = [this] { calls_ << "SetMenus"; };
        dialogs().messageBox = [this](auto, const QString& text, const QString& title) {
            calls_ << (title + u'|' + text).toUtf8();
        };
        dialogs().openFileName = [this](auto, auto, const QString& folder, auto) {
            startFolder_ = folder;
            return chosenFile_;
        };
        area_.show();
        form_().show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&area_));
    }
    void TearDown() override { QDir::setCurrent(QDir::rootPath()); }

    template <class Widget = QLineEdit>
    Widget& Control(const QString& name) {
        return *form_().findChild<Widget*>(name);
    }
    void Click(const QString& name) { Control<QPushButton>(name).click(); }
    QList<QByteArray> Calls() { return std::exchange(calls_, {}); }

    QMdiArea area_;
    OnceForm<frmLevel> form_{[this] { return new frmLevel(area_); }};
    QList<QByteArray> calls_;
    QString chosenFile_;
    QString startFolder_;
};

auto Settings(auto& model) {
    return std::tie(model.LevelFile, model.MaterialFile, model.BackFile, model.ParallaxFile,
                    model.ParallaxScroll, model.JumperForce, model.KickerForce);
}

TEST_F(LevelDialog, AcceptGivesBackWhatInitShowsThenLoadsTheGraphicsUnchecksAndHides) {
    LevelModel model;
    Settings(model) =
        std::tuple(u"gfx\\1.png"_s, u"m.bmp"_s, u"\u00e4.png"_s, u"p"_s, true, -2147483647, 7);
    mdlEdit = model;
    form_().Init();
    mdlEdit = {};
    Click(u"cmdOK"_s);
    EXPECT_EQ(Settings(mdlEdit), Settings(model));
    EXPECT_EQ(Calls(), (QList<QByteArray>{"SetMenus", "off"}));
    EXPECT_FALSE(form_().isVisible());
    Control(u"txtLev"_s).clear();
    Click(u"cmdOK"_s);
    EXPECT_EQ(Calls(), QList<QByteArray>{"off"}) << "nothing is loaded while a name is empty";
}

TEST_F(LevelDialog, ForcesAreRoundedToEvenAndClamped) {
    for (const auto& [text, force] : {std::pair{u"12.5 N"_s, 12},
                                      {u"3.5"_s, 4},
                                      {u""_s, 0},
                                      {u"1e999"_s, INT32_MAX},
                                      {u"-3e9"_s, INT32_MIN}}) {
        Control(u"txtJumper"_s).setText(text);
        Control(u"txtKicker"_s).setText(text);
        Click(u"cmdOK"_s);
        EXPECT_EQ(std::pair(mdlEdit.JumperForce, mdlEdit.KickerForce), std::pair(force, force));
    }
}

TEST_F(LevelDialog, TheCloseBoxUnchecksTheEntryAndTheNextDialogHasTheFirstTexts) {
    Control(u"txtJumper"_s).setText(u"5"_s);
    form_().close();
    EXPECT_EQ(Calls(), QList<QByteArray>{"off"});
    EXPECT_EQ(Control(u"txtJumper"_s).text() + Control(u"txtKicker"_s).text(), u"100043000"_s);
    EXPECT_FALSE(form_().isVisible());
}

TEST_F(LevelDialog, BrowsingTakesFilesOfTheLevelFolderOnly) {
    const QList<QByteArray> refused{"Torvak! level editor|Graphics must be in the same directory "
                                    "as the rest of the level."};
    const QString castle = u"/Levels/Castle"_s;
    const QString rows[][3] = {// level path, chosen, text (none: refused)
                               {castle, castle + u"/back.png"_s, u"back.png"_s},
                               {castle, castle + u"/gfx/far/back.png"_s, u"gfx\\far\\back.png"_s},
                               {u"/"_s, u"/back.png"_s, u"back.png"_s},
                               {castle, castle + u"2/a.png"_s, {}},
                               {castle, castle.toLower() + u"/back.png"_s, {}},
                               {castle, castle, {}},
                               {{}, u"/back.png"_s, {}},
                               {castle, {}, u"as it was"_s}}; // cancelled
    for (const auto& [levelPath, chosen, text] : rows) {
        mdlEdit.LevelPath = levelPath;
        chosenFile_ = chosen;
        for (const QString& name : {u"BG"_s, u"Lev"_s, u"Mat"_s, u"Par"_s}) {
            Control(u"txt"_s + name).setText(u"as it was"_s);
            Click(u"cmd"_s + name);
            EXPECT_EQ(Control(u"txt"_s + name).text(), text.isNull() ? u"as it was"_s : text);
            EXPECT_EQ(Calls(), text.isNull() ? refused : QList<QByteArray>{});
        }
    }
}

TEST_F(LevelDialog, BrowsingStartsInTheCurrentDirectoryNamedAsTheLevelFolderIs) {
    const QTemporaryDir temporary;
    QDir root(temporary.path());
    ASSERT_TRUE(root.mkpath(u"real/gfx/far"_s) && root.mkdir(u"gone"_s));
    ASSERT_TRUE(QFile::link(u"real"_s, root.filePath(u"link"_s)));
    const QString rows[][3] = {{u"link"_s, u"real"_s, u"link"_s}, // level, current, start
                               {u"link"_s, u"link/gfx"_s, u"link/gfx"_s},
                               {u"real/gfx"_s, u"real"_s, u"real"_s},
                               {u"real"_s, u"gone"_s, u"real"_s}};
    for (const auto& [level, current, start] : rows) {
        mdlEdit.LevelPath = root.filePath(level);
        ASSERT_TRUE(QDir::setCurrent(root.filePath(current)));
        EXPECT_EQ(root.rmdir(current), current == u"gone"_s);
        Click(u"cmdBG"_s);
        EXPECT_EQ(startFolder_, root.filePath(start));
    }
}

TEST_F(LevelDialog, TheKeyboardReachesEveryControlInOrderAndOnlySpacePressesAButton) {
    for (const char* name : {"txtBG", "cmdBG", "txtLev", "cmdLev", "txtMat", "cmdMat", "txtJumper",
                             "txtKicker", "cmdOK", "txtPar", "cmdPar", "chkParallax", "txtBG"}) {
        QWidget* focused = QApplication::focusWidget();
        ASSERT_EQ(focused->objectName(), QLatin1String(name));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Tab}) {
            QTest::keyClick(focused, key);
        }
    }
    EXPECT_TRUE(form_().isVisible() && Calls().isEmpty() && startFolder_.isNull());
    QTest::keyClick(&Control<QPushButton>(u"cmdOK"_s), Qt::Key_Space);
    EXPECT_FALSE(form_().isVisible());
}

TEST_F(LevelDialog, HasTheClientSizeOfItsLayoutAndClipsNoCaption) {
    EXPECT_EQ(form_().widget()->size(), QSize(236, 281));
    test::ExpectNoCaptionIsClipped(*form_().widget(), 12);
}

TEST(AboutBox, ShowsTheVersionEachTimeClipsNothingAndClosesByEnterAndEsc) {
    ApplyLook(*qApp);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        frmAbout box(nullptr);
        box.show();
        EXPECT_EQ(box.findChild<QLabel*>(u"lblVersion"_s)->text(), u"Version 0.30  "_s);
        EXPECT_FALSE(box.findChild<QLabel*>(u"picIcon"_s)->pixmap().isNull());
        test::ExpectNoCaptionIsClipped(box, 5);
        QTest::keyClick(&box, key);
        EXPECT_FALSE(box.isVisible());
    }
}

} // namespace
} // namespace editor
