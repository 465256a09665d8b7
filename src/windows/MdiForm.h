// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "windows/Arrangement.h"

#include <QMdiSubWindow>

namespace editor {

class FormArea;

/// A child window of the main window's area, created hidden. Its client area is one widget;
/// showing, hiding and closing are those of the sub-window, never of the widget in it.
class MdiForm : public QMdiSubWindow {
    Q_OBJECT

  public:
    /// Adds itself to `area`. `client` becomes the client area and is owned by the form.
    MdiForm(FormArea& area, const QString& caption, QWidget* client, const Standing& standing = {});

    /// Where the form wants to be. The area keeps it when the user moves the form.
    Standing standing;

    [[nodiscard]] FormArea& Area() const { return area_; }

    /// Outer size minus client size in pixels; right also while the form was never shown.
    [[nodiscard]] QSize FrameSize();

    /// Gives the form the outer size at which the client area has `size`, and keeps it there.
    void FixClientSize(const QSize& size);

  Q_SIGNALS:
    /// The form was closed by its close box and is about to be deleted.
    void Closed();
    /// The form cannot be seen any more. After Closed(), when it was closed.
    void Hidden();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    FormArea& area_;
};

} // namespace editor
