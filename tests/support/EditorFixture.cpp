// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "support/EditorFixture.h"

#include "edit/EditHost.h"
#include "edit/ViewEvents.h"
#include "model/mdlEdit.h"
#include "platform/Dialogs.h"
#include "platform/Look.h"
#include "view/ViewHost.h"

#include <QApplication>
#include <QTest>

namespace editor::test {
namespace {

frmWaypoint* MakeView(QMdiArea& area) {
    auto* view = new frmWaypoint(area);
    QObject::connect(view, &frmWaypoint::MouseDown, view, &Form_MouseDown);
    QObject::connect(view, &frmWaypoint::MouseMove, view, &Form_MouseMove);
    QObject::connect(view, &frmWaypoint::MouseUp, view, &Form_MouseUp);
    QObject::connect(view, &frmWaypoint::KeyDown, view, &Form_KeyDown);
    return view;
}

} // namespace

EditorFixture::EditorFixture()
    : view([this] { return MakeView(area); }),
      settings([this] { return new frmWaypointSettings(area); }) {
    ApplyLook(*qApp);
    mdlEdit = {};
    viewHost = {.mapView = [this]() -> frmWaypoint& { return view(); },
                .editingMode = &CurrentMode,
                .showEntitySettings = [this] { settings().show(); },
                .hideEntitySettings = [this] { settings().hide(); },
                .resetWaypointCaption = &ResetWaypointCaption,
                .checkLevelItems = [](bool) {},
                .setBusyPointer = [](bool) {},
                .SetMenus = [] {}};
    editHost.entitySettings = [this]() -> frmWaypointSettings& { return settings(); };
    dialogs().messageBox = [this](QWidget*, const QString& text, const QString&) {
        messages.append(text);
    };
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area.resize(800, 600);
    area.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&area)) << "no window has the keyboard";
}

void EditorFixture::ShowLevel(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    mdlEdit.LevelPicture = Picture(image);
    mdlEdit.GraphicsLoaded = true;
    mdlEdit.LevelWidth = static_cast<std::int16_t>(width);
    mdlEdit.LevelHeight = static_cast<std::int16_t>(height);
    view().show();
    view().Init();
}

void EditorFixture::Mouse(QEvent::Type type, Qt::MouseButtons buttons, QPointF at) {
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::MouseButton(buttons.toInt());
    QMouseEvent event(type, at, at, button, buttons, Qt::NoModifier);
    QApplication::sendEvent(view().widget(), &event);
}

QImage EditorFixture::Drawn() {
    QImage image(view().ClientSize(), QImage::Format_RGB32);
    view().Image().Paint(reinterpret_cast<std::uint32_t*>(image.bits()), image.width(),
                         image.rect());
    return image;
}

} // namespace editor::test
