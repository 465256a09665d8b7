// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "dialogs/frmLevel.h"
#include "edit/frmWaypointSettings.h"
#include "view/frmWaypoint.h"
#include "windows/FormArea.h"
#include "windows/OnceForm.h"

#include <QMainWindow>

class QAction;

namespace editor {

/// The main window: the menus with the level commands, and the area in which the other windows
/// appear. Closing it ends the program; nothing is asked and nothing is saved.
class frmMain : public QMainWindow {
    Q_OBJECT

  public:
    frmMain();
    ~frmMain() override;

    /// Enables the entry of the level settings for good, and that of the level items as long as
    /// graphics are loaded; without graphics the level has no size and the map view is hidden.
    /// Check marks stay.
    void SetMenus();

    /// Lets the user choose a folder; empty when cancelled.
    [[nodiscard]] QString BrowseFolder(const QString& title);

    // The other windows, made on first use and anew after they were closed.
    OnceForm<frmWaypoint> mapView;
    OnceForm<frmWaypointSettings> entitySettings;
    OnceForm<frmLevel> levelSettings;

    /// Loads the graphics that the level names and, when all of them can be read, shows the level;
    /// else nothing is shown of it and no message appears. Does nothing while one has no name.
    void LoadGraphics();

    // What the other windows report.
    void MapViewClosed();
    void LevelSettingsAccepted();
    void LevelSettingsClosed();
    /// When a window was hidden the keyboard goes to one that can be seen, the map view first.
    void KeepKeyboardInSight();

    // The two entries whose check marks and enabling follow the level and the windows.
    QAction* mnuLevSettings = nullptr;
    QAction* mnuLevWay = nullptr;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void MakeMenus();
    void MDIForm_Load();
    void mnuLevNew_Click();
    void mnuLevOpen_Click();
    void mnuSave_Click();
    void mnuLevSettings_Click();
    void mnuLevWay_Click();
    void mnuHelpAbout_Click();

    void ShowLevel();
    void ShowEntitySettings();
    void HideEntitySettings();
    void ClearSelection();
    void BeginAtTopLeft();
    void ShowPinned(MdiForm& form);
    void GrowFor(const QSize& wanted);

    FormArea* area_;
    QSize ownSize_; // the last one that was not given by the user
};

} // namespace editor
