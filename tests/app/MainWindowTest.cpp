// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "app/LevelArea.h"
#include "app/frmMain.h"
#include "model/mdlEdit.h"
#include "platform/Dialogs.h"
#include "platform/Look.h"
#include "support/LevelFolder.h"
#include "support/PngBuilder.h"
#include "view/LevelGraphics.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>
#include <random>

namespace editor {
namespace {

using test::LevelFolder;
using namespace Qt::StringLiterals;

/// The whole editor, its choosers answered by the test.
class MainWindow : public testing::Test {
  protected:
    MainWindow() {
        ApplyLook(*qApp);
        dialogs().browseForFolder = [this](QWidget*, const QString& prompt) {
            prompts += prompt;
            return answer;
        };
        dialogs().messageBox = [this](QWidget*, const QString& text, const QString& title) {
            messages += title + u'|' + text;
        };
        Start();
        MakeLevel(good, 40, 30);
        MakeLevel(other, 64, 20);
        MakeLevel(broken, 10, 10);
        QFile::remove(broken.Path(u"m.png"_s));
        nameless.Write(u"level.cfg"_s, "[Map]\nNumItems=1\n");
        full.Write(u"level.cfg"_s, "[Map]\nNumItems=52\n");
    }
    ~MainWindow() override {
        main.reset();
        DeleteClosed();
        mdlEdit = LevelModel();
    }

    void Start() {
        main.reset();
        mdlEdit = LevelModel();
        main = std::make_unique<frmMain>();
        main->show();
    }

    static void DeleteClosed() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    static void MakeLevel(const LevelFolder& folder, int width, int height) {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(0xff336699);
        for (const QString& name : {u"l.png"_s, u"b.png"_s, u"m.png"_s}) {
            picture.save(folder.Path(name));
        }
        folder.Write(u"level.cfg"_s,
                     "[Map]\nLevel=l.png\nBack=b.png\nMaterial=m.png\nNumStartPoints=1\n"
                     "StartX0=5\nStartY0=6\nNumItems=2\n[Physics]\nKickerForce=7\n");
    }

    void Choose(const QString& entry) { main->findChild<QAction*>(entry)->trigger(); }
    void Open(const LevelFolder& folder) {
        answer = folder.Path();
        Choose(u"mnuLevOpen"_s);
    }
    /// Opens the good level, drawn at this size, in a small window.
    void OpenInSmallWindow(int width, int height) {
        main->resize(500, 360);
        MakeLevel(good, width, height);
        Open(good);
        QCoreApplication::processEvents();
    }
    LevelArea& Area() { return *main->findChild<LevelArea*>(); }
    void Scroll(int x, int y) {
        Area().horizontalScrollBar()->setValue(x);
        Area().verticalScrollBar()->setValue(y);
    }

    /// Chooses an entry of a menu, if need be with the folder that is answered, closes a window, or
    /// accepts the level settings with a name for the level graphics.
    void Do(const QString& command) {
        const QString verb = command.section(u' ', 0, 0);
        const QString object = command.section(u' ', 1);
        const QMap<QString, QString> folders = {
            {u"good"_s, good.Path()},         {u"other"_s, other.Path()},
            {u"broken"_s, broken.Path()},     {u"full"_s, full.Path()},
            {u"nameless"_s, nameless.Path()}, {u"empty"_s, empty.Path()}};
        answer = folders.value(object);
        if (verb == u"close") {
            (object == u"view"       ? static_cast<QWidget&>(main->mapView())
             : object == u"settings" ? static_cast<QWidget&>(main->levelSettings())
                                     : main->entitySettings())
                .close();
        } else if (verb == u"accept") {
            mdlEdit.LevelPath = good.Path();
            const QString level = object == u"nothing" ? QString() : object;
            for (const auto& [box, text] : {std::pair{u"txtLev"_s, level},
                                            {u"txtBG"_s, u"b.png"_s},
                                            {u"txtMat"_s, u"m.png"_s}}) {
                main->levelSettings().findChild<QLineEdit*>(box)->setText(text);
            }
            main->levelSettings().findChild<QPushButton*>(u"cmdOK"_s)->click();
        } else {
            Choose(verb);
        }
        DeleteClosed();
    }

    /// What can be seen, a letter each: S the level settings, V the map view, E the entity
    /// settings; then the two window entries, each in brackets with + when enabled and x when
    /// checked.
    QString State() {
        const auto seen = [](const QWidget* window, QChar letter) {
            return window != nullptr && window->isVisible() ? letter : u'-';
        };
        QString state = QString() + seen(main->levelSettings.Existing(), u'S') +
                        seen(main->mapView.Existing(), u'V') +
                        seen(main->entitySettings.Existing(), u'E');
        for (const QAction* entry : {main->mnuLevSettings, main->mnuLevWay}) {
            state += u"[%1%2]"_s.arg(entry->isEnabled() ? u"+"_s : u"-"_s,
                                     entry->isChecked() ? u"x"_s : QString());
        }
        return state;
    }

