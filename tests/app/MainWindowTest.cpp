// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "dialogs/frmAbout.h"
#include "support/EditorFixture.h"

#include <map>
#include <random>

namespace editor::test {

class MainWindow : public EditorFixture {
  protected:
    MainWindow() {
        MakeLevel(good, 40, 30,
                  "NumStartPoints=1\nStartX0=5\nStartY0=6\nNumItems=2\n[Physics]\nKickerForce=7\n");
        MakeLevel(other, 64, 20);
        MakeLevel(broken, 10, 10);
        QFile::remove(broken.Path(u"m.png"_s));
        folders[u"nameless"_s].Write(u"level.cfg"_s, "[Map]\nNumItems=1\n");
        folders[u"full"_s].Write(u"level.cfg"_s, "[Map]\nNumItems=52\n");
    }

    FormArea& Area() { return *main->findChild<FormArea*>(); }
    QScrollBar& Across() { return In<QScrollBar>(Area(), u"across"_s); }
    QScrollBar& Down() { return In<QScrollBar>(Area(), u"down"_s); }
    void Scroll(int x, int y) {
        Across().setValue(x);
        Down().setValue(y);
    }

    /// Types a shortcut, if need be with the folder that is answered, closes a window, or accepts
    /// the level settings with this name for all graphics.
    void Do(const QString& command) {
        const QString verb = command.section(u' ', 0, 0), object = command.section(u' ', 1);
        answer = folders.contains(object) ? folders[object].Path() : QString();
        if (verb == u"close") {
            Windows()[std::size_t(u"SVE"_s.indexOf(object))]->close();
        } else if (verb == u"accept") {
            mdlEdit.LevelPath = good.Path();
            for (const QString& box : {u"txtBG"_s, u"txtMat"_s, u"txtLev"_s}) {
                In(main->levelSettings.Use(), box).setText(object);
            }
            In<QPushButton>(main->levelSettings.Use(), u"cmdOK"_s).click();
        } else {
            Type(verb);
        }
        DeleteClosed();
    }

    /// The level settings, the map view and the entity settings: S, V and E.
    std::array<QWidget*, 3> Windows() {
        return {main->levelSettings.Existing(), main->mapView.Existing(),
                main->entitySettings.Existing()};
    }

    /// The letters of the windows that can be seen; then the two window entries, each in brackets
    /// with + when enabled and x when checked.
    QString State() {
        QString state;
        for (const QWidget* window : Windows()) {
            const bool seen = window != nullptr && window->isVisible();
            state += seen ? u"SVE"[state.size()] : u'-';
        }
        for (const QAction* entry : {main->mnuLevSettings, main->mnuLevWay}) {
            state += entry->isEnabled() ? u"[+" : u"[-";
            state += entry->isChecked() ? u"x]" : u"]";
        }
        return state;
    }

