// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// First inputs for the level files: levels within the rules, and the lines that only others write.

#include "model/LevelWriter.h"
#include "support/Models.h"

#include <QDir>
#include <QFile>

namespace editor {
namespace {

constexpr char Separator = '\x1E'; // as the target splits its input

bool Write(const QDir& folder, const QString& name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

bool WriteSeeds(const QDir& folder) {
    std::mt19937 random(1);
    for (int i = 0; i < 8; ++i) {
        LevelModel level = test::RandomLevel(random);
        // Small inputs are tried more often.
        level.NumItems = static_cast<std::int16_t>(i);
        level.NumStartPoints = static_cast<std::int16_t>(i);
        level.NumWayPoints = i;
        if (!Write(folder, QStringLiteral("level-%1").arg(i),
                   WriteLevelCfg(level) + Separator + WriteWaypointCfg(level))) {
            return false;
        }
    }
    return Write(folder, QStringLiteral("odd"),
                 "\xEF\xBB\xBF; a comment\n [ MAP ] x\r back = \" a \" \nNumItems=-1\n[map]\n"
                 "Level=lost\n[Physics]\nKickerForce='+42A'\nJumperForce=99999999999\n[\n=\n");
}

} // namespace
} // namespace editor

int main(int argc, char** argv) {
    return argc == 2 && editor::WriteSeeds(QDir(QString::fromLocal8Bit(argv[1]))) ? 0 : 1;
}
