// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

class QLabel;

namespace editor {

/// The About box. The caller shows it with exec() and makes a new one each time.
class frmAbout : public QDialog {
    Q_OBJECT

  public:
    /// `owner` is the main window, or null.
    explicit frmAbout(QWidget* owner);

  private:
    void MakeTexts();
    void MakeSeparator();
    void MakeButton();

    void Form_Load();
    void cmdOK_Click();

    QLabel* lblVersion;
};

} // namespace editor
