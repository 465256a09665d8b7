// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "windows/MdiForm.h"
#include "windows/QuietControls.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace editor {

/// The level settings dialog: the names of the level's graphics and its physics. What is typed
/// reaches mdlEdit through Accept alone.
class frmLevel : public MdiForm {
    Q_OBJECT

  public:
    explicit frmLevel(FormArea& area);

    /// Fills the controls from mdlEdit.
    void Init();

  Q_SIGNALS:
    /// Accept has written the fields into mdlEdit; the dialog will be hidden.
    void Accepted();

  private:
    void MakeGraphics(QWidget* client);
    void MakePhysics(QWidget* client);
    void SetTabOrder();

    void cmdBG_Click();
    void cmdLev_Click();
    void cmdMat_Click();
    void cmdPar_Click();
    void cmdOK_Click();

    // Lets the user choose a graphics file for a text box.
    void Browse(QLineEdit& box);

    QuietControls quietControls_;
    QLineEdit* txtBG;
    QPushButton* cmdBG;
    QLineEdit* txtLev;
    QPushButton* cmdLev;
    QLineEdit* txtMat;
    QPushButton* cmdMat;
    QLineEdit* txtPar;
    QPushButton* cmdPar;
    QCheckBox* chkParallax;
    QLineEdit* txtJumper;
    QLineEdit* txtKicker;
    QPushButton* cmdOK;
};

} // namespace editor
