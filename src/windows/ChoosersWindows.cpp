// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/Choosers.h"

#include <QDir>
#include <QStandardPaths>
#include <QWidget>

#include <memory>
#include <shobjidl.h>
#include <string>
#include <vector>

namespace editor {
namespace {

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Held = std::unique_ptr<Interface, Release>;

std::wstring Wide(const QString& text) {
    return text.toStdWString();
}

Held<IShellItem> ItemOf(const QString& path) {
    IShellItem* item = nullptr;
    SHCreateItemFromParsingName(Wide(QDir::toNativeSeparators(path)).c_str(), nullptr,
                                IID_PPV_ARGS(&item));
    return Held<IShellItem>(item);
}

// The system's own dialog, used without Qt's, which would keep its state in the registry. The system
// itself remembers there where its dialogs were last.
class Chooser {
  public:
    Chooser(const QString& title, const QString& folder, FILEOPENDIALOGOPTIONS options) {
        IFileOpenDialog* made = nullptr;
        if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_PPV_ARGS(&made)))) {
            return;
        }
        dialog_.reset(made);
        dialog_->SetOptions(options | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR | FOS_DONTADDTORECENT);
        dialog_->SetTitle(Wide(title).c_str());
        if (const Held<IShellItem> item = ItemOf(folder)) {
            dialog_->SetFolder(item.get());
        }
    }

    /// Label and pattern pairs, each part followed by "|"; the first pair is preselected.
    void Offer(const QString& filter) {
        std::vector<std::wstring> parts;
        for (const QString& part : filter.split(u'|')) {
            parts.push_back(Wide(part));
        }
        std::vector<COMDLG_FILTERSPEC> pairs;
        for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
            pairs.push_back({parts[i].c_str(), parts[i + 1].c_str()});
        }
        if (dialog_) {
            dialog_->SetFileTypes(static_cast<UINT>(pairs.size()), pairs.data());
        }
    }

    /// The path that the user chose, absolute and clean; empty when the dialog was cancelled.
    QString Run(QWidget* owner) {
        const HWND window =
            owner == nullptr ? nullptr : reinterpret_cast<HWND>(owner->window()->winId());
        IShellItem* chosen = nullptr;
        if (!dialog_ || FAILED(dialog_->Show(window)) || FAILED(dialog_->GetResult(&chosen))) {
            return {};
        }
        const Held<IShellItem> item(chosen);
        wchar_t* name = nullptr;
        if (FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &name))) {
            return {};
        }
        const QString path = QDir::cleanPath(QString::fromWCharArray(name));
        CoTaskMemFree(name);
        return path;
    }

  private:
    Held<IFileOpenDialog> dialog_;
};

QString BrowseForFolder(QWidget* owner, const QString& prompt) {
    const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    return Chooser(prompt, desktop, FOS_PICKFOLDERS | FOS_PATHMUSTEXIST).Run(owner);
}

QString OpenFileName(QWidget* owner, const QString& title, const QString& initialFolder,
                     const QString& filter) {
    Chooser chooser(title, initialFolder, {});
    chooser.Offer(filter);
    return chooser.Run(owner);
}

} // namespace

Choosers& choosers() {
    static Choosers set{BrowseForFolder, OpenFileName};
    return set;
}

void LeaveNoConfiguration() {} // Qt's dialogs are not used

} // namespace editor