    std::unique_ptr<frmMain> main;
    LevelFolder good, other, broken, nameless, full, empty;
    QString answer;
    QStringList prompts, messages;
};

TEST_F(MainWindow, HasExactlyItsMenus) {
    QString found;
    for (const QAction* bar : main->menuBar()->actions()) {
        found += bar->menu()->objectName() + u'|' + bar->text() + u'\n';
        for (const QAction* entry : bar->menu()->actions()) {
            found += entry->objectName() + u'|' + entry->text() + u'|' +
                     entry->shortcut().toString(QKeySequence::PortableText) +
                     (entry->isEnabled() ? u"\n"_s : u"|off\n"_s);
        }
    }
    EXPECT_EQ(
        found.toStdString(),
        "mnuLevel|&Level\nmnuLevNew|&New|Ctrl+N\nmnuLevSep||\nmnuLevOpen|&Open|Ctrl+O\n"
        "mnuSave|&Save|Ctrl+S\nmnuWindows|&Windows\n"
        "mnuLevSettings|Level &settings|F5|off\nmnuLevWay|Level &items|F7|off\nmnuHelp|&Help\n"
        "mnuHelpIndex|&Index|F1\nmnuHelpSep||\nmnuHelpAbout|&About|Shift+F1\n");
    EXPECT_EQ(main->windowTitle(), u"Torvak! Level editor"_s);
    EXPECT_EQ(main->centralWidget()->size(), QSize(480, 292));
}

// Every command in many orders; after each, what can be seen and what the menu says.
TEST_F(MainWindow, WindowsAndEntriesFollowEveryOrderOfCommands) {
    const QString orders[] = {
        u"mnuHelpIndex ---[-][-], mnuLevNew cancelled ---[-][-], "
        u"mnuLevOpen cancelled ---[-][-], mnuSave ---[-][-], mnuLevNew good ---[-][-], "
        u"mnuLevNew empty S--[+x][-], mnuLevSettings ---[+][-], mnuLevSettings S--[+x][-], "
        u"accept nothing ---[+][-], mnuLevSettings S--[+x][-], accept none.png ---[+][-], "
        u"mnuLevSettings S--[+x][-], accept l.png -VE[+][+x]"_s,
        u"mnuLevOpen good -VE[+][+x], mnuLevWay ---[+][+], mnuLevWay -VE[+][+x], "
        u"close view ---[+][+], mnuLevWay -VE[+][+x], close entities -V-[+][+x], "
        u"mnuLevWay ---[+][+], mnuLevWay -VE[+][+x], mnuSave -VE[+][+x]"_s,
        // Without graphics the view is hidden; the check mark and the entity settings stay.
        u"mnuLevOpen good -VE[+][+x], mnuLevOpen broken --E[+][-x], "
        u"mnuLevOpen good -VE[+][+x], mnuLevOpen full -VE[+][+x], "
        u"mnuLevOpen nameless -VE[+][+x], mnuLevOpen empty -VE[+][+x], "
        u"mnuLevNew empty S-E[+x][-x], mnuLevOpen other SVE[+x][+x]"_s,
        u"mnuLevOpen empty ---[+][-], mnuLevSettings S--[+x][-], close settings ---[+][-], "
        u"mnuLevSettings S--[+x][-], accept l.png -VE[+][+x], mnuLevSettings SVE[+x][+x], "
        u"accept nothing -VE[+][+x], mnuLevSettings SVE[+x][+x], "
        u"accept none.png --E[+][-x], close view ---[+][-], mnuLevOpen good -VE[+][+x]"_s};
    for (const auto& order : orders) {
        Start();
        for (const QString& step : order.split(u", "_s)) {
            SCOPED_TRACE((step + u" of "_s + order).toStdString());
            Do(step.section(u' ', 0, -2));
            ASSERT_EQ(State().toStdString(), step.section(u' ', -1).toStdString());
            ASSERT_EQ(mdlEdit.GraphicsLoaded, main->mnuLevWay->isEnabled());
            // Keys must not do their work where nobody sees it.
            const QWidget* focused = main->focusWidget();
            ASSERT_TRUE(focused == nullptr || focused->isVisible());
            ASSERT_TRUE(State()[1] != u'V' || focused != nullptr);
        }
    }
}

TEST_F(MainWindow, NewKeepsTheSettingsAndEmptiesTheTables) {
    Open(good);
    Do(u"mnuLevNew good"_s);
    EXPECT_EQ(messages.join(u'\n').toStdString(),
              "Torvak! level editor|This folder seems to be already used. Please use \"Open\"");
    EXPECT_EQ(mdlEdit.LevelPath, good.Path());
    EXPECT_EQ(mdlEdit.NumItems, 2);

    Do(u"mnuLevNew empty"_s);
    EXPECT_EQ(mdlEdit.LevelPath, empty.Path());
    EXPECT_EQ(mdlEdit.NumItems + mdlEdit.NumStartPoints + mdlEdit.NumWayPoints, 0);
    EXPECT_EQ(QSize(mdlEdit.LevelWidth, mdlEdit.LevelHeight), QSize(-1, -1));
    EXPECT_EQ(mdlEdit.LevelFile + QString::number(mdlEdit.KickerForce), u"l.png7"_s);
    const auto* jumper = main->levelSettings().findChild<QLineEdit*>(u"txtJumper"_s);
    EXPECT_EQ(jumper->text(), u"1000"_s); // shown without Init
    EXPECT_EQ(prompts.last(), u"Please select the destination folder"_s);
    EXPECT_EQ(prompts.first(), u"Please select the level folder"_s);
}

TEST_F(MainWindow, AFailedOpenLeavesWhatWasOpen) {
    Open(good);
    main->mapView().curpoint = 0;
    other.Write(u"waypoint.cfg"_s, "[Map]\nNumWayPoints=202\n");
    Open(other);
    EXPECT_TRUE(messages.join(u'\n').contains(u"NumWayPoints=202"));
    EXPECT_EQ(mdlEdit.LevelPath, good.Path());
    EXPECT_EQ(mdlEdit.LevelWidth, 40);
    EXPECT_EQ(main->mapView().curpoint, 0);
    QFile::remove(other.Path(u"waypoint.cfg"_s));
    Open(other);
    EXPECT_EQ(mdlEdit.LevelWidth, 64);
    EXPECT_EQ(main->mapView().curpoint, -1);
    Open(broken);
    EXPECT_EQ(mdlEdit.LevelWidth, -1);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MainWindow, TheViewHasTheKeyboardAfterOpenAndKeepsItsZoom) {
    Open(good);
    EXPECT_EQ(main->focusWidget(), main->mapView().widget());
    QTest::keyClick(main->focusWidget(), Qt::Key_Minus, Qt::KeypadModifier);
    Open(other);
    EXPECT_EQ(main->mapView().ClientSize(), QSize(32, 10));
}

TEST_F(MainWindow, AViewThatWasClosedShowsTheLevelAgainAtAnySize) {
    MakeLevel(good, 400, 300);
    Open(good);
    Do(u"close view"_s);
    Do(u"mnuLevWay"_s);
    QWidget* canvas = main->mapView().widget();
    EXPECT_EQ(canvas->size(), QSize(400, 300));
    const auto pixel = [canvas](int x, int y) {
        return canvas->grab(QRect(x, y, 1, 1)).toImage().pixel(0, 0);
    };
    EXPECT_EQ(pixel(399, 299), 0xff336699);
    EXPECT_EQ(pixel(5, 4), 0xffffffff); // the start point's rim
    main->mapView().resize(main->mapView().size() + QSize(50, 0));
    EXPECT_EQ(pixel(399, 0), 0xff336699);
    EXPECT_EQ(pixel(420, 0), PersistentImage::PlainColour);
}

TEST_F(MainWindow, GraphicsAreFoundByEndingAndRefusedAsAWhole) {
    const QImage picture(33, 22, QImage::Format_RGB32);
    picture.save(good.Path(u"Level.Bmp"_s), "BMP");
    picture.save(good.Path(u"a-png.gif"_s), "PNG");
    picture.save(good.Path(u"png.bmp"_s), "PNG");
    QFile::link(u"/dev/zero"_s, good.Path(u"zero.png"_s));
    const HeaderRec wide = Header(32768, 1, 8, Greyscale);
    WriteFile(good.Path(u"wide.png"_s).toStdString(),
              PngOf(wide, Filtered(wide, NoiseRows(wide, 1), {0})));
    good.Write(u"gfx/deep.png"_s, good.Read(u"l.png"_s));
    for (const auto& [level, width] : {std::pair{"Level.Bmp", 33},
                                       {"LEVEL.BMP", 33},
                                       {"a-png.gif", 33},
                                       {"png.bmp", -1},
                                       {"zero.png", -1},
                                       {"wide.png", -1},
                                       {".", -1},
                                       {"L.PNG", 40},
                                       {"none.png", -1},
                                       {"gfx\\DEEP.png", 40},
                                       {"gfx", -1}}) {
        good.Write(u"level.cfg"_s,
                   QByteArray("[Map]\nBack=b.png\nMaterial=m.png\nParallax=none.png\nLevel=") +
                       level);
        Open(good);
        EXPECT_EQ(mdlEdit.LevelWidth, width) << level;
    }
    EXPECT_TRUE(messages.isEmpty());
}

TEST_F(MainWindow, PinnedWindowsStayOnTopAndInPlaceWhileTheViewScrolls) {
    OpenInSmallWindow(2000, 1500);
    const QWidget* viewport = Area().viewport();
    frmWaypointSettings& settings = main->entitySettings();
    const QPoint place = settings.pos();
    EXPECT_TRUE(settings.isAncestorOf(viewport->childAt(settings.geometry().center())));
    EXPECT_GE(viewport->height(), settings.height());
    EXPECT_EQ(settings.geometry().right(), viewport->rect().right());
    for (const bool hidden : {false, true}) {
        settings.setHidden(hidden);
        Scroll(300, 200);
        EXPECT_EQ(settings.pos(), place);
        EXPECT_EQ(main->mapView().pos(), QPoint(-300, -200));
        Scroll(0, 0);
    }
}

// Also with QT_SCALE_FACTOR set: see the test's entries.
TEST_F(MainWindow, WhatIsOnTheScreenIsAlwaysWhatAFullRepaintShows) {
    std::mt19937 random(4);
    const auto number = [&random](int low, int high) {
        return static_cast<std::int16_t>(std::uniform_int_distribution<int>(low, high)(random));
    };
    QImage noise(700, 500, QImage::Format_RGB32);
    std::generate_n(reinterpret_cast<std::uint32_t*>(noise.bits()), 700 * 500,
                    [&random] { return 0xff000000U | static_cast<std::uint32_t>(random()); });
    noise.save(good.Path(u"l.png"_s));
    Open(good);
    mdlEdit.NumWayPoints = 30;
    for (WaypointRec& waypoint : mdlEdit.WayPoints) {
        waypoint = {number(0, 690), number(0, 490), 0, {number(0, 29)}, {}, 0};
    }
    main->entitySettings().findChild<QRadioButton*>(u"optWaypoints"_s)->click();
    // Along its edge, on a screen of an odd scale, a pixel is shared with the view.
    main->entitySettings().hide();
    const auto shown = [this] {
        QCoreApplication::processEvents();
        return main->screen()->grabWindow(main->winId()).toImage();
    };
    for (int step = 0; step < 60; ++step) {
        frmWaypoint& view = main->mapView();
        switch (number(0, 4)) {
        case 0:
            Scroll(number(0, 300), number(0, 300));
            break;
        case 1:
            mdlEdit.Zoom = number(0, 1) == 0 ? 1.0F : 2.0F;
            SizeView(view);
            DrawLevelPicture(view);
            break;
        case 2:
            view.curpoint = number(-1, 29);
            break;
        default:
            mdlEdit.WayPoints[static_cast<std::size_t>(number(0, 29))].X = number(0, 690);
        }
        view.PaintPoints();
        const QImage partly = shown();
        view.widget()->update();
        ASSERT_EQ(partly, shown()) << step;
    }
}

TEST_F(MainWindow, AViewThatShrinksComesBackIntoSight) {
    OpenInSmallWindow(900, 700);
    const auto zoomThrice = [&](Qt::Key key) {
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(main->mapView().widget(), key, Qt::KeypadModifier);
            QCoreApplication::processEvents();
        }
    };
    const auto farthest = [this] {
        return QPoint(Area().horizontalScrollBar()->maximum(),
                      Area().verticalScrollBar()->maximum());
    };
    zoomThrice(Qt::Key_Plus);
    Scroll(farthest().x(), farthest().y());
    zoomThrice(Qt::Key_Minus);
    EXPECT_EQ(main->mapView().geometry().bottomRight(), Area().viewport()->rect().bottomRight());
    EXPECT_EQ(Area().horizontalScrollBar()->value(), farthest().x());
    Scroll(0, 0);
    EXPECT_EQ(main->mapView().pos(), QPoint(0, 0));
    Do(u"mnuLevWay"_s);
    EXPECT_EQ(farthest(), QPoint(0, 0));
}

TEST(PinnedPlace, BringsOnlyAnEdgeOutsideIntoSight) {
    const int rows[][5] = {{100, -40, 50, 200, 100}, {100, 40, 50, 200, 100},
                           {170, -5, 50, 200, 165},  {170, -40, 50, 200, 150},
                           {-30, 40, 50, 200, 0},    {0, -500, 300, 200, -100},
                           {-100, 30, 300, 200, -70}};
    for (const auto& [place, moved, size, room, expected] : rows) {
        EXPECT_EQ(PinnedPlace(place, moved, size, room), expected);
    }
}

} // namespace
} // namespace editor
