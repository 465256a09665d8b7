// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// Any two texts as level.cfg and waypoint.cfg: they are read or refused, and what was read is
// written, read again and then the same, but for what the files cannot hold.

#include "files/CodePage.h"
#include "files/FileProblem.h"
#include "files/PrivateProfile.h"
#include "model/LevelReader.h"
#include "model/LevelWriter.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace editor {
namespace {

// Stands between the two files in an input.
constexpr char Separator = '\x1E';

bool Read(LevelModel& model, const QByteArray& level, const QByteArray& waypoint) {
    try {
        ReadLevelCfg(QStringLiteral("level"), level, model);
        ReadWaypointCfg(QStringLiteral("waypoint"), waypoint, model);
        return true;
    } catch (const FileProblem&) {
        return false;
    }
}

// A text that was written comes back without outer blanks and one outer pair of quotes.
QString Reread(const QString& text) {
    const PrivateProfile profile("[s]\r\nk=" + ToCodePage(text).value() + "\r\n");
    return FromCodePage(profile.GetPrivateProfileString("s", "k", MaxStringLength + 1));
}

void Expect(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void ExpectSame(const LevelModel& before, const LevelModel& after) {
    Expect(after.LevelFile == Reread(before.LevelFile));
    Expect(after.BackFile == Reread(before.BackFile));
    Expect(after.MaterialFile == Reread(before.MaterialFile));
    Expect(after.ParallaxFile == Reread(before.ParallaxFile));
    Expect(after.ParallaxScroll == before.ParallaxScroll);
    Expect(after.JumperForce == before.JumperForce && after.KickerForce == before.KickerForce);
    Expect(after.NumStartPoints == before.NumStartPoints && after.NumItems == before.NumItems);
    Expect(after.NumWayPoints == before.NumWayPoints || before.NumWayPoints == 0);
    Expect(std::ranges::equal(before.StartPointTable(), after.StartPointTable()));
    for (int n = 0; n < before.ItemTable().Size(); ++n) {
        ItemRec expected = before.ItemTable()[n];
        expected.Name = Reread(expected.Name);
        if (expected.Amount == StandardItem::UnwrittenAmount) {
            expected.Amount = StandardItem::Amount;
        }
        Expect(after.ItemTable()[n] == expected);
    }
    // The two models began alike, and link slots that are not in use were never written.
    Expect(std::ranges::equal(before.WayPointTable(), after.WayPointTable()));
}

} // namespace
} // namespace editor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace editor;
    const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const qsizetype split = input.indexOf(Separator);
    LevelModel first;
    if (!Read(first, input.left(split), split < 0 ? QByteArray() : input.mid(split + 1))) {
        return 0;
    }
    LevelModel second;
    Expect(Read(second, WriteLevelCfg(first), WriteWaypointCfg(first)));
    ExpectSame(first, second);
    return 0;
}
