// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "files/CodePage.h"
#include "files/FileNames.h"
#include "files/RegularFile.h"
#include "support/LevelFolder.h"

#include <QFile>

#include <gtest/gtest.h>
#include <numeric>

namespace editor::test {

TEST(FindInFolder, PrefersTheExactNameAndIgnoresLetterCaseOtherwise) {
    LevelFolder folder;
    for (const char* name : {"Level.PNG", "gfx/back.png", "GFX/mat.png", "gfx/a/x.png",
                             "Gfx/A/y.png", "both.png", "BOTH.png", ".with blank \xC3\xA4.png"}) {
        folder.Write(QString::fromUtf8(name), "x");
    }
    using Row = std::pair<const char*, const char*>;
    for (const auto& [name, found] :
         {Row{"Level.PNG", "Level.PNG"}, Row{"level.png", "Level.PNG"},
          Row{"gfx\\back.png", "gfx/back.png"}, Row{"gfx/MAT.png", "GFX/mat.png"},
          Row{"gfx\\a\\Y.PNG", "Gfx/A/y.png"}, Row{"both.png", "both.png"},
          Row{"Both.PNG", "BOTH.png"}, Row{".WITH BLANK \xC3\xA4.png", ".with blank \xC3\xA4.png"},
          Row{"\\Level.PNG", "Level.PNG"}}) {
        // As files, not as names, of which some systems take more than one for the same.
        EXPECT_EQ(QFileInfo(FindInFolder(folder.Path(), QString::fromUtf8(name))),
                  QFileInfo(folder.Path(QString::fromUtf8(found))))
            << name;
    }
    // Two folders for each "gfx": 2^28 ways, none of which leads to the file.
    const QString roundabout = u"gfx/../"_s.repeated(28) + u"none.png"_s;
    EXPECT_EQ(FindInFolder(folder.Path(), roundabout), folder.Path() + u'/' + roundabout);
    EXPECT_EQ(JoinPath(u"/"_s, u"a"_s), u"/a"_s);
    folder.Write(u"empty"_s, {}); // as which the system shows files that never end
    EXPECT_EQ(OpenRegularFile(folder.Path(u"empty"_s)), nullptr);
}

TEST(CodePage, HoldsEveryByteOnceAndNamesWhatItLacks) {
    QByteArray bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    const QString text = FromCodePage(bytes);
    EXPECT_EQ(ToCodePage(text), bytes);
    EXPECT_EQ(text.mid(0x7F, 3) + text.mid(0x9E, 3), u"\u007f\u20ac\u0081\u017e\u0178\u00a0"_s);
    for (const auto& lacking : {u"\u0080"_s, u"\U0001F60A"_s, QString(QChar(0xD800))}) {
        EXPECT_EQ(FirstOutsideCodePage(text + lacking), lacking);
    }
}

} // namespace editor::test
