// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "support/EditorFixture.h"

namespace editor::test {

class LevelDialog : public EditorFixture {
  protected:
    ~LevelDialog() override { QDir::setCurrent(QDir::rootPath()); }

    QLineEdit& Box(const QString& name) { return In(main->levelSettings.Use(), name); }
    void Click(const QString& name) { In<QPushButton>(main->levelSettings.Use(), name).click(); }
};

auto Settings(auto& model) {
    return std::tie(model.LevelFile, model.MaterialFile, model.BackFile, model.ParallaxFile,
                    model.ParallaxScroll, model.JumperForce, model.KickerForce);
}

TEST_F(LevelDialog, AcceptGivesBackWhatF5ShowsWithTheForcesRoundedToEvenAndClamped) {
    Open(LevelFolder());
    for (const bool scrolls : {true, false}) {
        LevelModel model;
        Settings(model) = std::tuple(u"gfx\\1.png"_s, u"m.bmp"_s, u"\u00e4.png"_s, u"p"_s, scrolls,
                                     -2147483647, 7);
        mdlEdit = model;
        Type(u"F5"_s);
        mdlEdit = {};
        Click(u"cmdOK"_s);
        EXPECT_EQ(Settings(mdlEdit), Settings(model));
    }
    for (const auto& [text, force, opposite] : {std::tuple{u"12.5 N"_s, 12, -12},
                                                {u"3.5"_s, 4, -4},
                                                {u"1e999"_s, INT32_MAX, INT32_MIN}}) {
        Box(u"txtJumper"_s).setText(text);
        Box(u"txtKicker"_s).setText(u'-' + text);
        Click(u"cmdOK"_s);
        EXPECT_EQ(std::pair(mdlEdit.JumperForce, mdlEdit.KickerForce), std::pair(force, opposite));
    }
    main->levelSettings.Use().close();
    EXPECT_EQ(Box(u"txtJumper"_s).text() + Box(u"txtKicker"_s).text(), u"100043000"_s);
}

TEST_F(LevelDialog, BrowsingTakesFilesOfTheLevelFolderOnly) {
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
        answer = chosen;
        for (const QString& name : {u"BG"_s, u"Lev"_s, u"Mat"_s, u"Par"_s}) {
            messages.clear();
            Box(u"txt"_s + name).setText(u"as it was"_s);
            Click(u"cmd"_s + name);
            EXPECT_EQ(Box(u"txt"_s + name).text(), text.isNull() ? u"as it was"_s : text);
            EXPECT_EQ(messages.join(u'|'),
                      text.isNull() ? u"Graphics must be in the same directory as the rest of "
                                      "the level."_s
                                    : QString());
        }
    }
}

TEST_F(LevelDialog, BrowsingStartsInTheCurrentDirectoryNamedAsTheLevelFolderIs) {
    const QTemporaryDir temporary;
    QDir root(temporary.path());
    ASSERT_TRUE(root.mkpath(u"real/gfx/far"_s) && root.mkdir(u"gone"_s));
    if (!SymbolicLink(u"real"_s, root.filePath(u"link"_s))) {
        GTEST_SKIP() << "no symbolic links here";
    }
    const QString rows[][3] = {{u"link"_s, u"real"_s, u"link"_s}, // level, current, start
                               {u"link"_s, u"link/gfx"_s, u"link/gfx"_s},
                               {u"real/gfx"_s, u"real"_s, u"real"_s},
                               {u"real"_s, u"gone"_s, u"real"_s}};
    for (const auto& [level, current, start] : rows) {
        mdlEdit.LevelPath = root.filePath(level);
        ASSERT_TRUE(QDir::setCurrent(root.filePath(current)));
        EXPECT_EQ(root.rmdir(current), current == u"gone"_s);
        Click(u"cmdBG"_s);
        EXPECT_EQ(asked.last(), root.filePath(start));
    }
}

} // namespace editor::test
