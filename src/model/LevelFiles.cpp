// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "model/LevelFiles.h"

#include "files/FileNames.h"
#include "files/PrivateProfile.h"
#include "files/RegularFile.h"
#include "model/LevelReader.h"
#include "model/LevelWriter.h"
#include "model/mdlEdit.h"

#include <QDir>
#include <QFileInfo>

namespace editor {
namespace {

QString LevelCfgPath() {
    return FindInFolder(mdlEdit.LevelPath, QStringLiteral("level.cfg"));
}

QString WaypointCfgPath() {
    return FindInFolder(mdlEdit.LevelPath, QStringLiteral("waypoint.cfg"));
}

// A folder that is gone or closed to the user would look like one without files.
std::optional<LevelFileError> CheckFolder() {
    const QFileInfo folder(mdlEdit.LevelPath);
    if (folder.isDir() && folder.isReadable() && folder.isExecutable()) {
        return std::nullopt;
    }
    return QStringLiteral("The level cannot be opened: the folder %1 %2.")
        .arg(QDir::toNativeSeparators(mdlEdit.LevelPath),
             folder.isDir() ? QStringLiteral("cannot be read") : QStringLiteral("does not exist"));
}

std::optional<LevelFileError> LoadProfile(PrivateProfile& profile, const QString& path) {
    const QString reason = profile.Load(path);
    if (reason.isEmpty()) {
        return std::nullopt;
    }
    return QStringLiteral("The level cannot be opened: %1 cannot be read: %2.")
        .arg(QDir::toNativeSeparators(path), reason);
}

std::optional<LevelFileError> ReplaceLevelFile(const QString& path, const QByteArray& bytes,
                                               const QString& remark) {
    const QString reason = ReplaceFile(path, bytes);
    if (reason.isEmpty()) {
        return std::nullopt;
    }
    return QStringLiteral("%1 could not be saved: %2.%3")
        .arg(QDir::toNativeSeparators(path), reason, remark);
}

} // namespace

std::optional<LevelFileError> LoadLevel(const std::function<void()>& loadGraphics) {
    if (auto error = CheckFolder()) {
        return error;
    }
    PrivateProfile levelCfg;
    PrivateProfile waypointCfg;
    const QString levelPath = LevelCfgPath();
    const QString waypointPath = WaypointCfgPath();
    if (auto error = LoadProfile(levelCfg, levelPath)) {
        return error;
    }
    if (auto error = LoadProfile(waypointCfg, waypointPath)) {
        return error;
    }
    // Reading clears nothing first: what the files do not set, leftovers beyond the counts
    // included, stays as the model has it.
    LevelModel next = mdlEdit;
    LevelReader reader(next);
    if (!reader.ReadLevelCfg(levelCfg) || !reader.ReadWaypointCfg(waypointCfg)) {
        return QStringLiteral("The level cannot be opened: %1")
            .arg(reader.Problem(levelPath, waypointPath));
    }
    mdlEdit = std::move(next);
    loadGraphics();
    return std::nullopt;
}

std::optional<LevelFileError> SaveLevel() {
    if (mdlEdit.LevelPath.isEmpty()) {
        return QStringLiteral("The level cannot be saved: no level folder has been chosen yet. "
                              "Please use \"New\" or \"Open\" first.");
    }
    // Both texts stand before the first file is touched.
    QByteArray levelCfg;
    if (auto error = WriteLevelCfg(mdlEdit, levelCfg)) {
        return error;
    }
    const QByteArray waypointCfg = WriteWaypointCfg(mdlEdit);

    if (auto error = ReplaceLevelFile(LevelCfgPath(), levelCfg, {})) {
        return error;
    }
    if (mdlEdit.NumWayPoints == 0) {
        return std::nullopt;
    }
    return ReplaceLevelFile(WaypointCfgPath(), waypointCfg,
                            QStringLiteral(" level.cfg was saved."));
}

} // namespace editor
