// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "edit/frmWaypointSettings.h"
#include "platform/OnceForm.h"
#include "view/frmWaypoint.h"

#include <QMdiArea>
#include <QMouseEvent>
#include <QStringList>

#include <gtest/gtest.h>

namespace editor::test {

/// Starts every test from a fresh editor: an empty model, and windows in an area that are wired as
/// the application wires them. Messages are collected and closed at once.
class EditorFixture : public testing::Test {
  protected:
    EditorFixture();

    /// Shows the windows with a level picture of this size, as a level that was opened does.
    void ShowLevel(int width, int height);

    /// A mouse event of the view's client area, at view pixels. `buttons` are all that the view is
    /// told of: the one that changed, or for a move those that are held.
    void Mouse(QEvent::Type type, Qt::MouseButtons buttons, QPointF at);
    void Press(Qt::MouseButton button, QPointF at) { Mouse(QEvent::MouseButtonPress, button, at); }
    void Move(Qt::MouseButtons held, QPointF at) { Mouse(QEvent::MouseMove, held, at); }
    void Release(Qt::MouseButton button, QPointF at) {
        Mouse(QEvent::MouseButtonRelease, button, at);
    }

    /// A control of the entity settings.
    template <class Control>
    Control& Setting(const char* name) {
        return *settings().findChild<Control*>(QString::fromLatin1(name));
    }

    /// Everything that is drawn on the view.
    [[nodiscard]] QImage Drawn();

    QMdiArea area;
    OnceForm<frmWaypoint> view;
    OnceForm<frmWaypointSettings> settings;
    QStringList messages;
};

} // namespace editor::test
