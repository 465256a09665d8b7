// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "app/frmMain.h"
#include "model/mdlEdit.h"
#include "support/LevelFolder.h"
#include "windows/Choosers.h"
#include "windows/Look.h"
#include "windows/MessageBox.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>
#include <numeric>

namespace editor::test {

/// Starts every test from a fresh editor: an empty model and the main window. The choosers are
/// answered by the test; where that of files begins is recorded, and so are messages, which are
/// closed at once.
class EditorFixture : public testing::Test {
  protected:
    EditorFixture() {
        ApplyLook(*qApp);
        messageBox() = [this](auto, const QString& text, const QString& title) {
            EXPECT_EQ(title, u"Torvak! level editor"_s);
            messages += text;
        };
        choosers() = {[this](auto, auto) { return answer; },
                      [this](auto, auto, const QString& folder, auto) {
                          asked += folder;
                          return answer;
                      }};
        Start();
    }

    void Start() {
        main.reset();
        mdlEdit = {};
        main = std::make_unique<frmMain>();
        main->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(main.get())) << "no window has the keyboard";
    }

    static void DeleteClosed() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    /// A level without entities but for those of `more`, its graphics of this size.
    static void MakeLevel(const LevelFolder& folder, int width, int height,
                          const QByteArray& more = {}) {
        QImage picture(width, height, QImage::Format_RGB32);
        auto* first = reinterpret_cast<QRgb*>(picture.bits());
        std::iota(first, first + picture.sizeInBytes() / 4, qRgb(0, 0, 0));
        for (const QString& name : {u"l.png"_s, u"b.png"_s, u"m.png"_s}) {
            picture.save(folder.Path(name));
        }
        folder.Write(u"level.cfg"_s, "[Map]\nLevel=l.png\nBack=b.png\nMaterial=m.png\n" + more);
    }

    /// Types a shortcut of the main window's menus.
    void Type(const QString& shortcut) { QTest::keySequence(main.get(), QKeySequence(shortcut)); }
    void Open(const LevelFolder& folder) {
        answer = folder.Path();
        Type(u"Ctrl+O"_s);
    }

    frmWaypoint& view() { return main->mapView.Use(); }
    frmWaypointSettings& settings() { return main->entitySettings.Use(); }

    /// A control of a window.
    template <class Control = QLineEdit>
    static Control& In(const QWidget& window, const QString& name) {
        return *window.findChild<Control*>(name);
    }
    template <class Control = QLineEdit>
    Control& Setting(const char* name) {
        return In<Control>(settings(), QString::fromLatin1(name));
    }

    /// A mouse event of the view's client area, at view pixels. `buttons` are all that the view is
    /// told of: the one that changed, or for a move those that are held.
    void Mouse(QEvent::Type type, Qt::MouseButtons buttons, QPointF at) {
        const auto button =
            type == QEvent::MouseMove ? Qt::NoButton : Qt::MouseButton(buttons.toInt());
        QMouseEvent event(type, at, at, button, buttons, Qt::NoModifier);
        QApplication::sendEvent(view().widget(), &event);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(view().widget(), key, modifiers);
    }

    QString answer;
    QStringList asked, messages;
    std::unique_ptr<frmMain> main;
};

} // namespace editor::test
