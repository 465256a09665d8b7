// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "support/EditorFixture.h"
#include "support/Models.h"

namespace editor::test {

const QStringList Refusal = {u"Graphics must be in the same directory as the rest of the level."_s};

class LevelDialog : public EditorFixture {
  protected:
    ~LevelDialog() override { QDir::setCurrent(QDir::rootPath()); }

    QLineEdit& Box(const QString& name) { return In(main->levelSettings.Use(), name); }
    void Click(const QString& name) { In<QPushButton>(main->levelSettings.Use(), name).click(); }
};

TEST_F(LevelDialog, AcceptGivesBackWhatF5ShowsWithTheForcesRoundedToEvenAndClamped) {
    Open(LevelFolder());
    std::mt19937 random(7);
    for (int i = 0; i < 9; ++i) {
        LevelModel level = RandomLevel(random);
        level.NumStartPoints = level.NumItems = 0;
        level.NumWayPoints = 0;
        mdlEdit = level;
        Type(u"F5"_s);
        mdlEdit = {};
        Click(u"cmdOK"_s);
        EXPECT_EQ(Text(mdlEdit), Text(level));
    }
    Box(u"txtJumper"_s).setText(u"12.5 N"_s);
    Box(u"txtKicker"_s).setText(u"-1e999"_s);
    Click(u"cmdOK"_s);
    EXPECT_EQ(std::pair(mdlEdit.JumperForce, mdlEdit.KickerForce), std::pair(12, INT32_MIN));
    main->levelSettings.Use().close();
    EXPECT_EQ(Box(u"txtJumper"_s).text() + Box(u"txtKicker"_s).text(), u"100043000"_s);
}

TEST_F(LevelDialog, BrowsingTakesFilesOfTheLevelFolderOnlyAndGoesOnWhereItWas) {
    const QTemporaryDir temporary;
    QDir root(temporary.path());
    ASSERT_TRUE(root.mkpath(u"real/gfx"_s) && root.mkdir(u"gone"_s));
    mdlEdit.LevelPath = root.path();
    if (QDir::setCurrent(root.filePath(u"gone"_s)) && root.rmdir(u"gone"_s)) {
        Click(u"cmdBG"_s);
        EXPECT_EQ(asked.last(), root.path());
    }
    const QString real = root.filePath(u"real"_s), link = root.filePath(u"link"_s);
    const QString level = SymbolicLink(real, link) ? link : real, top = QDir::rootPath();
    const QString rows[][4] = {// level, chosen, text (none: refused), where it goes on
                               {level, level + u"/a.png"_s, u"a.png"_s, level},
                               {level, level + u"/gfx/a.png"_s, u"gfx\\a.png"_s, level + u"/gfx"_s},
                               {real + u"/gfx"_s, real + u"/gfx2.png"_s, {}, real},
                               {real + u"/gfx"_s, real + u"/gfx"_s, {}, real},
                               {real + u"/none"_s, real + u"/NONE/a.png"_s, {}, real},
                               {top, top + u"a.png"_s, u"a.png"_s, top},
                               {{}, u"/a.png"_s, {}, top}};
    for (const auto& [path, chosen, text, next] : rows) {
        mdlEdit.LevelPath = path;
        for (const QString& name : {u"BG"_s, u"Lev"_s, u"Mat"_s, u"Par"_s}) {
            Box(u"txt"_s + name).clear();
            for (const QString& given : {chosen, QString()}) { // then it is cancelled
                answer = given;
                Click(u"cmd"_s + name);
                EXPECT_EQ(Box(u"txt"_s + name).text(), text);
            }
            EXPECT_EQ(asked.last(), next);
            EXPECT_EQ(std::exchange(messages, {}), text.isNull() ? Refusal : QStringList());
        }
    }
}

} // namespace editor::test
