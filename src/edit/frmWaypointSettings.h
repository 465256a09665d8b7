// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "edit/WaypointGestures.h"
#include "model/EditingMode.h"
#include "model/mdlEdit.h"
#include "windows/MdiForm.h"
#include "windows/OnceForm.h"
#include "windows/QuietControls.h"

#include <array>
#include <cstdint>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace editor {

class frmWaypoint;

/// The tool window beside the map view, caption "Entity settings": the switch of the editing mode
/// and, for each mode, a panel of which only the current one can be seen. It holds no data: a
/// control writes straight into the selected entity, or is read when an entity is made.
///
/// A window that is made anew counts as a change of the mode: it clears the view's selection and
/// repaints the view.
class frmWaypointSettings : public MdiForm {
    Q_OBJECT

  public:
    /// The mode of a window that is made anew.
    static constexpr EditingMode InitialMode = EditingMode::StartPoints;

    /// `mapView` has the view, if there is one, whose selection the window changes and is about.
    frmWaypointSettings(FormArea& area, const OnceForm<frmWaypoint>& mapView);

    [[nodiscard]] EditingMode Mode() const;

    /// The caption of the waypoint frame and the reload box for the waypoint `index`, which is one
    /// of the table; the caption alone for NoSelection.
    void ShowWaypoint(int index);
    [[nodiscard]] WaypointChoices Choices() const;

    /// Fills the item fields in their fixed order; each one runs its handler. A type without an
    /// entry leaves the list with nothing chosen.
    void ShowItem(const ItemRec& item);

    /// What the item fields show, without a position; the first type when none is chosen.
    [[nodiscard]] ItemRec ShownItem() const;

  private:
    static constexpr int NumHelpLabels = 12;

    void Form_Load();
    void chkReload_Click();
    void cmbType_Click();
    void txtName_Change();
    void txtAmount_Change();
    void txtRespawn_Change();
    void txtBounce_Change();
    void txtDist_Change();
    void txtGravity_Change();
    void optWaypoints_Click();
    void optItems_Click();
    void optStart_Click();

    void BuildModeRow();
    void BuildSpawnPointPanel();
    void BuildObjectPanel();
    void BuildWaypointPanel();
    void ConnectHandlers();

    void ChangeMode(const QWidget* front);
    void ClearSelection();
    void PaintPoints();
    [[nodiscard]] int SelectedIn(EditingMode mode) const;
    [[nodiscard]] ItemRec* SelectedItem() const;
    void WriteItemNumber(std::int16_t ItemRec::*field, const QLineEdit& text);

    QRadioButton* optStart = nullptr;
    QRadioButton* optItems = nullptr;
    QRadioButton* optWaypoints = nullptr;
    QWidget* tabSpawnPoints = nullptr;
    QWidget* tabObjects = nullptr;
    QWidget* tabWaypoint = nullptr;
    std::array<QLabel*, NumHelpLabels> lblDesc{};

    QGroupBox* fraWaypoint = nullptr;
    QCheckBox* chkReload = nullptr;
    QGroupBox* fraLinks = nullptr;
    QCheckBox* chkJump = nullptr;
    QCheckBox* chkRope = nullptr;

    QLineEdit* txtName = nullptr;
    QComboBox* cmbType = nullptr;
    QLineEdit* txtAmount = nullptr;
    QLineEdit* txtRespawn = nullptr;
    QLineEdit* txtBounce = nullptr;
    QLineEdit* txtDist = nullptr;
    QLineEdit* txtGravity = nullptr;

    QuietControls quietControls_;
    const OnceForm<frmWaypoint>& mapView_;
};

} // namespace editor
