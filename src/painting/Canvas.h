// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "painting/PersistentImage.h"

#include <QImage>
#include <QWidget>

#include <vector>

namespace editor {

/// A widget that shows a persistent image, pixel by pixel on any screen.
class Canvas : public QWidget {
  public:
    explicit Canvas(QWidget* parent = nullptr);

    [[nodiscard]] PersistentImage& Image() { return image_; }

    /// Has what changed in the image painted before the next event.
    void UpdateChanges();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] const QImage& Painted(const QRect& exposed);
    void PaintScaled(QPainter& painter, const QRect& exposed, qreal scale);

    PersistentImage image_;
    // Kept from frame to frame: new ones would cost more than the painting.
    QImage buffer_;
    QImage scaled_;
    std::vector<int> columns_; // of buffer_ behind those of scaled_
};

} // namespace editor
