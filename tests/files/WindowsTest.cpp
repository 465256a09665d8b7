// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "files/FileProblem.h"
#include "files/PrivateProfile.h"
#include "files/SafeSaving.h"
#include "support/LevelFolder.h"

#include <gtest/gtest.h>
#include <random>
#include <windows.h>

#undef GetPrivateProfileString // else the names of ours would become those of the system's
#undef GetPrivateProfileInt
#undef ReplaceFile

namespace editor::test {

TEST(PrivateProfile, LooksUpWhatTheSystemsOwnCallsDo) {
    // A section's name that has a "]" in it is the one in which they differ.
    const QByteArrayList parts{"\n[a]", "\r[ B ]", "[",  "x",    "Y",  " ",  "\t",
                               "=",     "=",       "=",  ";",    "#",  "\"", "'",
                               "12",    "-5",      "3x", "\r\n", "\n", "\r", "\r\n"};
    const LevelFolder folder;
    std::mt19937 random(1);
    for (int file = 0; file < 200; ++file) {
        QByteArray text;
        for (auto left = random() % 80; left > 0; --left) {
            text += parts[static_cast<qsizetype>(random()) % parts.size()];
        }
        const QString name = QString::number(file) + u".ini"_s;
        folder.Write(name, text);
        const QByteArray path = QDir::toNativeSeparators(folder.Path(name)).toLocal8Bit();
        const PrivateProfile profile(text);
        for (const char* section : {"A", "b"}) {
            for (const char* key : {"X", "y", "12", "x y", "#", "xx"}) {
                char value[9]; // also too small for some
                GetPrivateProfileStringA(section, key, "", value, sizeof value, path);
                EXPECT_EQ(profile.GetPrivateProfileString(section, key, sizeof value), value)
                    << text.toPercentEncoding().constData() << ' ' << section << ' ' << key;
                const QByteArrayView ours = profile.Value(section, key);
                if (ours.isNull() || !ours.isEmpty()) { // there they take the default, we 0
                    EXPECT_EQ(profile.GetPrivateProfileInt(section, key, 7),
                              static_cast<int>(GetPrivateProfileIntA(section, key, 7, path)))
                        << text.toPercentEncoding().constData() << ' ' << section << ' ' << key;
                }
            }
        }
    }
}

TEST(ReplaceFile, KeepsAttributesAndTellsWhatStandsInItsWayAlsoWithLongAndForeignNames) {
    const LevelFolder folder;
    for (const QString& name : {u"level.cfg"_s, u"\u0416\u4e16/\U0001F600.cfg"_s,
                                (QString(200, u'n') + u'/').repeated(3) + u"level.cfg"_s}) {
        SCOPED_TRACE(name.toStdString());
        folder.Write(name, "old");
        const std::wstring path =
            L"\\\\?\\" + QDir::toNativeSeparators(folder.Path(name)).toStdWString();
        const auto expectRefused = [&] {
            EXPECT_THROW(ReplaceFile(folder.Path(name), "refused"), FileProblem);
            EXPECT_EQ(folder.Read(name), "new");
            const QDir beside = QFileInfo(folder.Path(name)).dir();
            EXPECT_EQ(beside.entryList(QDir::Files | QDir::Hidden).size(), 1);
        };
        constexpr DWORD Kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
        SetFileAttributesW(path.c_str(), Kept);
        ReplaceFile(folder.Path(name), "new");
        EXPECT_EQ(folder.Read(name), "new");
        EXPECT_EQ(GetFileAttributesW(path.c_str()) & Kept, Kept);

        const HANDLE held = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, 0, nullptr);
        expectRefused();
        CloseHandle(held);
        SetFileAttributesW(path.c_str(), Kept | FILE_ATTRIBUTE_READONLY);
        expectRefused();
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
}

} // namespace editor::test
