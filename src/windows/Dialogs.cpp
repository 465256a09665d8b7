// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/Dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>
#include <QStandardPaths>

namespace editor {
namespace {

// Pixels; the size that the dialog would take by itself is too small for long names.
constexpr QSize FileDialogSize(620, 400);

void ShowMessageBox(QWidget* owner, const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::NoIcon, title, text, QMessageBox::Ok, owner);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

// The desktop, where a folder browser starts, or the home folder of a system without one.
QString DesktopFolder() {
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    return QFileInfo(desktop).isDir() ? desktop : QDir::homePath();
}

// Qt's own dialog, which looks and works the same on every desktop.
class FileDialog : public QFileDialog {
  public:
    FileDialog(QWidget* owner, const QString& title, const QString& folder)
        : QFileDialog(owner, title, folder) {
        setOption(DontUseNativeDialog); // before anything else is set
        setAcceptMode(AcceptOpen);
        setViewMode(List); // the columns of the other view are too narrow for what is in them
        resize(FileDialogSize);
    }

    /// The path that the user chose, absolute and clean; empty when the dialog was cancelled.
    QString Run() {
        if (exec() != Accepted || selectedFiles().isEmpty()) {
            return {};
        }
        return QDir::cleanPath(QFileInfo(selectedFiles().constFirst()).absoluteFilePath());
    }
};

QString BrowseForFolder(QWidget* owner, const QString& prompt) {
    FileDialog dialog(owner, prompt, DesktopFolder());
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return dialog.Run();
}

// "label (pattern)" for each pair: the form in which the file dialog takes them.
QStringList NameFilters(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        filters.append(QStringLiteral("%1 (%2)").arg(parts[i], parts[i + 1]));
    }
    return filters;
}

QString OpenFileName(QWidget* owner, const QString& title, const QString& initialFolder,
                     const QString& filter) {
    FileDialog dialog(owner, title, initialFolder);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails); // shows the labels as they are
    dialog.setNameFilters(NameFilters(filter));
    QString chosen = dialog.Run();
    if (!chosen.isEmpty()) {
        QDir::setCurrent(QFileInfo(chosen).path());
    }
    return chosen;
}

} // namespace

QString ApplicationTitle() {
    return QStringLiteral("Torvak! level editor");
}

Dialogs& dialogs() {
    static Dialogs set{ShowMessageBox, BrowseForFolder, OpenFileName};
    return set;
}

void MsgBox(QWidget* owner, const QString& text, const QString& title) {
    dialogs().messageBox(owner, text, title);
}

void LeaveNoConfiguration() {
    // Below a device there can be no file, so that nothing is ever written, nor read.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QStringLiteral("/dev/null/none"));
}

} // namespace editor
