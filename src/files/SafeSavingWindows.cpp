// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "files/FileProblem.h"
#include "files/RegularFile.h"
#include "files/SafeSaving.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QUuid>

#include <cstddef>
#include <io.h>
#include <string>
#include <vector>
#include <windows.h>

#undef ReplaceFile // else the function below would become ReplaceFileW

namespace editor {
namespace {

// The form in which the system takes a path of any length, also one of a network.
std::wstring SystemName(const QString& path) {
    const QString name = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    if (name.startsWith(u"\\\\?\\")) {
        return name.toStdWString();
    }
    const bool network = name.startsWith(u"\\\\");
    return ((network ? QStringLiteral("\\\\?\\UNC") : QStringLiteral("\\\\?\\")) +
            name.sliced(network ? 1 : 0))
        .toStdWString();
}

// Gives the file `to` the attributes and access rights of `from`, as far as its file system has
// any.
void CopyRights(const std::wstring& from, const std::wstring& to) {
    SetFileAttributesW(to.c_str(), GetFileAttributesW(from.c_str()));
    DWORD size = 0;
    GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<std::byte> rights(size);
    if (GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size)) {
        SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, rights.data());
    }
}

// Whether another program has the file open and forbids to replace it, which the renaming itself
// would only call a denied access.
bool IsHeld(const std::wstring& name) {
    const HANDLE file =
        CreateFileW(name.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return GetLastError() == ERROR_SHARING_VIOLATION;
    }
    CloseHandle(file);
    return false;
}

// Not with ReplaceFileW(), which would keep more of the old file, but renames twice: there would be
// a moment without any file of that name. The result is the system's error, which calls that
// follow would overwrite.
DWORD PutInPlace(const QString& name, const QString& target) {
    const std::wstring from = SystemName(name);
    const std::wstring to = SystemName(target);
    if (GetFileAttributesW(to.c_str()) != INVALID_FILE_ATTRIBUTES) {
        if (IsHeld(to)) {
            return ERROR_SHARING_VIOLATION;
        }
        CopyRights(to, from);
    }
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
               ? ERROR_SUCCESS
               : GetLastError();
}

} // namespace

void ReplaceFile(const QString& path, const QByteArray& bytes) {
    const auto fail = [&path](const QString& reason) {
        throw FileProblem(QStringLiteral("%1 could not be saved: %2.")
                              .arg(QDir::toNativeSeparators(path), WithoutFullStop(reason)));
    };
    const QFileInfo old(path);
    if (old.exists() && !IsRegularFile(path)) {
        fail(QStringLiteral("it is not a file"));
    }
    if (old.exists() && !old.isWritable()) {
        fail(QStringLiteral("it is read-only"));
    }
    const QString target = old.exists() ? old.canonicalFilePath() : path; // a link stays a link
    QFile file(target + u'.' + QUuid::createUuid().toString(QUuid::Id128));
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        fail(file.errorString());
    }
    auto remove = qScopeGuard([&file] { file.remove(); });
    if (file.write(bytes) != bytes.size()) {
        fail(file.errorString());
    }
    if (!FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle())))) {
        fail(qt_error_string()); // the system's last error
    }
    file.close();
    if (const DWORD error = PutInPlace(file.fileName(), target); error != ERROR_SUCCESS) {
        fail(qt_error_string(static_cast<int>(error)));
    }
    remove.dismiss();
}

} // namespace editor
