// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

class QWidget;

namespace editor {

/// Takes from controls what a settings window that is always open must not do: Enter and Esc do
/// nothing, and the wheel changes a list only while it has the keyboard.
class QuietControls : public QObject {
    Q_OBJECT

  public:
    /// For all controls that `window` has now.
    void InstallOn(QWidget& window);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace editor
