// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "dialogs/frmAbout.h"
#include "support/EditorFixture.h"

namespace editor {
namespace {

using namespace Qt::StringLiterals;

/// What holds for the controls of every window.
class Windows : public test::EditorFixture {
  protected:
    /// Every control lies inside its parent, and each of the `captions` labels and buttons has room
    /// for its text.
    static void ExpectNoCaptionIsClipped(const QWidget& form, int captions) {
        for (QWidget* control : form.findChildren<QWidget*>()) {
            EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry()));
            const QString caption = control->property("text").toString();
            if (caption.isEmpty() || qobject_cast<QLineEdit*>(control) != nullptr) {
                continue;
            }
            QStyleOptionButton option;
            option.initFrom(control);
            const auto part = qobject_cast<QCheckBox*>(control) ? QStyle::SE_CheckBoxContents
                              : qobject_cast<QRadioButton*>(control)
                                  ? QStyle::SE_RadioButtonContents
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
};

TEST_F(Windows, ClipNoCaption) {
    settings().show();
    ExpectNoCaptionIsClipped(*settings().widget(), 25);
    main->levelSettings.Use().show();
    ExpectNoCaptionIsClipped(*main->levelSettings.Use().widget(), 12);
    const frmAbout box(nullptr);
    ExpectNoCaptionIsClipped(box, 5);
    EXPECT_EQ(In<QLabel>(box, u"lblVersion"_s).text(), u"Version 0.30  "_s);
}

TEST_F(Windows, EnterEscAndAPassingWheelDoNothing) {
    settings().show();
    main->levelSettings.Use().show();
    QObject::connect(&Setting("txtName"), &QLineEdit::returnPressed, main.get(),
                     [] { ADD_FAILURE() << "Enter reached a text box"; });
    for (QWidget* control : main->findChildren<QWidget*>()) {
        if (control->focusPolicy() != Qt::NoFocus && qobject_cast<QMdiArea*>(control) == nullptr) {
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
                QTest::keyClick(control, key);
            }
        }
    }
    EXPECT_TRUE(settings().isVisible() && main->levelSettings.Use().isVisible());
    EXPECT_TRUE(asked.isEmpty());
    auto& cmbType = Setting<QComboBox>("cmbType");
    EXPECT_EQ(cmbType.focusPolicy(), Qt::StrongFocus); // the wheel does not bring the keyboard
    Setting<QRadioButton>("optItems").click();
    for (const int index : {0, 1}) {
        QWheelEvent down({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&cmbType, &down);
        EXPECT_EQ(down.isAccepted(), index == 1); // else the area scrolls with it
        EXPECT_EQ(cmbType.currentIndex(), index);
        cmbType.setFocus();
    }
}

} // namespace
} // namespace editor
