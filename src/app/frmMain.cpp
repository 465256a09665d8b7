// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "app/frmMain.h"

#include "app/Wiring.h"
#include "dialogs/frmAbout.h"
#include "model/LevelFiles.h"
#include "model/mdlEdit.h"
#include "view/LevelGraphics.h"
#include "view/Zoom.h"
#include "windows/Choosers.h"
#include "windows/Layout.h"
#include "windows/MessageBox.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <utility>

namespace editor {
namespace {

// The size of the area at start, in twips.
constexpr int InitialWidth = 7200;
constexpr int InitialHeight = 4380;

/// Shows the busy pointer as long as it lives.
struct BusyPointer {
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

// Whether it is the size that the program gave. On a scaled screen the window system rounds it to
// pixels of the device.
bool IsSame(const QSize& size, const QSize& given) {
    const QSize off = size - given;
    return std::abs(off.width()) <= 1 && std::abs(off.height()) <= 1;
}

} // namespace

frmMain::frmMain()
    : mapView([this] { return MakeMapView(*this, *area_); }),
      entitySettings([this] { return MakeEntitySettings(*this, *area_); }),
      levelSettings([this] { return MakeLevelSettings(*this, *area_); }),
      area_(new FormArea(this)) {
    setWindowTitle(QStringLiteral("Torvak! Level editor"));
    setCentralWidget(area_);
    MakeMenus();
    ensurePolished();
    resize(Twips(InitialWidth),
           Twips(InitialHeight) + menuBar()->heightForWidth(Twips(InitialWidth)));
    ownSize_ = size();
    MDIForm_Load();
}

// The windows go first: what they report is answered by members of this one.
frmMain::~frmMain() {
    delete area_;
}

void frmMain::MakeMenus() {
    const auto add = [this](QMenu* menu, const char* name, const QString& text,
                            const QKeySequence& shortcut, void (frmMain::*handler)()) {
        QAction* entry = menu->addAction(text);
        entry->setObjectName(QLatin1String(name));
        entry->setShortcut(shortcut);
        if (handler != nullptr) {
            connect(entry, &QAction::triggered, this, handler);
        }
        return entry;
    };
    const auto addMenu = [this](const char* name, const QString& text) {
        QMenu* menu = menuBar()->addMenu(text);
        menu->setObjectName(QLatin1String(name));
        return menu;
    };

    QMenu* mnuLevel = addMenu("mnuLevel", QStringLiteral("&Level"));
    add(mnuLevel, "mnuLevNew", QStringLiteral("&New"), Qt::CTRL | Qt::Key_N,
        &frmMain::mnuLevNew_Click);
    mnuLevel->addSeparator()->setObjectName(QStringLiteral("mnuLevSep"));
    add(mnuLevel, "mnuLevOpen", QStringLiteral("&Open"), Qt::CTRL | Qt::Key_O,
        &frmMain::mnuLevOpen_Click);
    add(mnuLevel, "mnuSave", QStringLiteral("&Save"), Qt::CTRL | Qt::Key_S,
        &frmMain::mnuSave_Click);

    QMenu* mnuWindows = addMenu("mnuWindows", QStringLiteral("&Windows"));
    mnuLevSettings = add(mnuWindows, "mnuLevSettings", QStringLiteral("Level &settings"),
                         Qt::Key_F5, &frmMain::mnuLevSettings_Click);
    mnuLevWay = add(mnuWindows, "mnuLevWay", QStringLiteral("Level &items"), Qt::Key_F7,
                    &frmMain::mnuLevWay_Click);
    mnuLevSettings->setCheckable(true);
    mnuLevWay->setCheckable(true);

    QMenu* mnuHelp = addMenu("mnuHelp", QStringLiteral("&Help"));
    add(mnuHelp, "mnuHelpIndex", QStringLiteral("&Index"), Qt::Key_F1, nullptr);
    mnuHelp->addSeparator()->setObjectName(QStringLiteral("mnuHelpSep"));
    add(mnuHelp, "mnuHelpAbout", QStringLiteral("&About"), Qt::SHIFT | Qt::Key_F1,
        &frmMain::mnuHelpAbout_Click);
}

void frmMain::MDIForm_Load() {
    mdlEdit.Zoom = 1;
    // A window is made hidden by its first use.
    levelSettings.Use();
    mapView.Use();
    mnuLevSettings->setEnabled(false);
    mnuLevWay->setEnabled(false);
}

void frmMain::SetMenus() {
    mnuLevSettings->setEnabled(true);
    mnuLevWay->setEnabled(mdlEdit.GraphicsLoaded);
    if (!mdlEdit.GraphicsLoaded) {
        mdlEdit.LevelWidth = -1;
        mdlEdit.LevelHeight = -1;
        if (frmWaypoint* view = mapView.Existing()) {
            view->hide();
        }
    }
}

QString frmMain::BrowseFolder(const QString& title) {
    return choosers().browseForFolder(this, title);
}

void frmMain::mnuLevNew_Click() {
    const QString folder = BrowseFolder(QStringLiteral("Please select the destination folder"));
    if (folder.isEmpty()) {
        return;
    }
    if (IsUsedFolder(folder)) {
        MsgBox(this, QStringLiteral("This folder seems to be already used. Please use \"Open\""));
        return;
    }
    BeginLevel(folder);
    SetMenus();
    ClearSelection();
    BeginAtTopLeft();
    ShowPinned(levelSettings.Use());
    mnuLevSettings->setChecked(true);
}

void frmMain::mnuLevOpen_Click() {
    const QString folder = BrowseFolder(QStringLiteral("Please select the level folder"));
    if (folder.isEmpty()) {
        return;
    }
    const QString before = std::exchange(mdlEdit.LevelPath, folder);
    if (const auto error = LoadLevel()) {
        mdlEdit.LevelPath = before;
        MsgBox(this, *error);
        return;
    }
    LoadGraphics();
    BeginAtTopLeft();
    ClearSelection();
    SetMenus();
}

void frmMain::mnuSave_Click() {
    if (const auto error = SaveLevel()) {
        MsgBox(this, *error);
    }
}

// The entry toggled its check mark before it called.
void frmMain::mnuLevSettings_Click() {
    if (mnuLevSettings->isChecked()) {
        ShowPinned(levelSettings.Use());
        levelSettings.Use().Init();
    } else {
        levelSettings.Use().hide();
    }
}

void frmMain::mnuLevWay_Click() {
    const bool visible = mnuLevWay->isChecked();
    mapView.Use().setVisible(visible);
    if (visible) {
        ShowEntitySettings();
        mapView.Use().Init();
    } else {
        HideEntitySettings();
    }
}

void frmMain::mnuHelpAbout_Click() {
    frmAbout(this).exec();
}

void frmMain::LoadGraphics() {
    if (mdlEdit.LevelFile.isEmpty() || mdlEdit.MaterialFile.isEmpty() ||
        mdlEdit.BackFile.isEmpty()) {
        return;
    }
    const BusyPointer busy;
    // The old picture makes room for the new ones.
    if (frmWaypoint* view = mapView.Existing()) {
        view->Image().SetBackground({}, {});
    }
    try {
        if (LoadPictures()) {
            ShowLevel();
        }
    } catch (const std::exception&) { // there may be no memory to show it with
        mdlEdit.GraphicsLoaded = false;
    }
    SetMenus();
}

void frmMain::ShowLevel() {
    frmWaypoint& view = mapView.Use();
    view.show();
    ShowEntitySettings();
    mnuLevWay->setChecked(true);
    view.curpoint = NoSelection;
    entitySettings.Use().ShowWaypoint(NoSelection);
    SizeView(view);
    // Side by side.
    const QSize settings = entitySettings.Use().size();
    GrowFor({view.width() + settings.width(), std::max(view.height(), settings.height())});
    DrawLevelPicture(view);
    view.PaintPoints();
    view.TakeKeyboard();
}

// Also where the user has moved the view of the level before.
void frmMain::BeginAtTopLeft() {
    if (frmWaypoint* view = mapView.Existing()) {
        view->standing.place = {};
    }
    area_->ScrollTo({0, 0});
}

void frmMain::MapViewClosed() {
    HideEntitySettings();
    mnuLevWay->setChecked(false);
}

void frmMain::LevelSettingsAccepted() {
    LoadGraphics();
    mnuLevSettings->setChecked(false);
}

void frmMain::LevelSettingsClosed() {
    mnuLevSettings->setChecked(false);
}

// A new level's tables have nothing selected; a view that stays visible shows them.
void frmMain::ClearSelection() {
    frmWaypoint* view = mapView.Existing();
    if (view == nullptr) {
        return;
    }
    view->curpoint = NoSelection;
    if (view->isVisible()) {
        view->PaintPoints();
    }
}

void frmMain::KeepKeyboardInSight() {
    const QWidget* focused = focusWidget();
    if (focused != nullptr && focused != area_ && focused->isVisible()) {
        return;
    }
    frmWaypoint* view = mapView.Existing();
    if (view != nullptr && view->isVisible()) {
        view->TakeKeyboard();
        return;
    }
    for (QMdiSubWindow* form : area_->subWindowList()) {
        if (form->isVisible()) {
            area_->setActiveSubWindow(form);
            form->widget()->setFocus();
            return;
        }
    }
    area_->setFocus();
}

void frmMain::ShowEntitySettings() {
    ShowPinned(entitySettings.Use());
}

void frmMain::HideEntitySettings() {
    if (frmWaypointSettings* settings = entitySettings.Existing()) {
        settings->hide();
    }
}

void frmMain::ShowPinned(MdiForm& form) {
    GrowFor(form.size());
    form.show();
    form.raise();
}

// Gives the area as much of this size as the screen allows, unless it is the user who has given the
// main window the size that it has.
void frmMain::GrowFor(const QSize& wanted) {
    if (isMaximized() || isFullScreen() || !IsSame(size(), ownSize_)) {
        return;
    }
    const QRect available = screen()->availableGeometry();
    const QSize most = available.size() - (frameGeometry().size() - area_->size());
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const QSize bars(wanted.height() > most.height() ? bar : 0,
                     wanted.width() > most.width() ? bar : 0);
    const QSize grown = (wanted + bars).boundedTo(most).expandedTo(area_->size());
    resize(size() + grown - area_->size());
    ownSize_ = size();
    QRect frame = frameGeometry();
    frame.moveRight(std::min(frame.right(), available.right()));
    frame.moveBottom(std::min(frame.bottom(), available.bottom()));
    if (frame != frameGeometry()) {
        move(frame.topLeft());
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->accept();
    QApplication::quit();
}

} // namespace editor
