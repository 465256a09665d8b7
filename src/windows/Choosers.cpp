// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/Choosers.h"

#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>

namespace editor {
namespace {

// Pixels; the size that the dialog would take by itself is too small for long names.
constexpr QSize FileDialogSize(620, 400);
constexpr int PlacesWidth = 130; // of the list beside the folder's entries

// Milliseconds in which the desktop takes a closed dialog from the screen.
constexpr int VanishingTime = 60;

// The desktop, where a folder browser starts, or the home folder of a system without one.
QString DesktopFolder() {
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    return QFileInfo(desktop).isDir() ? desktop : QDir::homePath();
}

class FileDialog : public QFileDialog {
  public:
    FileDialog(QWidget* owner, const QString& title, const QString& folder)
        : QFileDialog(owner, title, folder) {
        setOption(DontUseNativeDialog); // before anything else is set
        setAcceptMode(AcceptOpen);
        setViewMode(List); // the columns of the other view are too narrow for what is in them
        resize(FileDialogSize);
        auto* places = findChild<QAbstractItemView*>(QStringLiteral("sidebar"));
        places->setMinimumWidth(PlacesWidth);
        places->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        places->setTextElideMode(Qt::ElideRight);
        name_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        // Its list of proposals would take the Enter after a path, or stay behind empty.
        name_->setCompleter(nullptr);
        connect(name_, &QLineEdit::textChanged, this, [this](const QString& name) {
            if (name.contains(u'"')) { // see accept()
                findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->setEnabled(true);
            }
        });
    }

    /// The path that the user chose, absolute and clean; empty when the dialog was cancelled.
    QString Run() {
        const bool accepted = exec() == Accepted;
        // What follows may keep the program busy; the windows below are to be whole by then.
        QEventLoop vanishing;
        QTimer::singleShot(VanishingTime, &vanishing, &QEventLoop::quit);
        vanishing.exec(QEventLoop::ExcludeUserInputEvents);
        if (!accepted) {
            return {};
        }
        const QString chosen = quoted_.isEmpty() ? selectedFiles().value(0) : quoted_;
        return chosen.isEmpty() ? QString() : QDir::cleanPath(QFileInfo(chosen).absoluteFilePath());
    }

  protected:
    // The base class takes quotation marks for what stands around each of several names, and leaves
    // the path of a folder that it shows in the way of the next name.
    void accept() override {
        const QFileInfo typed(directory(), name_->text());
        if (fileMode() == AnyFile && typed.isDir() && !name_->text().isEmpty()) {
            setDirectory(typed.filePath());
            name_->clear();
        } else if (!name_->text().contains(u'"')) {
            QFileDialog::accept();
        } else if (fileMode() == AnyFile || typed.isDir()) {
            quoted_ = typed.filePath();
            QDialog::accept();
        }
    }

  private:
    QLineEdit* name_;
    QString quoted_; // the path that was chosen, when it has a quotation mark
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
    return dialog.Run();
}

} // namespace

Choosers& choosers() {
    static Choosers set{BrowseForFolder, OpenFileName};
    return set;
}

void LeaveNoConfiguration() {
    // Below a device there can be no file, so that nothing is ever written, nor read.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QStringLiteral("/dev/null/none"));
}

} // namespace editor
