// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QMdiSubWindow>

class QMdiArea;

namespace editor {

/// A child window of the main window's area, made hidden. Its client area is one widget; showing,
/// hiding and closing are those of the sub window, never of the widget in it.
class MdiForm : public QMdiSubWindow {
    Q_OBJECT

  public:
    /// Adds itself to `area`. `client` becomes the client area and is owned by the form.
    MdiForm(QMdiArea& area, const QString& caption, QWidget* client);

    /// Outer size minus client size in pixels; right also while the form was never shown.
    [[nodiscard]] QSize FrameSize();

    /// Gives the form the outer size at which the client area has `size`, and keeps it there.
    void FixClientSize(const QSize& size);

  Q_SIGNALS:
    /// The form was closed by its close box and is about to be deleted.
    void Closed();
    /// The form cannot be seen any more; it has given up the keyboard. Also before Closed().
    void Hidden();
    /// The form has another size.
    void Resized();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace editor
