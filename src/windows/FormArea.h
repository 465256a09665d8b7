// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "windows/Arrangement.h"

#include <QMdiArea>

#include <vector>

class QScrollBar;

namespace editor {

class MdiForm;

/// The inside of the main window, in which forms stand and scroll as Arrange() says. The base class
/// knows which of them is active; it neither places nor scrolls, and all its sub-windows are forms.
class FormArea : public QMdiArea {
    Q_OBJECT

  public:
    explicit FormArea(QWidget* parent);

    /// How far the contents are scrolled, in pixels; negative where they were brought clear of a
    /// pinned form at the left or the top.
    [[nodiscard]] QPoint Scrolled() const { return scrolled_; }

    /// Scrolls there, or as near to it as there is something to be seen.
    void ScrollTo(const QPoint& scrolled);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    [[nodiscard]] std::vector<MdiForm*> Shown() const;
    [[nodiscard]] Arrangement Plan(const std::vector<MdiForm*>& forms) const;
    QScrollBar* MakeBar(Qt::Orientation orientation, const QString& name);
    void FormWasMoved(MdiForm& form);
    void Arrange();

    // Before the bars, for making them sends the events that look at it: what moves now is moved by
    // Arrange() or by the base class.
    bool arranging_ = false;
    QPoint scrolled_;
    QPoint turned_; // of the wheel, what was too little for a pixel yet
    QScrollBar* across_;
    QScrollBar* down_;
};

} // namespace editor
