// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "model/LevelFiles.h"

#include "files/FileNames.h"
#include "files/FileProblem.h"
#include "files/RegularFile.h"
#include "files/SafeSaving.h"
#include "model/LevelReader.h"
#include "model/LevelWriter.h"
#include "model/mdlEdit.h"

#include <QDir>
#include <QFileInfo>

#include <new>
#include <utility>

namespace editor {
namespace {

// The largest file that is read; a level's own files have some 50 KiB at most.
constexpr qint64 MaximumSize = 8 * 1024 * 1024;

QString LevelCfgPath(const QString& folder) {
    return FindInFolder(folder, QStringLiteral("level.cfg"));
}

QString WaypointCfgPath(const QString& folder) {
    return FindInFolder(folder, QStringLiteral("waypoint.cfg"));
}

// A folder that is gone or closed to the user would look like one without files.
void CheckFolder(const QString& path) {
    const QFileInfo folder(path);
    if (!folder.isDir() || !folder.isReadable() || !folder.isExecutable()) {
        throw FileProblem(QStringLiteral("the folder %1 %2.")
                              .arg(QDir::toNativeSeparators(path),
                                   folder.isDir() ? QStringLiteral("cannot be read")
                                                  : QStringLiteral("does not exist")));
    }
}

} // namespace

bool IsUsedFolder(const QString& folder) {
    const QFileInfo file(LevelCfgPath(folder));
    return file.isFile() && !file.isHidden();
}

void BeginLevel(const QString& folder) {
    mdlEdit.LevelPath = folder;
    mdlEdit.GraphicsLoaded = false;
    mdlEdit.NumStartPoints = 0;
    mdlEdit.NumItems = 0;
    mdlEdit.NumWayPoints = 0;
    mdlEdit.LevelWidth = -1;
    mdlEdit.LevelHeight = -1;
}

std::optional<LevelFileError> LoadLevel() {
    try {
        CheckFolder(mdlEdit.LevelPath);
        const QString levelPath = LevelCfgPath(mdlEdit.LevelPath);
        const QString waypointPath = WaypointCfgPath(mdlEdit.LevelPath);
        const QByteArray levelCfg = ReadRegularFile(levelPath, MaximumSize);
        const QByteArray waypointCfg = ReadRegularFile(waypointPath, MaximumSize);
        // Reading clears nothing first: what the files do not set, leftovers beyond the counts
        // included, stays as the model has it.
        LevelModel next = mdlEdit;
        ReadLevelCfg(levelPath, levelCfg, next);
        ReadWaypointCfg(waypointPath, waypointCfg, next);
        mdlEdit = std::move(next);
    } catch (const FileProblem& problem) {
        return QStringLiteral("The level cannot be opened: ") + problem.Text();
    } catch (const std::bad_alloc&) {
        return QStringLiteral("The level cannot be opened: there is not enough memory.");
    }
    return std::nullopt;
}

std::optional<LevelFileError> SaveLevel() {
    QString remark;
    try {
        if (mdlEdit.LevelPath.isEmpty()) {
            throw FileProblem(
                QStringLiteral("The level cannot be saved: no level folder has been chosen yet. "
                               "Please use \"New\" or \"Open\" first."));
        }
        // Both texts stand before the first file is touched.
        const QByteArray levelCfg = WriteLevelCfg(mdlEdit);
        const QByteArray waypointCfg = WriteWaypointCfg(mdlEdit);
        ReplaceFile(LevelCfgPath(mdlEdit.LevelPath), levelCfg);
        remark = QStringLiteral(" level.cfg was saved.");
        if (mdlEdit.NumWayPoints != 0) {
            ReplaceFile(WaypointCfgPath(mdlEdit.LevelPath), waypointCfg);
        }
    } catch (const FileProblem& problem) {
        return problem.Text() + remark;
    } catch (const std::bad_alloc&) {
        return QStringLiteral("The level cannot be saved: there is not enough memory.") + remark;
    }
    return std::nullopt;
}

} // namespace editor
