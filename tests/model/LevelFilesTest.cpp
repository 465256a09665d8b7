// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "model/LevelFiles.h"

#include "model/FieldValue.h"
#include "model/mdlEdit.h"
#include "support/LevelFolder.h"
#include "support/Models.h"

#include <QFileInfo>

#include <cmath>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace editor {
namespace {

using namespace Qt::StringLiterals;
using namespace test;

class LevelFiles : public testing::Test {
  protected:
    LevelFiles() {
        mdlEdit = LevelModel();
        mdlEdit.LevelPath = folder.Path();
    }

    /// The message of a Load, empty when it succeeded.
    QString Load() { return LoadLevel().value_or(QString()); }

    QString LoadTexts(const QByteArray& level, const QByteArray& waypoint = {}) {
        folder.Write(LevelCfg, level);
        folder.Write(WaypointCfg, waypoint);
        return Load();
    }

    static QString Save() { return SaveLevel().value_or(QString()); }

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
    mdlEdit.NumStartPoints = 2;
    mdlEdit.StartPoints[0] = {120, 340};
    mdlEdit.NumItems = 2;
    mdlEdit.Items[0] = {-1, 2, KickerPad, -1, u"Gr\u00fc\u00df\u20ac"_s, 1, 2, 3, 4};
    mdlEdit.Items[1] = {200, 310, 77, 1, {}, 600, 500, 50, 0};
    mdlEdit.NumWayPoints = 2;
    mdlEdit.WayPoints[0] = {-5, 6, 3, {7, 8, 9, 10, 11}, {0, 1, 2, 3, 4}, 4};
    mdlEdit.WayPoints[1] = {160, 300, 0, {}, {}, -1};

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

TEST_F(LevelFiles, AnEmptyFolderReadsAsAnEmptyLevelAndLeftoversStay) {
    std::mt19937 random(1);
    mdlEdit = RandomLevel(random);
    mdlEdit.LevelPath = folder.Path();
    mdlEdit.Zoom = 4;
    const ItemRec leftover = mdlEdit.Items[2];
    ASSERT_EQ(Load(), QString());
    EXPECT_EQ(Text(mdlEdit), Text({}));
    EXPECT_EQ(mdlEdit.Items[2], leftover);
    EXPECT_EQ(mdlEdit.Zoom, 4);
}

TEST_F(LevelFiles, MissingKeysTakeTheirDefaults) {
    ASSERT_EQ(LoadTexts("[Map]\nNumItems=2\nNumStartPoints=2\nStartX1=5\nPScroll=2\n"
                        "[Item.0]\nType=3\n",
                        "[Map]\nNumWayPoints=3\n[Point.0]\nLink0.Dest=4\nLink2.Dest=5\n"
                        "[Point.1]\nLink0.Dest=1\nLink1.Dest=-2\nLink2.Dest=3\nLink3.Dest=4\n"
                        "Link4.Dest=5\nLink4.Flags=2\nLink5.Dest=6\n"),
              QString());
    EXPECT_EQ(mdlEdit.Items[0], (ItemRec{10, 10, Domination, 1, {}, 600, 500, 50, 0}));
    EXPECT_EQ(mdlEdit.Items[1], (ItemRec{10, 10, Medikit, 1, {}, 600, 500, 50, 0}));
    EXPECT_EQ(mdlEdit.StartPoints[0], StartPointRec());
    EXPECT_EQ(mdlEdit.StartPoints[1], (StartPointRec{5, 0}));
    EXPECT_FALSE(mdlEdit.ParallaxScroll);
    EXPECT_EQ(mdlEdit.WayPoints[0].NumLinks, 0);
    EXPECT_EQ(mdlEdit.WayPoints[1], (WaypointRec{0, 0, 0, {1, -2, 3, 4, 5}, {0, 0, 0, 0, 2}, 4}));
    EXPECT_EQ(mdlEdit.WayPoints[2].NumLinks, -1);
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
        {"Back=0\n[Map]\nno key\nBack=a\nBack=b\n[map]\nBack=c\n[Physics]\nKickerForce=", u"a"_s,
         0},
        {"[Other]\n[Map]\n[Map]\nBack=lost\n[Physics]\nKickerForce=-0007", QString(), -7},
        {"\xEF\xBB\xBF[Map]\nBack=a=b\n[Physics]\nKickerForce=- 5", u"a=b"_s, 0},
        {"[Map]\nBack=a" + QByteArray(1, '\0') + "b\n[Physics]\nKickerForce=9", u"a"_s, 9},
        {"[Map]\nBack=" + QByteArray(250, 'n') + "\n[Physics", QString(199, u'n'), 0},
        {"[Map]\nBack=\x81\x8D\x8F\x90\x9D\x80", u"\u0081\u008d\u008f\u0090\u009d\u20ac"_s, 0}};
    for (const auto& [text, back, kicker] : rows) {
        ASSERT_EQ(LoadTexts(text), QString()) << text.toStdString();
        EXPECT_EQ(mdlEdit.BackFile, back) << text.toStdString();
        EXPECT_EQ(mdlEdit.KickerForce, kicker) << text.toStdString();
    }
}

TEST_F(LevelFiles, WhatCannotBeReadOrHeldIsRefusedAndNothingChanges) {
    mdlEdit.NumItems = 1;
    mdlEdit.Items[0].Name = u"kept"_s;
    const QByteArray before = Text(mdlEdit);
    const auto expectRefused = [&](const QString& told) {
        const QString message = Load();
        EXPECT_TRUE(message.contains(told)) << message.toStdString();
        EXPECT_EQ(Text(mdlEdit), before) << message.toStdString();
    };
    using Row = std::tuple<QByteArray, QByteArray, QString>;
    for (const auto& [level, waypoint, told] :
         {Row("[Map]\nNumItems=52", "",
              u"level.cfg, section [Map], NumItems=52: a level has at most 51 items."_s),
          Row("[Map]\nNumStartPoints=52", "", u"at most 51 start points"_s),
          Row("[Map]\nNumItems=40000", "", u"between -32768 and 32767"_s),
          Row("[Map]\nBack=new\nPScroll=65537", "", u"PScroll=65537"_s),
          Row("[Map]\nNumItems=1\n[Item.0]\nBounce=-32769", "", u"[Item.0], Bounce=-32769"_s),
          Row("[Physics]\nJumperForce=2147483648", "", u"between -2147483648 and 2147483647"_s),
          Row("[Map]\nNumItems=" + QByteArray(300, '9'), "", u"999\u2026: the number"_s),
          Row("", "[Map]\nNumWayPoints=202", u"waypoint.cfg, section [Map], NumWayPoints=202"_s),
          Row("[Map]\nBack=new", "[Map]\nNumWayPoints=201\n[Point.200]\nLink4.Dest=1\nX=99999",
              u"[Point.200], X=99999"_s)}) {
        folder.Write(LevelCfg, level);
        folder.Write(WaypointCfg, waypoint);
        expectRefused(told);
    }
    folder.Write(LevelCfg, QByteArray(8 * 1024 * 1024 + 1, 'x'));
    expectRefused(u"larger than 8 MiB"_s);
    QFile::remove(folder.Path(LevelCfg));
    QDir(folder.Path()).mkdir(LevelCfg);
    expectRefused(u"level.cfg cannot be read: it is not a file"_s);
    QDir(folder.Path()).rmdir(LevelCfg);
    QFile::link(u"nowhere"_s, folder.Path(LevelCfg));
    expectRefused(u"leads nowhere"_s);
    mdlEdit.LevelPath = folder.Path(u"gone"_s);
    expectRefused(u"gone does not exist"_s);
}

TEST_F(LevelFiles, NegativeCountsAreKeptAndCountAsNothing) {
    ASSERT_EQ(LoadTexts("[Map]\nNumItems=-2\nNumStartPoints=-3\n", "[Map]\nNumWayPoints=-70000\n"),
              QString());
    EXPECT_EQ(mdlEdit.ItemTable().Size() + mdlEdit.StartPointTable().Size() +
                  mdlEdit.WayPointTable().Size(),
              0);
    ASSERT_EQ(Save(), QString());
    EXPECT_EQ(folder.Read(LevelCfg), CrLf("[Map]\nBack=\nLevel=\nMaterial=\n\nNumItems=-2\n\n\n"
                                          "NumStartPoints=-3\n\n[Physics]\n\n"));
    EXPECT_EQ(folder.Read(WaypointCfg), "[Map]\r\nNumWayPoints=-70000\r\n\r\n");
}

TEST_F(LevelFiles, FilesAreFoundWhateverTheirLetterCaseAndAnOldWaypointFileStays) {
    folder.Write(u"LEVEL.Cfg"_s, "[Map]\nBack=a");
    folder.Write(u"WayPoint.CFG"_s, "[Map]\nNumWayPoints=0");
    ASSERT_EQ(Load(), QString());
    EXPECT_EQ(mdlEdit.BackFile, u"a"_s);
    ASSERT_EQ(Save(), QString());
    EXPECT_TRUE(folder.Read(u"LEVEL.Cfg"_s).startsWith("[Map]\r\nBack=a\r\n"));
    EXPECT_EQ(folder.Read(u"WayPoint.CFG"_s), "[Map]\nNumWayPoints=0");
    EXPECT_EQ(folder.Names().size(), 2);
}

TEST_F(LevelFiles, LinksAndPermissionsOutliveASave) {
    folder.Write(u"real/target.cfg"_s, "[Map]\nBack=a");
    const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    QFile::setPermissions(folder.Path(u"real/target.cfg"_s), permissions);
    QFile::link(u"real/target.cfg"_s, folder.Path(LevelCfg));
    ASSERT_EQ(Load(), QString());
    ASSERT_EQ(Save(), QString());
    EXPECT_TRUE(QFileInfo(folder.Path(LevelCfg)).isSymLink());
    EXPECT_TRUE(folder.Read(u"real/target.cfg"_s).startsWith("[Map]\r\nBack=a\r\n"));
    EXPECT_EQ(QFile::permissions(folder.Path(LevelCfg)) & ~(QFile::ReadUser | QFile::WriteUser),
              permissions);
}

TEST_F(LevelFiles, ASaveThatCannotBeDoneSaysWhyAndTouchesNothing) {
    mdlEdit.NumItems = 4;
    mdlEdit.NumWayPoints = 1;
    const QByteArray old = "[Map]\n";
    folder.Write(LevelCfg, old);
    const auto expectRefused = [&](const QString& told) {
        const QString message = Save();
        EXPECT_TRUE(message.contains(told)) << message.toStdString();
        EXPECT_EQ(folder.Read(LevelCfg), old);
        EXPECT_EQ(folder.Names(), QStringList(LevelCfg));
    };
    mdlEdit.Items[3].Name = u"a\nb"_s;
    expectRefused(u"line break"_s);
    mdlEdit.Items[3].Name = u"a\u2192b"_s;
    expectRefused(u"Name of item 3 cannot be written: the character \"\u2192\" (U+2192)"_s);
    mdlEdit.MaterialFile = u"\U0001F600"_s; // told first
    expectRefused(u"material graphics cannot be written: the character \"\U0001F600\" (U+1F600)"_s);
    mdlEdit.MaterialFile = mdlEdit.Items[3].Name = QString();
    mdlEdit.LevelPath = QString();
    expectRefused(u"no level folder has been chosen"_s);
    mdlEdit.LevelPath = folder.Path(u"gone"_s);
    expectRefused(folder.Path(u"gone/level.cfg"_s));
    mdlEdit.LevelPath = folder.Path();
    QDir(folder.Path()).mkdir(WaypointCfg);
    const QString message = Save();
    EXPECT_TRUE(message.contains(u"waypoint.cfg could not be saved: it is not a "
                                 "file. level.cfg was saved."_s))
        << message.toStdString();
    EXPECT_NE(folder.Read(LevelCfg), old);
    EXPECT_EQ(folder.Names().size(), 2);
}

TEST_F(LevelFiles, ASaveIntoAReadOnlyFolderSaysSoAndTouchesNothing) {
    folder.Write(LevelCfg, "old");
    ASSERT_EQ(::chmod(QFile::encodeName(folder.Path(LevelCfg)).constData(), 0666), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(folder.Path()).constData(), 0555), 0);
    constexpr uid_t Nobody = 65534;
    const uid_t user = ::getuid();
    if (user == 0 && ::setresuid(Nobody, Nobody, 0) != 0) { // root may write anywhere
        GTEST_SKIP() << "the user cannot be changed";
    }
    const QString message = Save();
    ASSERT_EQ(::setresuid(user, user, user), 0);
    EXPECT_TRUE(message.contains(u"level.cfg could not be saved: Permission denied."_s))
        << message.toStdString();
    EXPECT_EQ(folder.Read(LevelCfg), "old");
    EXPECT_EQ(folder.Names(), QStringList(LevelCfg));
    ASSERT_EQ(::chmod(QFile::encodeName(folder.Path()).constData(), 0755), 0);
    EXPECT_EQ(Save(), QString());
}

