// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "model/LevelFiles.h"

#include "model/FieldValue.h"
#include "support/LevelFolder.h"
#include "support/Models.h"

#include <QFileInfo>

#include <cmath>
#include <gtest/gtest.h>

namespace editor::test {

class LevelFiles : public testing::Test {
  protected:
    LevelFiles() {
        mdlEdit = {};
        mdlEdit.LevelPath = folder.Path();
    }

    // The messages, empty when there is none.
    QString Load(const QByteArray& level, const QByteArray& waypoint = {}) {
        folder.Write(LevelCfg, level);
        folder.Write(WaypointCfg, waypoint);
        return Load();
    }
    static QString Load() { return QDir::fromNativeSeparators(LoadLevel().value_or(QString())); }
    static QString Save() { return QDir::fromNativeSeparators(SaveLevel().value_or(QString())); }

    LevelFolder folder;
};

TEST_F(LevelFiles, EveryLineIsWrittenAsItsRuleSays) {
    mdlEdit.BackFile = u"back.png"_s;
    mdlEdit.LevelFile = u"level.png"_s;
    mdlEdit.MaterialFile = u"mat.png"_s;
    mdlEdit.ParallaxFile = u"gfx\\far.png"_s;
    mdlEdit.ParallaxScroll = true;
    mdlEdit.JumperForce = -70000;
    mdlEdit.KickerForce = 43000;
    mdlEdit.NumStartPoints = mdlEdit.NumItems = 2;
    mdlEdit.StartPoints[0] = {120, 340};
    mdlEdit.Items = {{{-1, 2, KickerPad, -1, u"Gr\u00fc\u00df\u20ac"_s, 1, 2, 3, 4},
                      {200, 310, 77, 1, {}, 600, 500, 50, 0}}};
    mdlEdit.NumWayPoints = 2;
    mdlEdit.WayPoints = {
        {{-5, 6, 3, {7, 8, 9, 10, 11}, {0, 1, 2, 3, 4}, 4}, {160, 300, 0, {}, {}, -1}}};
    ASSERT_EQ(Save(), QString());
    EXPECT_EQ(folder.Read(LevelCfg),
              CrLf("[Map]\nBack=back.png\nLevel=level.png\nMaterial=mat.png\n"
                   "Parallax=gfx\\far.png\n\nNumItems=2\n\nPScroll=1\n\nNumStartPoints=2\n"
                   "StartX0=120\nStartY0=340\n\nStartX1=0\nStartY1=0\n\n\n[Physics]\n"
                   "JumperForce=-70000\nKickerForce=43000\n\n[Item.0]\nType=4\nPosX=-1\nPosY=2\n"
                   "Name=Gr\xFC\xDF\x80\nBounce=2\nDetectDist=4\nGravity=3\nRespawn=1\n\n"
                   "[Item.1]\nType=77\nPosX=200\nPosY=310\nAmount=1\n\n"));
    EXPECT_EQ(folder.Read(WaypointCfg),
              CrLf("[Map]\nNumWayPoints=2\n\n[Point.0]\nX=-5\nY=6\nFlags=3\nLink0.Dest=7\n"
                   "Link1.Dest=8\nLink1.Flags=1\nLink2.Dest=9\nLink2.Flags=2\nLink3.Dest=10\n"
                   "Link3.Flags=3\nLink4.Dest=11\nLink4.Flags=4\n\n[Point.1]\nX=160\nY=300\n\n"));
    EXPECT_EQ(folder.Names(), QStringList({LevelCfg, WaypointCfg}));
}

TEST_F(LevelFiles, AnyLevelReadsBackAsItWasWritten) {
    std::mt19937 random(20260101);
    for (int round = 0; round < 60; ++round) {
        mdlEdit = RandomLevel(random);
        mdlEdit.LevelPath = folder.Path();
        const QByteArray text = Text(mdlEdit);
        QFile::remove(folder.Path(WaypointCfg));
        ASSERT_EQ(Save(), QString());
        mdlEdit = {};
        mdlEdit.LevelPath = folder.Path();
        ASSERT_EQ(Load(), QString());
        ASSERT_EQ(Text(mdlEdit), text) << round;
    }
}

TEST_F(LevelFiles, WhatIsMissingTakesItsDefault) {
    std::mt19937 random(1);
    mdlEdit = RandomLevel(random);
    mdlEdit.LevelPath = folder.Path();
    mdlEdit.Zoom = 4;
    const ItemRec leftover = mdlEdit.Items[2];
    ASSERT_EQ(Load(), QString());
    EXPECT_EQ(Text(mdlEdit), Text({}));
    EXPECT_EQ(std::pair(mdlEdit.Items[2], mdlEdit.Zoom), std::pair(leftover, 4.F));
    ASSERT_EQ(Load("[Map]\nNumItems=2\nNumStartPoints=2\nStartX1=5\nPScroll=2\n[Item.0]\nType=3\n["
                   "Item.1]\nPosX=-32768\nPosY=32767\n",
                   "[Map]\nNumWayPoints=3\n[Point.0]\nLink0.Dest=4\nLink2.Dest=5\n[Point.1]\n"
                   "Link0.Dest=1\nLink1.Dest=-2\nLink2.Dest=3\nLink3.Dest=4\nLink4.Dest=5\n"
                   "Link4.Flags=2\nLink5.Dest=6\n"),
              QString());
    EXPECT_EQ(
        Text(mdlEdit),
        CrLf("[Map]\nBack=\nLevel=\nMaterial=\n\nNumItems=2\n\n\nNumStartPoints=2\nStartX0=0\n"
             "StartY0=0\n\nStartX1=5\nStartY1=0\n\n\n[Physics]\n\n[Item.0]\nType=3\nPosX=10\n"
             "PosY=10\nAmount=1\n\n[Item.1]\nType=0\nPosX=-32768\nPosY=32767\nAmount=1\n\n"
             "[Map]\nNumWayPoints=3\n\n[Point.0]\nX=0\nY=0\nLink0.Dest=4\n\n[Point.1]\nX=0\nY=0\n"
             "Link0.Dest=1\nLink1.Dest=-2\nLink2.Dest=3\nLink3.Dest=4\nLink4.Dest=5\n"
             "Link4.Flags=2\n\n[Point.2]\nX=0\nY=0\n\n"));
}

// What the game's platform makes of lines that the editor itself never writes.
TEST_F(LevelFiles, TheTextIsReadAsThePlatformReadsPrivateProfiles) {
    const std::tuple<QByteArray, QString, int> rows[] = {
        {"[map]\nBACK=a\n[PHYSICS]\nkickerforce=1", u"a"_s, 1},
        {" [ Map\t] junk = 1\n\t Back \t= a b \t\r\n[Physics]\nKickerForce = 2 ", u"a b"_s, 2},
        {"[Map]\rBack=\" a \"\r[Physics]\rKickerForce='3'", u" a "_s, 3},
        {"[Map]\nBack=\"a'\n[Physics]\nKickerForce=42A", u"\"a'"_s, 42},
        {"[Map]\nBack=\"\n[Physics]\nKickerForce=+1", u"\""_s, 1},
        {" ;[Map]\n[Map]\n;Back=x\nBack=a;b#c\n[Physics]\nKickerForce=A1", u"a;b#c"_s, 0},
        {"Back=0\n[Map]\nno "
         "key\nBack=a\nBack=b\n[map]\nBack=c\nKickerForce=8\n[Physics]\nKickerForce=",
         u"a"_s, 0},
        {"[Other]\n[Map]\n[Map]\nBack=lost\n[Physics]\nKickerForce=-0007", QString(), -7},
        {"\xEF\xBB\xBF[Map]\nBack=a=b\n[Physics]\nKickerForce=- 5", u"a=b"_s, 0},
        {"[Map]\nBack=a" + QByteArray(1, '\0') + "b\n[Physics]\nKickerForce=9", u"a"_s, 9},
        {"[Map]\nBack=" + QByteArray(250, 'n') + "\n[Physics", QString(199, u'n'), 0},
        {"[Map]\nBack=\x81\x8D\x8F\x90\x9D\x80", u"\u0081\u008d\u008f\u0090\u009d\u20ac"_s, 0}};
    for (const auto& [text, back, kicker] : rows) {
        ASSERT_EQ(Load(text), QString()) << text.toStdString();
        EXPECT_EQ(mdlEdit.BackFile, back) << text.toStdString();
        EXPECT_EQ(mdlEdit.KickerForce, kicker) << text.toStdString();
    }
}

TEST_F(LevelFiles, WhatCannotBeReadOrHeldIsRefusedAndNothingChanges) {
    mdlEdit.NumItems = 1;
    mdlEdit.Items[0].Name = u"kept"_s;
    const QByteArray before = Text(mdlEdit);
    const auto expectRefused = [&](const QByteArray& told) {
        EXPECT_EQ(Load().toStdString(), "The level cannot be opened: " + told.toStdString());
        EXPECT_EQ(Text(mdlEdit), before) << told.toStdString();
    };
    const QByteArray path = folder.Path().toUtf8(),
                     no16 = ": the number must lie between -32768 and 32767.",
                     no32 = ": the number must lie between -2147483648 and 2147483647.";
    using Row = std::tuple<QByteArray, QByteArray, QByteArray>;
    for (const auto& [level, waypoint, told] :
         {Row("NumItems=52", "", "[Map], NumItems=52: a level has at most 51 items."),
          Row("NumStartPoints=52", "",
              "[Map], NumStartPoints=52: a level has at most 51 start points."),
          Row("Back=new\nPScroll=-32769", "", "[Map], PScroll=-32769" + no16),
          Row("[Physics]\nJumperForce=2147483648", "", "[Physics], JumperForce=2147483648" + no32),
          Row("NumItems=" + QByteArray(99, '9'), "",
              "[Map], NumItems=" + QByteArray(40, '9') + "\u2026" + no16),
          Row("", "NumWayPoints=202",
              "[Map], NumWayPoints=202: a level has at most 201 waypoints."),
          Row("Back=new", "NumWayPoints=201\n[Point.200]\nLink4.Dest=1\nX=32768",
              "[Point.200], X=32768" + no16)}) {
        folder.Write(LevelCfg, "[Map]\n" + level);
        folder.Write(WaypointCfg, "[Map]\n" + waypoint);
        expectRefused("in " + path + (waypoint.isEmpty() ? "/level" : "/waypoint") +
                      ".cfg, section " + told);
    }
    folder.Write(LevelCfg, QByteArray(8 * 1024 * 1024 + 1, 'x'));
    expectRefused(path + "/level.cfg cannot be read: it is larger than 8 MiB.");
    QFile::remove(folder.Path(LevelCfg));
    QDir().mkdir(folder.Path(LevelCfg));
    expectRefused(path + "/level.cfg cannot be read: it is not a file.");
    QDir().rmdir(folder.Path(LevelCfg));
    if (SymbolicLink(u"nowhere"_s, folder.Path(LevelCfg))) {
        expectRefused(path + "/level.cfg cannot be read: the symbolic link leads nowhere.");
    }
    mdlEdit.LevelPath += u"/gone"_s;
    expectRefused("the folder " + path + "/gone does not exist.");
}

TEST_F(LevelFiles, FilesAreFoundInAnyLetterCaseAndLinksPermissionsAndOldWaypointsOutliveASave) {
    QDir().mkdir(folder.Path(u"level.CFG"_s));
    EXPECT_FALSE(IsUsedFolder(folder.Path())) << "a folder is no level.cfg";
    QDir().rmdir(folder.Path(u"level.CFG"_s));
    const QString real = folder.Path(u"real/target.cfg"_s), found = folder.Path(u"LEVEL.Cfg"_s);
    folder.Write(u"real/target.cfg"_s, "[Map]\nBack=a");
    folder.Write(u"WayPoint.CFG"_s, "[Map]\nNumWayPoints=0");
    const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    QFile::setPermissions(real, permissions);
    const bool isLink = SymbolicLink(real, found) || !QFile::copy(real, found);
    EXPECT_TRUE(IsUsedFolder(folder.Path()));
    ASSERT_EQ(Load(), QString());
    ASSERT_EQ(Save(), QString());
    EXPECT_TRUE(folder.Read(u"LEVEL.Cfg"_s).startsWith("[Map]\r\nBack=a\r\n"));
    EXPECT_EQ(folder.Read(u"WayPoint.CFG"_s), "[Map]\nNumWayPoints=0");
    EXPECT_EQ(folder.Names().size(), 3);
    if (isLink) { // permissions are others where there are no links
        EXPECT_TRUE(QFileInfo(found).isSymLink());
        EXPECT_EQ(QFile::permissions(real) & ~(QFile::ReadUser | QFile::WriteUser), permissions);
        QDir(folder.Path(u"real"_s)).removeRecursively();
        EXPECT_EQ(Save(), found + u" could not be saved: No such file or directory."_s);
    }
}

TEST_F(LevelFiles, ASaveThatCannotBeDoneSaysWhyAndTouchesNothing) {
    folder.Write(LevelCfg, "old");
    mdlEdit.NumItems = 4;
    mdlEdit.NumWayPoints = 1;
    const QString here = folder.Path(), gone = folder.Path(u"gone"_s);
    using Row = std::tuple<QString, QString, QString, QString>;
    for (const auto& [path, material, name, told] :
         {Row{here, u""_s, u"a\nb"_s, u"the Name of item 3 cannot be written: it holds a line"_s},
          Row{here, u""_s, u"\u00df\u2192"_s,
              u"the character \"\u2192\" (U+2192) does not exist"_s},
          Row{here, u"\U0001F60A"_s, u"\n"_s,
              u"the name of the material graphics cannot be "
              "written: the character \"\U0001F60A\" (U+1F60A)"_s},
          Row{u""_s, u""_s, u""_s, u"no level folder has been chosen yet. Please use \"New\" or"_s},
          Row{gone, u""_s, u""_s, gone + u"/level.cfg could not be saved: "_s}}) {
        mdlEdit.LevelPath = path;
        mdlEdit.MaterialFile = material;
        mdlEdit.Items[3].Name = name;
        const QString message = Save();
        EXPECT_TRUE(message.contains(told)) << message.toStdString();
        EXPECT_EQ(folder.Read(LevelCfg), "old");
        EXPECT_EQ(folder.Names(), QStringList(LevelCfg));
    }
    mdlEdit.LevelPath = here;
    QDir().mkdir(folder.Path(WaypointCfg));
    EXPECT_EQ(Save(), folder.Path(WaypointCfg) +
                          u" could not be saved: it is not a file. level.cfg was saved."_s);
    EXPECT_NE(folder.Read(LevelCfg), "old");
    EXPECT_EQ(folder.Names().size(), 2);
}

TEST(FieldValue, IsTheNumberThatATextBeginsWith) {
    for (const char* text : {"", "abc", "0x10", ".", "+-5", "inf", "nan", "&O8", "-&H10", "&1",
                             "1e-400", "\u0661"}) { // the last one is a digit of another script
        EXPECT_EQ(FieldValue(QString::fromUtf8(text)), 0) << text;
    }
    using Row = std::pair<const char*, double>;
    for (const auto& [text, value] :
         {Row{"12abc", 12}, Row{"2.5", 2.5}, Row{"-5", -5}, Row{"+7", 7}, Row{"  4\t2\n1 ", 421},
          Row{"1e3", 1000}, Row{"1E+2x", 100}, Row{"1e", 1}, Row{".5", 0.5}, Row{"5.", 5},
          Row{"1,5", 1}, Row{"&HFFFF", 65535}, Row{"&h1g", 1}, Row{"& o 178", 15},
          Row{"1e400", HUGE_VAL}, Row{"-1e400", -HUGE_VAL}, Row{"1d5", 1}}) {
        EXPECT_EQ(FieldValue(QString::fromLatin1(text)), value) << text;
    }
    EXPECT_EQ(FieldValue(u"12"_s + QChar(0xD800)), 12);
}

} // namespace editor::test
