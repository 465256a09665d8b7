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

    /// The controls that Tab reaches from this one, in their order. Enter and Esc are pressed too.
    static std::string Tabbed(QWidget& first) {
        QString names;
        first.setFocus();
        do {
            QWidget* control = QApplication::focusWidget();
            names += control->objectName() + u' ';
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Tab}) {
                QTest::keyClick(control, key);
            }
        } while (names.size() < 200 && QApplication::focusWidget() != &first);
        return names.toStdString();
    }
};

TEST_F(Windows, ClipNoCaption) {
    settings().show();
    ExpectNoCaptionIsClipped(*settings().widget(), 25);
    main->levelSettings.Use().show();
    ExpectNoCaptionIsClipped(*main->levelSettings.Use().widget(), 12);
}

TEST_F(Windows, TabGoesInReadingOrderAndEnterEscAndAPassingWheelDoNothing) {
    settings().show();
    QObject::connect(&Setting("txtName"), &QLineEdit::returnPressed, main.get(),
                     [] { ADD_FAILURE() << "Enter reached a text box"; });
    Setting<QRadioButton>("optWaypoints").click();
    EXPECT_EQ(Tabbed(Setting<QWidget>("optWaypoints")), "optWaypoints chkReload chkJump chkRope ");
    Setting<QRadioButton>("optItems").click();
    EXPECT_EQ(Tabbed(Setting<QWidget>("optItems")),
              "optItems txtName cmbType txtAmount txtRespawn txtBounce txtDist txtGravity ");
    auto& cmbType = Setting<QComboBox>("cmbType");
    for (const int index : {0, 1}) {
        QWheelEvent down({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&cmbType, &down);
        EXPECT_EQ(cmbType.currentIndex(), index);
        cmbType.setFocus();
    }
    main->levelSettings.Use().show();
    EXPECT_EQ(Tabbed(In(main->levelSettings.Use(), u"txtBG"_s)),
              "txtBG cmdBG txtLev cmdLev txtMat cmdMat txtJumper txtKicker cmdOK txtPar cmdPar "
              "chkParallax ");
    EXPECT_TRUE(main->levelSettings.Use().isVisible() && asked.isEmpty());
    QTest::keyClick(&In<QWidget>(main->levelSettings.Use(), u"cmdOK"_s), Qt::Key_Space);
    EXPECT_FALSE(main->levelSettings.Use().isVisible());
}

TEST_F(Windows, TheAboutBoxShowsTheVersionEachTimeAndClosesByEnterAndEsc) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        frmAbout box(nullptr);
        box.show();
        EXPECT_EQ(In<QLabel>(box, u"lblVersion"_s).text(), u"Version 0.30  "_s);
        EXPECT_FALSE(In<QLabel>(box, u"picIcon"_s).pixmap().isNull());
        ExpectNoCaptionIsClipped(box, 5);
        QTest::keyClick(&box, key);
        EXPECT_FALSE(box.isVisible());
    }
}

} // namespace
} // namespace editor
