#include "platform/CodePage.h"
#include "platform/FileNames.h"
#include "platform/RegularFile.h"
#include "platform/Rounding.h"
#include "support/LevelFolder.h"

#include <gtest/gtest.h>

namespace editor {
namespace {

using test::LevelFolder;

TEST(FindInFolder, PrefersTheExactNameAndIgnoresLetterCaseOtherwise) {
    LevelFolder folder;
    for (const char* name : {"Level.PNG", "gfx/back.png", "GFX/mat.png", "gfx/a/x.png",
                             "Gfx/A/y.png", "both.png", "BOTH.png", "with blank \xC3\xA4.png"}) {
        folder.Write(QString::fromUtf8(name), "x");
    }
    const struct {
        const char* name;
        const char* found;
    } rows[] = {
        {"Level.PNG", "Level.PNG"},
        {"level.png", "Level.PNG"},
        {"gfx\\back.png", "gfx/back.png"},
        {"gfx/MAT.png", "GFX/mat.png"},
        {"gfx\\a\\Y.PNG", "Gfx/A/y.png"},
        {"both.png", "both.png"},
        {"Both.PNG", "BOTH.png"},
        {"WITH BLANK \xC3\xA4.png", "with blank \xC3\xA4.png"},
        {"missing\\one.png", "missing/one.png"},
        {"\\Level.PNG", "Level.PNG"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FindInFolder(folder.Path(), QString::fromUtf8(row.name)),
                  folder.Path(QString::fromUtf8(row.found)))
            << row.name;
    }
    EXPECT_EQ(JoinPath(QStringLiteral("/"), QStringLiteral("a")), QStringLiteral("/a"));
    EXPECT_EQ(CleanFolderPath(folder.Path() + QStringLiteral("/gfx/../")), folder.Path());
    EXPECT_EQ(CleanFolderPath(QStringLiteral("//")), QStringLiteral("/"));
    EXPECT_EQ(CleanFolderPath(QString()), QString());
}

TEST(CodePage, HoldsEveryByteOnceAndNamesWhatItLacks) {
    QByteArray bytes;
    for (int i = 0; i < 256; ++i) {
        bytes.append(static_cast<char>(i));
    }
    const QString text = FromCodePage(bytes);
    EXPECT_EQ(ToCodePage(text), bytes);
    EXPECT_EQ(text.mid(0x7F, 3), QStringLiteral("\u007f\u20ac\u0081"));
    EXPECT_EQ(text.mid(0x9E, 3), QStringLiteral("\u017e\u0178\u00a0"));
    EXPECT_EQ(FirstOutsideCodePage(text), QString());
    EXPECT_FALSE(ToCodePage(QStringLiteral("\u0080")).has_value());
    EXPECT_EQ(FirstOutsideCodePage(QStringLiteral("ab\u0416c")), QStringLiteral("\u0416"));
    EXPECT_EQ(FirstOutsideCodePage(QString(QChar(0xD800))), QString(QChar(0xD800)));
}

TEST(RoundTo, TakesHalvesToTheEvenNeighbourAndStopsAtTheLimits) {
    const struct {
        double value;
        int rounded;
    } rows[] = {{2.5, 2},           {3.5, 4},          {-2.5, -2},          {-3.5, -4},
                {0.4999, 0},        {32767.4, 32767},  {32767.5, 32767},    {1e300, 32767},
                {-32768.6, -32768}, {HUGE_VAL, 32767}, {-HUGE_VAL, -32768}, {std::nan(""), 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(RoundTo<std::int16_t>(row.value), row.rounded) << row.value;
    }
    EXPECT_EQ(RoundTo<std::int32_t>(2147483647.5), 2147483647);
}

TEST(ReadRegularFile, OpensNothingButOrdinaryFiles) {
    LevelFolder folder;
    QByteArray bytes("old");
    EXPECT_EQ(ReadRegularFile(folder.Path(QStringLiteral("none")), 10, bytes), QString());
    EXPECT_EQ(bytes, QByteArray());
    bytes = "old";
    EXPECT_NE(ReadRegularFile(QStringLiteral("/dev/zero"), 10, bytes), QString());
    EXPECT_NE(ReadRegularFile(folder.Path(), 10, bytes), QString());
    folder.Write(QStringLiteral("eleven"), "12345678901");
    EXPECT_NE(ReadRegularFile(folder.Path(QStringLiteral("eleven")), 10, bytes), QString());
    EXPECT_EQ(bytes, "old");
    EXPECT_EQ(ReadRegularFile(folder.Path(QStringLiteral("eleven")), 11, bytes), QString());
    EXPECT_EQ(bytes.size(), 11);
}

} // namespace
} // namespace editor
