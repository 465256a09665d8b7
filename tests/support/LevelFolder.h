// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <filesystem>
#include <gtest/gtest.h>

namespace editor::test {

using namespace Qt::StringLiterals;

const QString LevelCfg = QStringLiteral("level.cfg");
const QString WaypointCfg = QStringLiteral("waypoint.cfg");

/// A folder of its own for one test, gone at its end.
class LevelFolder {
  public:
    static constexpr const char* NoSuchFile = "(no such file)";

    [[nodiscard]] QString Path() const { return folder_.path(); }
    [[nodiscard]] QString Path(const QString& name) const { return folder_.filePath(name); }

    void Write(const QString& name, const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(Path(name)).path());
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    /// The whole file; NoSuchFile, which no file of these tests holds, when there is none.
    [[nodiscard]] QByteArray Read(const QString& name) const {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(NoSuchFile);
    }

    [[nodiscard]] QStringList Names() const {
        return QDir(Path()).entryList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

  private:
    QTemporaryDir folder_;
};

/// Makes a symbolic link. False where the system has none: QFile::link() makes a file there.
inline bool SymbolicLink(const QString& target, const QString& name) {
    std::error_code error;
    std::filesystem::create_symlink(target.toStdU16String(), name.toStdU16String(), error);
    return !error;
}

/// The text with every line ended as the game's files end them.
inline QByteArray CrLf(QByteArray text) {
    return text.replace("\n", "\r\n");
}

} // namespace editor::test
