#include "app/LevelArea.h"
#include "app/frmMain.h"
#include "model/mdlEdit.h"
#include "platform/Dialogs.h"
#include "platform/Look.h"
#include "support/LevelFolder.h"
#include "support/PngBuilder.h"
#include "view/LevelGraphics.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>

namespace editor {
namespace {

using test::LevelFolder;

/// The whole editor, its choosers answered by the test.
class MainWindow : public testing::Test {
  protected:
    MainWindow() {
        ApplyLook(*qApp);
        mdlEdit = LevelModel();
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
        QFile::remove(broken.Path(QStringLiteral("m.png")));
        nameless.Write(QStringLiteral("level.cfg"), "[Map]\nNumItems=1\n");
        full.Write(QStringLiteral("level.cfg"), "[Map]\nNumItems=52\n");
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
    }

    static void MakeLevel(const LevelFolder& folder, int width, int height) {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(0xff336699);
        for (const char* name : {"l.png", "b.png", "m.png"}) {
            picture.save(folder.Path(QString::fromLatin1(name)));
        }
        folder.Write(QStringLiteral("level.cfg"),
                     "[Map]\nLevel=l.png\nBack=b.png\nMaterial=m.png\nNumStartPoints=1\n"
                     "StartX0=5\nStartY0=6\nNumItems=2\n[Physics]\nKickerForce=7\n");
    }

    QAction& Entry(const char* name) {
        return *main->findChild<QAction*>(QString::fromLatin1(name));
    }
    void Choose(const char* entry) { Entry(entry).trigger(); }

    void Open(const LevelFolder& folder) {
        answer = folder.Path();
        Choose("mnuLevOpen");
    }
    void New(const LevelFolder& folder) {
        answer = folder.Path();
        Choose("mnuLevNew");
    }

    void Type(const char* box, const char* text) {
        main->levelSettings()
            .findChild<QLineEdit*>(QString::fromLatin1(box))
            ->setText(QString::fromLatin1(text));
    }
    void Accept(const char* level) {
        mdlEdit.LevelPath = good.Path();
        Type("txtLev", level);
        Type("txtBG", "b.png");
        Type("txtMat", "m.png");
        main->levelSettings().findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    }

    /// What can be seen, a letter each: S the level settings, V the map view, E the entity
    /// settings; then the two window entries, each in brackets with + when enabled and x when
    /// checked.
    QString State() {
        const auto seen = [](const QWidget* window, const char* letter) {
            return QString::fromLatin1(window != nullptr && window->isVisible() ? letter : "-");
        };
        const auto entry = [this](const char* name) {
            const QAction& action = Entry(name);
            return QStringLiteral("[%1%2]").arg(QString::fromLatin1(action.isEnabled() ? "+" : "-"),
                                                QString::fromLatin1(action.isChecked() ? "x" : ""));
        };
        return seen(main->levelSettings.Existing(), "S") + seen(main->mapView.Existing(), "V") +
               seen(main->entitySettings.Existing(), "E") + entry("mnuLevSettings") +
               entry("mnuLevWay");
    }