    std::map<QString, LevelFolder> folders;
    LevelFolder &good = folders[u"good"_s], &other = folders[u"other"_s],
                &broken = folders[u"broken"_s], &empty = folders[u"empty"_s];
};

// Every command in many orders; after each, what can be seen and what the menu says.
TEST_F(MainWindow, WindowsAndEntriesFollowEveryOrderOfCommands) {
    const QString orders[] = {
        u"F1 ---[-][-], Ctrl+N cancelled ---[-][-], Ctrl+O cancelled ---[-][-], Ctrl+S ---[-][-], "
        u"Ctrl+N good ---[-][-], Ctrl+N empty S--[+x][-], F5 ---[+][-], F5 S--[+x][-], "
        u"accept  ---[+][-], F5 S--[+x][-], accept none.png ---[+][-], F5 S--[+x][-], "
        u"accept  l.png ---[+][-], " // the blank before it is part of the name
        u"F5 S--[+x][-], accept l.png -VE[+][+x]"_s,
        u"Ctrl+O good -VE[+][+x], Ctrl+W -VE[+][+x], F7 ---[+][+], F7 -VE[+][+x], "
        u"close V ---[+][+], F7 -VE[+][+x], close E -V-[+][+x], F7 ---[+][+], F7 -VE[+][+x], "
        u"Ctrl+S -VE[+][+x]"_s,
        // Without graphics the view is hidden; the check mark and the entity settings stay.
        u"Ctrl+O good -VE[+][+x], Ctrl+O broken --E[+][-x], Ctrl+O good -VE[+][+x], "
        u"Ctrl+O full -VE[+][+x], Ctrl+O nameless -VE[+][+x], Ctrl+O empty -VE[+][+x], "
        u"Ctrl+N empty S-E[+x][-x], Ctrl+O other SVE[+x][+x]"_s,
        u"Ctrl+O empty ---[+][-], F5 S--[+x][-], close S ---[+][-], F5 S--[+x][-], "
        u"accept l.png -VE[+][+x], F5 SVE[+x][+x], accept  -VE[+][+x], F5 SVE[+x][+x], "
        u"accept none.png --E[+][-x], close V ---[+][-], Ctrl+O good -VE[+][+x]"_s};
    for (const auto& order : orders) {
        Start();
        for (const QString& step : order.split(u", "_s)) {
            SCOPED_TRACE((step + u" of "_s + order).toStdString());
            Do(step.section(u' ', 0, -2));
            ASSERT_EQ(State().toStdString(), step.section(u' ', -1).toStdString());
            ASSERT_EQ(mdlEdit.GraphicsLoaded, main->mnuLevWay->isEnabled());
            ASSERT_EQ(QApplication::overrideCursor(), nullptr);
            // Keys must not do their work where nobody sees it; after Open they zoom the view.
            const QWidget* focused = main->focusWidget();
            ASSERT_TRUE(focused == nullptr || focused->isVisible());
            ASSERT_TRUE(State()[1] != u'V' || focused != nullptr);
            ASSERT_TRUE(!step.startsWith(u"Ctrl+O good"_s) || focused == view().widget());
        }
    }
}

TEST_F(MainWindow, NewKeepsTheSettingsAndWhatFailsIsToldAndChangesNothing) {
    Open(good);
    Key(Qt::Key_Minus, Qt::KeypadModifier);
    view().curpoint = 0;
    other.Write(u"waypoint.cfg"_s, "[Map]\nNumWayPoints=202\n");
    for (const QString& command : {u"Ctrl+N good"_s, u"Ctrl+O other"_s}) {
        Do(command);
        EXPECT_EQ(std::tuple(mdlEdit.LevelPath, mdlEdit.NumItems, view().curpoint),
                  std::tuple(good.Path(), 2, 0));
    }
    QFile::remove(other.Path(u"waypoint.cfg"_s));
    Open(other);
    EXPECT_EQ(view().ClientSize(), QSize(32, 10)); // at the zoom from before
    EXPECT_EQ(view().curpoint, -1);
    Open(broken);
    EXPECT_EQ(mdlEdit.LevelWidth, -1);
    mdlEdit.LevelPath += u"/none"_s;
    Do(u"Ctrl+S"_s);
    ASSERT_EQ(messages.size(), 3);
    EXPECT_EQ(messages[0], u"This folder seems to be already used. Please use \"Open\""_s);
    EXPECT_TRUE(messages[1].contains(u"NumWayPoints=202"));
    EXPECT_TRUE(messages[2].contains(QDir::separator() + u"none"_s));

    Open(good);
    Do(u"Ctrl+N empty"_s);
    EXPECT_EQ(mdlEdit.LevelPath, empty.Path());
    EXPECT_EQ(mdlEdit.NumItems + mdlEdit.NumStartPoints + mdlEdit.NumWayPoints, 0);
    EXPECT_EQ(mdlEdit.LevelFile + QString::number(mdlEdit.KickerForce), u"l.png7"_s);
    EXPECT_EQ(In(main->levelSettings.Use(), u"txtJumper"_s).text(), u"1000"_s); // without Init
    view().curpoint = 0;
    Do(u"accept l.png"_s);
    EXPECT_EQ(view().curpoint, -1);
}

TEST_F(MainWindow, GraphicsAreFoundByEndingAndRefusedAsAWhole) {
    const QImage picture(33, 22, QImage::Format_RGB32);
    picture.save(good.Path(u"Level.Bmp"_s), "BMP");
    picture.save(good.Path(u"a-png.gif"_s), "PNG");
    picture.save(good.Path(u"png.bmp"_s), "PNG");
    QProcess::execute(u"mkfifo"_s, {good.Path(u"pipe.bmp"_s)}); // opening it would block
    QImage(32768, 1, QImage::Format_Grayscale8).save(good.Path(u"wide.png"_s));
    good.Write(u"gfx/deep.png"_s, good.Read(u"l.png"_s));
    using Row = std::pair<const char*, int>; // the name of the level graphics, their width
    for (const auto& [level, width] :
         {Row{"Level.Bmp", 33}, Row{"LEVEL.BMP", 33}, Row{"a-png.gif", 33}, Row{"png.bmp", -1},
          Row{"wide.png", -1}, Row{"pipe.bmp", -1}, Row{".bmp", -1}, Row{".", -1}, Row{"L.PNG", 40},
          Row{"none.png", -1}, Row{"gfx\\DEEP.png", 40}}) {
        good.Write(u"level.cfg"_s,
                   QByteArray("[Map]\nBack=b.png\nMaterial=m.png\nParallax=none.png\nLevel=") +
                       level);
        Open(good);
        EXPECT_EQ(mdlEdit.LevelWidth, width) << level;
    }
    EXPECT_TRUE(messages.isEmpty());
}

// Also with QT_SCALE_FACTOR set: see the test's entries.
TEST_F(MainWindow, WhatIsOnTheScreenIsAlwaysWhatAFullRepaintShows) {
    std::mt19937 random(4);
    const auto number = [&random](int low, int high) {
        return static_cast<std::int16_t>(std::uniform_int_distribution<int>(low, high)(random));
    };
    MakeLevel(good, 700, 500);
    Open(good);
    mdlEdit.NumWayPoints = 30;
    for (WaypointRec& waypoint : mdlEdit.WayPoints) {
        waypoint = {number(0, 690), number(0, 490), 0, {number(0, 29)}, {}, 0};
    }
    Setting<QRadioButton>("optWaypoints").click();
    // Along its edge, on a screen of an odd scale, a pixel is shared with the view.
    settings().hide();
    const auto shown = [this] {
        QCoreApplication::processEvents();
        return main->screen()->grabWindow(main->winId()).toImage();
    };
    for (int step = 0; step < 150; ++step) {
        switch (number(0, 4)) {
        case 0:
            Scroll(number(0, 300), number(0, 300));
            break;
        case 1:
            Key(mdlEdit.Zoom == 1 ? Qt::Key_Plus : Qt::Key_Minus, Qt::KeypadModifier);
            break;
        case 2:
            view().curpoint = number(-1, 29);
            break;
        default:
            mdlEdit.WayPoints[static_cast<std::size_t>(number(0, 29))].X = number(0, 690);
        }
        view().PaintPoints();
        if (number(0, 1) == 1) { // the line of a link that is being drawn, with a selection
            Mouse(QEvent::MouseMove, Qt::RightButton, QPointF(number(0, 700), number(0, 500)));
        }
        const QImage partly = shown();
        view().widget()->update();
        ASSERT_EQ(partly, shown()) << step;
    }
}

TEST_F(MainWindow, TheMainWindowGrowsForALevelUntilTheUserHasSizedIt) {
    MakeLevel(good, 400, 3000);
    main->resize(main->size() + QSize(1, -1)); // as a window system may round it
    main->move(600, 400);
    Open(good);
    EXPECT_TRUE(Down().isVisible() && !Across().isVisible());
    EXPECT_TRUE(main->screen()->availableGeometry().contains(main->frameGeometry()));
    EXPECT_LE(view().geometry().right(), settings().x());
    EXPECT_EQ(settings().geometry().right(), Area().viewport()->rect().right());
    main->resize(600, 400);
    EXPECT_EQ(settings().geometry().right(), Area().viewport()->rect().right());
    MakeLevel(good, 450, 300);
    Open(good);
    EXPECT_EQ(main->size(), QSize(600, 400));
}

/// In a window of the user's size; what is asked is where a pixel of the level stands on the
/// screen.
TEST_F(MainWindow, ZoomingKeepsWhatOneLooksAtAndOpenBeginsAtTheTopLeft) {
    main->resize(500, 360);
    MakeLevel(good, 900, 700);
    Open(good);
    QCoreApplication::processEvents();
    const QWidget* room = Area().viewport();
    EXPECT_TRUE(settings().isAncestorOf(room->childAt(settings().geometry().center())));
    const QPoint none, notch(0, -120);
    using Turn = std::tuple<QPoint, QPoint, Qt::KeyboardModifier, Qt::ScrollPhase, QPoint>;
    for (const auto& [pixels, angle, key, phase, place] :
         {Turn{none, notch, Qt::ShiftModifier, Qt::NoScrollPhase, {-60, 0}},
          Turn{none, notch / 8, Qt::NoModifier, Qt::NoScrollPhase, {-60, -7}},
          Turn{none, notch / 8, Qt::NoModifier, Qt::NoScrollPhase, {-60, -15}}, // 2 * 7.5 pixels
          Turn{{-3, -4}, notch, Qt::NoModifier, Qt::NoScrollPhase, {-60, -75}},
          Turn{{-3, -4}, notch, Qt::NoModifier, Qt::ScrollUpdate, {-63, -79}}}) { // a touchpad
        QWheelEvent turn({9, 9}, {9, 9}, pixels, angle, Qt::NoButton, key, phase, false);
        QApplication::sendEvent(Area().viewport(), &turn);
        EXPECT_EQ(view().pos(), place);
    }
    Scroll(0, 0);
    Down().triggerAction(QAbstractSlider::SliderPageStepAdd); // but for a line
    Down().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(view().pos(), QPoint(0, -room->height()));
    EXPECT_EQ(Down().geometry().right(), Area().rect().right());
    Scroll(Across().maximum(), Down().maximum());
    EXPECT_EQ(view().geometry().right() + 1, settings().x()); // beside it, not under it
    EXPECT_EQ(view().geometry().bottom(), room->rect().bottom());
    Scroll(0, 0);
    settings().move(0, 0);
    Scroll(Across().minimum(), 0);
    EXPECT_EQ(view().x(), settings().geometry().right() + 1);
    // The pixel at the pointer stays there; in the middle, when the pointer is elsewhere.
    for (const auto& [pointer, kept] :
         {std::pair(QPoint(300, 150), QPoint(300, 150)), {{9, 9}, room->rect().center()}}) {
        Scroll(300, 200);
        QCursor::setPos(room->mapToGlobal(pointer));
        const auto seen = [this, room, &kept = kept] { // rounded down
            const QPoint place = view().widget()->mapFrom(&Area(), kept);
            return (QPointF(place) / double(mdlEdit.Zoom) - QPointF(0.499, 0.499)).toPoint();
        };
        const QPoint before = seen();
        for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Minus}) {
            Key(key, Qt::KeypadModifier);
            EXPECT_EQ(seen(), before) << mdlEdit.Zoom;
        }
    }
    for (int i = 0; i < 4; ++i) {
        Key(Qt::Key_Minus, Qt::KeypadModifier);
    }
    EXPECT_EQ(view().pos(), QPoint(0, 0)); // all of it can be seen
    Key(Qt::Key_Plus, Qt::KeypadModifier);
    Key(Qt::Key_Plus, Qt::KeypadModifier);
    Scroll(90, 80);
    Do(u"F7"_s);
    EXPECT_FALSE(Across().isVisible() || Down().isVisible());
    Do(u"F7"_s);
    EXPECT_EQ(view().pos(), QPoint(-90, -80));
    for (const auto& [command, next] :
         {std::pair(u"Ctrl+O good"_s, u"F1"_s), {u"Ctrl+N empty"_s, u"accept l.png"_s}}) {
        view().move(70, -60);
        EXPECT_EQ(view().pos(), QPoint(70, -60));
        Do(command);
        Do(next);
        EXPECT_EQ(view().pos(), QPoint(0, 0));
    }
}

TEST_F(MainWindow, ClipsNoCaptionInItsWindows) {
    settings().show();
    main->levelSettings.Use().show();
    const frmAbout box(nullptr);
    EXPECT_EQ(In<QLabel>(box, u"lblVersion"_s).text(), u"Version 0.30  "_s);
    int captions = 0;
    for (QWidget* control : settings().widget()->findChildren<QWidget*>() +
                                main->levelSettings.Use().widget()->findChildren<QWidget*>() +
                                box.findChildren<QWidget*>()) {
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
        ++captions;
    }
    EXPECT_EQ(captions, 42);
}

TEST_F(MainWindow, EnterEscAndAPassingWheelDoNothing) {
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

} // namespace editor::test