TEST(FieldValue, IsTheNumberThatATextBeginsWith) {
    for (const char* text :
         {"", "abc", "0x10", ".", "-", "+-5", "inf", "nan", "&O8", "-&H10", "&", "&X1", "1e-400"}) {
        EXPECT_EQ(FieldValue(QString::fromLatin1(text)), 0) << text;
    }
    using Row = std::pair<const char*, double>;
    for (const auto& [text, value] :
         {Row{"12abc", 12}, Row{"2.5", 2.5}, Row{"-5", -5}, Row{"+7", 7}, Row{"  4\t2\n1 ", 421},
          Row{"1 000", 1000}, Row{"1500 N", 1500}, Row{"1e3", 1000}, Row{"1E+2x", 100},
          Row{"1e", 1}, Row{".5", 0.5}, Row{"5.", 5}, Row{"1,5", 1}, Row{"&HFFFF", 65535},
          Row{"&h1g", 1}, Row{"& o 17", 15}, Row{"1e400", HUGE_VAL}, Row{"-1e400", -HUGE_VAL},
          Row{"1d5", 1}}) {
        EXPECT_EQ(FieldValue(QString::fromLatin1(text)), value) << text;
    }
    EXPECT_EQ(FieldValue(u"\u0661\u0662"_s), 0); // digits of another script
    EXPECT_EQ(FieldValue(QString(400, u'9')), HUGE_VAL);
}

} // namespace
} // namespace editor
