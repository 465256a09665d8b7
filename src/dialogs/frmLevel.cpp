// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "dialogs/frmLevel.h"

#include "dialogs/GraphicsChooser.h"
#include "model/FieldValue.h"
#include "model/mdlEdit.h"
#include "windows/Layout.h"
#include "windows/MessageBox.h"
#include "windows/TextBox.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <optional>

namespace editor {
namespace {

constexpr QSize ClientSize(236, 281); // pixels, as all of the layout

// The columns that labels, text boxes and browse buttons of both frames stand in.
constexpr int LabelLeft = 8;
constexpr int BoxLeft = 80;
constexpr int BrowseLeft = 176;
constexpr int LabelHeight = 17;

QGroupBox* MakeFrame(QWidget* parent, const QString& name, const QString& caption) {
    auto* frame = new QGroupBox(caption, parent);
    frame->setObjectName(name);
    return frame;
}

/// A text box in a frame, with a label that is read out as its name.
QLineEdit* MakeTextBox(QWidget* frame, const QString& name, const QString& caption, int top,
                       int labelWidth) {
    auto* label = new QLabel(caption, frame);
    label->setObjectName(QStringLiteral("lbl") + name);
    Place(label, LabelLeft, top, labelWidth, LabelHeight);
    auto* box = new TextBox(frame);
    box->setObjectName(QStringLiteral("txt") + name);
    Place(box, BoxLeft, top, 97, 19);
    label->setBuddy(box);
    return box;
}

QPushButton* MakeBrowseButton(QWidget* frame, const QString& name, const QString& caption,
                              int top) {
    auto* button = new QPushButton(QStringLiteral("..."), frame);
    button->setObjectName(QStringLiteral("cmd") + name);
    button->setAccessibleName(QStringLiteral("Browse for the %1 graphics").arg(caption.toLower()));
    Place(button, BrowseLeft, top, 33, 17);
    return button;
}

} // namespace

frmLevel::frmLevel(FormArea& area)
    : MdiForm(area, QStringLiteral("Level settings"), new QWidget, {.pinned = true}) {
    setObjectName(QStringLiteral("frmLevel"));
    MakeGraphics(widget());
    MakePhysics(widget());
    cmdOK = new QPushButton(QStringLiteral("&Accept"), widget());
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    Place(cmdOK, 144, 248, 81, 25);
    SetTabOrder();
    quietControls_.InstallOn(*this);
    FixClientSize(ClientSize);

    connect(cmdBG, &QPushButton::clicked, this, &frmLevel::cmdBG_Click);
    connect(cmdLev, &QPushButton::clicked, this, &frmLevel::cmdLev_Click);
    connect(cmdMat, &QPushButton::clicked, this, &frmLevel::cmdMat_Click);
    connect(cmdPar, &QPushButton::clicked, this, &frmLevel::cmdPar_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmLevel::cmdOK_Click);
}

void frmLevel::MakeGraphics(QWidget* client) {
    QGroupBox* fraGraphics =
        MakeFrame(client, QStringLiteral("fraGraphics"), QStringLiteral("Graphics"));
    Place(fraGraphics, 8, 8, 217, 145);
    const auto makeRow = [fraGraphics](QLineEdit*& box, QPushButton*& button, const QString& name,
                                       const QString& caption, int top, int labelWidth) {
        box = MakeTextBox(fraGraphics, name, caption, top, labelWidth);
        button = MakeBrowseButton(fraGraphics, name, caption, top);
    };
    makeRow(txtBG, cmdBG, QStringLiteral("BG"), QStringLiteral("Background"), 24, 65);
    makeRow(txtLev, cmdLev, QStringLiteral("Lev"), QStringLiteral("Level"), 48, 73);
    makeRow(txtMat, cmdMat, QStringLiteral("Mat"), QStringLiteral("Material"), 72, 65);
    makeRow(txtPar, cmdPar, QStringLiteral("Par"), QStringLiteral("Parallax"), 96, 65);
    chkParallax = new QCheckBox(QStringLiteral("Parallax scrolling"), fraGraphics);
    chkParallax->setObjectName(QStringLiteral("chkParallax"));
    Place(chkParallax, 80, 120, 129, 17);
}

void frmLevel::MakePhysics(QWidget* client) {
    QGroupBox* fraPhysics =
        MakeFrame(client, QStringLiteral("fraPhysics"), QStringLiteral("Physics settings"));
    Place(fraPhysics, 8, 160, 217, 81);
    const int labelWidth = 81;
    txtJumper = MakeTextBox(fraPhysics, QStringLiteral("Jumper"), QStringLiteral("Jumper force"),
                            24, labelWidth);
    txtJumper->setText(QStringLiteral("1000"));
    txtKicker = MakeTextBox(fraPhysics, QStringLiteral("Kicker"), QStringLiteral("Kicker force"),
                            48, labelWidth);
    txtKicker->setText(QStringLiteral("43000"));
}

void frmLevel::SetTabOrder() {
    QWidget* const order[] = {txtBG,     cmdBG,     txtLev, cmdLev, txtMat, cmdMat,
                              txtJumper, txtKicker, cmdOK,  txtPar, cmdPar, chkParallax};
    for (std::size_t i = 1; i < std::size(order); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
}

void frmLevel::Init() {
    txtBG->setText(mdlEdit.BackFile);
    txtJumper->setText(QString::number(mdlEdit.JumperForce));
    txtKicker->setText(QString::number(mdlEdit.KickerForce));
    txtLev->setText(mdlEdit.LevelFile);
    txtMat->setText(mdlEdit.MaterialFile);
    txtPar->setText(mdlEdit.ParallaxFile);
    chkParallax->setChecked(mdlEdit.ParallaxScroll);
}

void frmLevel::Browse(QLineEdit& box) {
    const QString path = ShowOpenDialog(window(), BrowseStartFolder(),
                                        QStringLiteral("PNG graphics|*.png|BMP graphics|*.bmp|"));
    if (path.isEmpty()) {
        return;
    }
    const std::optional<QString> name = NameInLevelFolder(path);
    if (!name) {
        MsgBox(window(),
               QStringLiteral("Graphics must be in the same directory as the rest of the level."));
        return;
    }
    box.setText(*name);
}

void frmLevel::cmdBG_Click() {
    Browse(*txtBG);
}

void frmLevel::cmdLev_Click() {
    Browse(*txtLev);
}

void frmLevel::cmdMat_Click() {
    Browse(*txtMat);
}

void frmLevel::cmdPar_Click() {
    Browse(*txtPar);
}

void frmLevel::cmdOK_Click() {
    mdlEdit.LevelFile = txtLev->text();
    mdlEdit.MaterialFile = txtMat->text();
    mdlEdit.BackFile = txtBG->text();
    mdlEdit.ParallaxFile = txtPar->text();
    mdlEdit.JumperForce = RoundedFieldValue<std::int32_t>(txtJumper->text());
    mdlEdit.KickerForce = RoundedFieldValue<std::int32_t>(txtKicker->text());
    mdlEdit.ParallaxScroll = chkParallax->isChecked();
    Q_EMIT Accepted();
    hide();
}

} // namespace editor