    std::unique_ptr<frmMain> main;
    LevelFolder good, other, broken, nameless, full, empty;
    QString answer;
    QStringList prompts, messages;
};

TEST_F(MainWindow, HasExactlyItsMenus) {
    const QStringList expected = {QStringLiteral("mnuLevel|&Level"),
                                  QStringLiteral("mnuLevNew|&New|Ctrl+N"),
                                  QStringLiteral("mnuLevSep||"),
                                  QStringLiteral("mnuLevOpen|&Open|Ctrl+O"),
                                  QStringLiteral("mnuSave|&Save|Ctrl+S"),
                                  QStringLiteral("mnuWindows|&Windows"),
                                  QStringLiteral("mnuLevSettings|Level &settings|F5"),
                                  QStringLiteral("mnuLevWay|Level &items|F7"),
                                  QStringLiteral("mnuHelp|&Help"),
                                  QStringLiteral("mnuHelpIndex|&Index|F1"),
                                  QStringLiteral("mnuHelpSep||"),
                                  QStringLiteral("mnuHelpAbout|&About|Shift+F1")};
    QStringList found;
    for (const QAction* bar : main->menuBar()->actions()) {
        found += bar->menu()->objectName() + u'|' + bar->text();
        for (const QAction* entry : bar->menu()->actions()) {
            found += entry->objectName() + u'|' + entry->text() + u'|' +
                     entry->shortcut().toString(QKeySequence::PortableText);
        }
    }
    EXPECT_EQ(found.join(u'\n').toStdString(), expected.join(u'\n').toStdString());
    EXPECT_EQ(main->windowTitle(), QStringLiteral("Torvak! Level editor"));
    EXPECT_EQ(main->centralWidget()->size(), QSize(480, 292));
    for (const char* name :
         {"mnuLevNew", "mnuLevOpen", "mnuSave", "mnuHelpIndex", "mnuHelpAbout"}) {
        EXPECT_TRUE(Entry(name).isEnabled()) << name;
    }
}

// Every command in many orders; after each, what can be seen and what the menu says.
TEST_F(MainWindow, WindowsAndEntriesFollowEveryOrderOfCommands) {
    const std::map<std::string, std::function<void()>> commands = {
        {"open", [this] { Open(good); }},
        {"open other", [this] { Open(other); }},
        {"open broken", [this] { Open(broken); }},
        {"open nameless", [this] { Open(nameless); }},
        {"open refused", [this] { Open(full); }},
        {"open empty", [this] { Open(empty); }},
        {"new", [this] { New(empty); }},
        {"new used", [this] { New(good); }},
        {"cancel",
         [this] {
             answer.clear();
             Choose("mnuLevNew");
             Choose("mnuLevOpen");
         }},
        {"accept good", [this] { Accept("l.png"); }},
        {"accept bad", [this] { Accept("none.png"); }},
        {"accept empty", [this] { Accept(""); }},
        {"settings", [this] { Choose("mnuLevSettings"); }},
        {"items", [this] { Choose("mnuLevWay"); }},
        {"close settings", [this] { main->levelSettings().close(); }},
        {"close view", [this] { main->mapView().close(); }},
        {"close entities", [this] { main->entitySettings().close(); }},
        {"index", [this] { Choose("mnuHelpIndex"); }},
        {"save", [this] { Choose("mnuSave"); }},
    };
    const std::vector<std::vector<std::pair<const char*, const char*>>> orders = {
        {{"index", "---[-][-]"},
         {"cancel", "---[-][-]"},
         {"save", "---[-][-]"},
         {"new used", "---[-][-]"},
         {"new", "S--[+x][-]"},
         {"settings", "---[+][-]"},
         {"settings", "S--[+x][-]"},
         {"accept empty", "---[+][-]"},
         {"settings", "S--[+x][-]"},
         {"accept bad", "---[+][-]"},
         {"settings", "S--[+x][-]"},
         {"accept good", "-VE[+][+x]"}},
        {{"open", "-VE[+][+x]"},
         {"items", "---[+][+]"},
         {"items", "-VE[+][+x]"},
         {"close view", "---[+][+]"},
         {"items", "-VE[+][+x]"},
         {"close entities", "-V-[+][+x]"},
         {"items", "---[+][+]"},
         {"items", "-VE[+][+x]"},
         {"save", "-VE[+][+x]"}},
        // Without graphics the view is hidden; the check mark and the entity settings stay.
        {{"open", "-VE[+][+x]"},
         {"open broken", "--E[+][-x]"},
         {"open", "-VE[+][+x]"},
         {"open refused", "-VE[+][+x]"},
         {"open nameless", "-VE[+][+x]"},
         {"open empty", "-VE[+][+x]"},
         {"new", "S-E[+x][-x]"},
         {"open other", "SVE[+x][+x]"}},
        {{"open empty", "---[+][-]"},
         {"settings", "S--[+x][-]"},
         {"close settings", "---[+][-]"},
         {"settings", "S--[+x][-]"},
         {"accept good", "-VE[+][+x]"},
         {"settings", "SVE[+x][+x]"},
         {"accept empty", "-VE[+][+x]"},
         {"settings", "SVE[+x][+x]"},
         {"accept bad", "--E[+][-x]"},
         {"close view", "---[+][-]"},
         {"open", "-VE[+][+x]"}},
    };
    for (const auto& order : orders) {
        Start();
        std::string road;
        for (const auto& [command, expected] : order) {
            road += std::string(command) + ", ";
            commands.at(command)();
            DeleteClosed();
            ASSERT_EQ(State().toStdString(), expected) << road;
            ASSERT_EQ(mdlEdit.GraphicsLoaded, Entry("mnuLevWay").isEnabled()) << road;
            // Keys must not do their work where nobody sees it.
            QCoreApplication::processEvents();
            const QWidget* focused = main->focusWidget();
            ASSERT_TRUE(focused == nullptr || focused->isVisible()) << road;
            const frmWaypoint* view = main->mapView.Existing();
            ASSERT_TRUE(view == nullptr || !view->isVisible() || focused != nullptr) << road;
        }
    }
}

TEST_F(MainWindow, NewKeepsTheSettingsAndEmptiesTheTables) {
    Open(good);
    New(good);
    EXPECT_EQ(messages, QStringList(QStringLiteral(
                            "Torvak! level editor|This folder seems to be already used. Please "
                            "use \"Open\"")));
    EXPECT_EQ(mdlEdit.LevelPath, good.Path());
    EXPECT_EQ(mdlEdit.NumItems, 2);

    New(empty);
    EXPECT_EQ(mdlEdit.LevelPath, empty.Path());
    EXPECT_EQ(mdlEdit.NumItems + mdlEdit.NumStartPoints + mdlEdit.NumWayPoints, 0);
    EXPECT_EQ(mdlEdit.LevelWidth, -1);
    EXPECT_EQ(mdlEdit.LevelHeight, -1);
    EXPECT_EQ(mdlEdit.LevelFile, QStringLiteral("l.png"));
    EXPECT_EQ(mdlEdit.KickerForce, 7);
    const auto* jumper = main->levelSettings().findChild<QLineEdit*>(QStringLiteral("txtJumper"));
    EXPECT_EQ(jumper->text(), QStringLiteral("1000")); // shown without Init
    EXPECT_EQ(prompts.last(), QStringLiteral("Please select the destination folder"));
    EXPECT_EQ(prompts.first(), QStringLiteral("Please select the level folder"));
}

TEST_F(MainWindow, AFailedOpenLeavesWhatWasOpen) {
    Open(good);
    main->mapView().curpoint = 0;
    other.Write(QStringLiteral("waypoint.cfg"), "[Map]\nNumWayPoints=202\n");
    Open(other);
    ASSERT_EQ(messages.size(), 1);
    EXPECT_TRUE(messages[0].contains(QStringLiteral("NumWayPoints=202")));
    EXPECT_EQ(mdlEdit.LevelPath, good.Path());
    EXPECT_EQ(mdlEdit.LevelWidth, 40);
    EXPECT_EQ(main->mapView().curpoint, 0);
    QFile::remove(other.Path(QStringLiteral("waypoint.cfg")));
    Open(other);
    EXPECT_EQ(mdlEdit.LevelWidth, 64);
    EXPECT_EQ(main->mapView().curpoint, -1);
    Open(broken);
    EXPECT_EQ(mdlEdit.LevelWidth, -1);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MainWindow, TheViewHasTheKeyboardAfterOpenAndZoomsByTheKeypadAlone) {
    Open(good);
    QWidget* canvas = main->mapView().widget();
    EXPECT_EQ(main->focusWidget(), canvas);
    const auto press = [canvas](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::sendKeyEvent(QTest::Click, canvas, key, QString(), modifiers);
        return mdlEdit.Zoom;
    };
    EXPECT_EQ(press(Qt::Key_Plus, Qt::NoModifier), 1);
    EXPECT_EQ(press(Qt::Key_Minus, Qt::ShiftModifier), 1);
    main->mapView().curpoint = 0;
    for (const int zoom : {2, 4, 8, 8}) {
        EXPECT_EQ(press(Qt::Key_Plus, Qt::KeypadModifier), static_cast<float>(zoom));
        EXPECT_EQ(canvas->size(), QSize(40, 30) * zoom);
    }
    for (const float zoom : {4.0F, 2.0F, 1.0F, 0.5F, 0.25F, 0.25F}) {
        EXPECT_EQ(press(Qt::Key_Minus, Qt::KeypadModifier), zoom);
    }
    EXPECT_EQ(main->mapView().curpoint, 0);
    Open(other); // the zoom stays
    EXPECT_EQ(mdlEdit.Zoom, 0.25F);
}

TEST_F(MainWindow, AViewThatWasClosedShowsTheLevelAgainAtAnySize) {
    MakeLevel(good, 400, 300);
    Open(good);
    main->mapView().close();
    DeleteClosed();
    Choose("mnuLevWay");
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
    QImage picture(33, 22, QImage::Format_RGB32);
    picture.fill(0xff00ff00);
    picture.save(good.Path(QStringLiteral("Level.Bmp")), "BMP");
    picture.save(good.Path(QStringLiteral("a-png.gif")), "PNG");
    picture.save(good.Path(QStringLiteral("png.bmp")), "PNG");
    QFile::link(QStringLiteral("/dev/zero"), good.Path(QStringLiteral("zero.png")));
    const HeaderRec wide{32768, 1, 8, 0, 0, 0, 0};
    WriteFile(good.Path(QStringLiteral("wide.png")).toStdString(),
              PngOf(wide, Filtered(wide, NoiseRows(wide, 1), {0})));
    good.Write(QStringLiteral("gfx/deep.png"), good.Read(QStringLiteral("l.png")));
    const struct {
        const char* level;
        int width;
    } rows[] = {{"Level.Bmp", 33}, {"LEVEL.BMP", 33},     {"a-png.gif", 33}, {"png.bmp", -1},
                {"zero.png", -1},  {"wide.png", -1},      {".", -1},         {"L.PNG", 40},
                {"none.png", -1},  {"gfx\\DEEP.png", 40}, {"gfx", -1}};
    for (const auto& row : rows) {
        good.Write(QStringLiteral("level.cfg"),
                   QByteArray("[Map]\nBack=b.png\nMaterial=m.png\nParallax=none.png\nLevel=") +
                       row.level);
        Open(good);
        EXPECT_EQ(mdlEdit.LevelWidth, row.width) << row.level;
    }
    EXPECT_TRUE(messages.isEmpty());
}

TEST_F(MainWindow, PinnedWindowsStayOnTopAndInPlaceWhileTheViewScrolls) {
    main->resize(500, 360);
    MakeLevel(good, 2000, 1500);
    Open(good);
    QCoreApplication::processEvents();
    auto* area = main->findChild<LevelArea*>();
    frmWaypointSettings& settings = main->entitySettings();
    const QPoint place = settings.pos();
    EXPECT_TRUE(settings.isAncestorOf(area->viewport()->childAt(settings.geometry().center())));
    EXPECT_GE(area->viewport()->height(), settings.height());
    EXPECT_EQ(settings.geometry().right(), area->viewport()->rect().right());
    for (const bool hidden : {false, true}) {
        settings.setHidden(hidden);
        area->horizontalScrollBar()->setValue(300);
        area->verticalScrollBar()->setValue(200);
        EXPECT_EQ(settings.pos(), place);
        EXPECT_EQ(main->mapView().pos(), QPoint(-300, -200));
        area->horizontalScrollBar()->setValue(0);
        area->verticalScrollBar()->setValue(0);
    }
}

// Also with QT_SCALE_FACTOR set: see the test's entries.
TEST_F(MainWindow, WhatIsOnTheScreenIsAlwaysWhatAFullRepaintShows) {
    std::mt19937 random(4);
    QImage noise(700, 500, QImage::Format_RGB32);
    std::generate_n(reinterpret_cast<std::uint32_t*>(noise.bits()), 700 * 500,
                    [&random] { return 0xff000000U | static_cast<std::uint32_t>(random()); });
    noise.save(good.Path(QStringLiteral("l.png")));
    Open(good);
    mdlEdit.NumWayPoints = 30;
    const auto number = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (WaypointRec& waypoint : mdlEdit.WayPoints) {
        waypoint = {static_cast<std::int16_t>(number(0, 690)),
                    static_cast<std::int16_t>(number(0, 490)),
                    0,
                    {static_cast<std::int16_t>(number(0, 29))},
                    {},
                    0};
    }
    main->entitySettings().findChild<QRadioButton*>(QStringLiteral("optWaypoints"))->click();
    // Along its edge, on a screen of an odd scale, a pixel is shared with the view.
    main->entitySettings().hide();
    auto* area = main->findChild<LevelArea*>();
    const auto shown = [this] {
        QCoreApplication::processEvents();
        return main->screen()->grabWindow(main->winId()).toImage();
    };
    for (int step = 0; step < 60; ++step) {
        frmWaypoint& view = main->mapView();
        switch (number(0, 4)) {
        case 0:
            area->horizontalScrollBar()->setValue(number(0, 300));
            area->verticalScrollBar()->setValue(number(0, 300));
            break;
        case 1:
            mdlEdit.Zoom = number(0, 1) == 0 ? 1.0F : 2.0F;
            SizeView(view);
            DrawLevelPicture(view);
            break;
        case 2:
            view.curpoint = static_cast<std::int16_t>(number(-1, 29));
            break;
        default:
            mdlEdit.WayPoints[static_cast<std::size_t>(number(0, 29))].X =
                static_cast<std::int16_t>(number(0, 690));
        }
        view.PaintPoints();
        const QImage partly = shown();
        view.widget()->update();
        ASSERT_EQ(partly, shown()) << step;
    }
}

TEST_F(MainWindow, AViewThatShrinksComesBackIntoSight) {
    main->resize(500, 360);
    MakeLevel(good, 900, 700);
    Open(good);
    auto* area = main->findChild<LevelArea*>();
    QWidget* canvas = main->mapView().widget();
    const auto zoom = [&](Qt::Key key, int times) {
        for (int i = 0; i < times; ++i) {
            QTest::sendKeyEvent(QTest::Click, canvas, key, QString(), Qt::KeypadModifier);
            QCoreApplication::processEvents();
        }
    };
    zoom(Qt::Key_Plus, 3);
    area->horizontalScrollBar()->setValue(area->horizontalScrollBar()->maximum());
    area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    zoom(Qt::Key_Minus, 3);
    const QRect room = area->viewport()->rect();
    EXPECT_EQ(main->mapView().geometry().right(), room.right());
    EXPECT_EQ(main->mapView().geometry().bottom(), room.bottom());
    EXPECT_EQ(area->horizontalScrollBar()->value(), area->horizontalScrollBar()->maximum());
    area->horizontalScrollBar()->setValue(0);
    area->verticalScrollBar()->setValue(0);
    EXPECT_EQ(main->mapView().pos(), QPoint(0, 0));
    Choose("mnuLevWay");
    QCoreApplication::processEvents();
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(area->verticalScrollBar()->maximum(), 0);
}

TEST(PinnedPlace, BringsOnlyAnEdgeOutsideIntoSight) {
    const struct {
        int place, moved, size, room, expected;
    } rows[] = {{100, -40, 50, 200, 100}, {100, 40, 50, 200, 100}, {170, -5, 50, 200, 165},
                {170, -40, 50, 200, 150}, {-30, 40, 50, 200, 0},   {0, -500, 300, 200, -100},
                {-100, 30, 300, 200, -70}};
    for (const auto& row : rows) {
        EXPECT_EQ(PinnedPlace(row.place, row.moved, row.size, row.room), row.expected);
    }
}

} // namespace
} // namespace editor
