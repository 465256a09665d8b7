// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets>

#include <gtest/gtest.h>

namespace editor::test {

/// Every control lies inside its parent, and each of the `captions` labels and buttons has room for
/// its text.
inline void ExpectNoCaptionIsClipped(const QWidget& form, int captions) {
    for (QWidget* control : form.findChildren<QWidget*>()) {
        EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry()));
        const QString caption = control->property("text").toString();
        if (caption.isEmpty() || qobject_cast<QLineEdit*>(control) != nullptr) {
            continue;
        }
        QStyleOptionButton option;
        option.initFrom(control);
        const auto part = qobject_cast<QCheckBox*>(control)      ? QStyle::SE_CheckBoxContents
                          : qobject_cast<QRadioButton*>(control) ? QStyle::SE_RadioButtonContents
                                                                 : QStyle::SE_PushButtonContents;
        const QRect room = qobject_cast<QLabel*>(control)
                               ? control->rect()
                               : control->style()->subElementRect(part, &option);
        const int flags = control->property("wordWrap").toBool() ? Qt::TextWordWrap : 0;
        const QRect needed = control->fontMetrics().boundingRect(room, flags, caption);
        EXPECT_EQ(needed.size().expandedTo(room.size()), room.size()) << caption.toStdString();
        --captions;
    }
    EXPECT_EQ(captions, 0) << "captions not seen";
}

} // namespace editor::test
