// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "dialogs/frmAbout.h"

#include "windows/Layout.h"
#include "windows/Look.h"

#include <QFont>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

namespace editor {
namespace {

// Places and sizes are twips, as those of all controls below.
constexpr int ClientWidth = 5730;
constexpr int ClientHeight = 3180;
constexpr int IconPlace = 240; // from the left and from the top
constexpr int IconSize = 720;

// Type sizes of 18, 9.75 and 8.25 points at 96 pixels an inch.
constexpr int TitlePixels = 24;
constexpr int VersionPixels = 13;
constexpr int TextPixels = 11;

// The etched line above the bottom row.
constexpr int LineTop = 2445;
constexpr int LineMargin = 120; // at both ends
constexpr int LineHeight = 15;
constexpr QRgb LineGrey = 0xff808080;
constexpr QRgb LineWhite = 0xffffffff;

QLabel* MakeLabel(QWidget* parent, const QString& name, int pixelSize) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QFont font = label->font();
    font.setPixelSize(pixelSize);
    font.setBold(true);
    label->setFont(font);
    return label;
}

// One line, in any face.
void SetLine(QLabel* label, const QString& text) {
    label->setFont(Fitting(label->font(), text, label->width()));
    label->setText(text);
}

} // namespace

frmAbout::frmAbout(QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("About Torvak! Level Editor"));
    setFixedSize(Twips(ClientWidth), Twips(ClientHeight));
    auto* picIcon = new QLabel(this);
    picIcon->setObjectName(QStringLiteral("picIcon"));
    picIcon->setAccessibleName(QStringLiteral("Icon of the editor"));
    const int iconPixels = Twips(IconSize);
    picIcon->setPixmap(QIcon(QStringLiteral(":/torvak-level-editor.png"))
                           .pixmap(QSize(iconPixels, iconPixels))); // sharp on scaled screens too
    PlaceTwips(picIcon, IconPlace, IconPlace, IconSize, IconSize);
    MakeTexts();
    MakeSeparator();
    MakeButton();
    Form_Load();
}

void frmAbout::MakeTexts() {
    QLabel* lblTitle = MakeLabel(this, QStringLiteral("lblTitle"), TitlePixels);
    QFont italic = lblTitle->font();
    italic.setItalic(true);
    lblTitle->setFont(italic);
    PlaceTwips(lblTitle, 1050, 240, 3885, 480);
    SetLine(lblTitle, QStringLiteral("Torvak! Level Editor"));

    lblVersion = MakeLabel(this, QStringLiteral("lblVersion"), VersionPixels);
    PlaceTwips(lblVersion, 1050, 780, 3885, 225);

    QLabel* lblDescription = MakeLabel(this, QStringLiteral("lblDescription"), TextPixels);
    lblDescription->setWordWrap(true);
    lblDescription->setText(QStringLiteral(
        "Simple editor for Torvak! levels: It allows creating level.cfg files out of existing png "
        "or bmp level graphics and adding and modifying start points, objects and bot waypoints."));
    PlaceTwips(lblDescription, 1050, 1125, 3885, 1170);

    QLabel* lblDisclaimer = MakeLabel(this, QStringLiteral("lblDisclaimer"), TextPixels);
    PlaceTwips(lblDisclaimer, 240, 2625, 2655, 465);
    SetLine(lblDisclaimer, QStringLiteral("By the Torvak! editor's authors"));
}

void frmAbout::MakeSeparator() {
    int top = LineTop;
    for (const QRgb colour : {LineGrey, LineWhite}) {
        auto* line = new QWidget(this); // a frame would be read out as a window without a name
        line->setObjectName(QStringLiteral("Line1"));
        line->setAutoFillBackground(true);
        line->setPalette(QPalette(QColor(colour)));
        PlaceTwips(line, LineMargin, top, ClientWidth - 2 * LineMargin, LineHeight);
        top += LineHeight;
    }
}

void frmAbout::MakeButton() {
    auto* cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    PlaceTwips(cmdOK, 4200, 2640, 1260, 345);
    connect(cmdOK, &QPushButton::clicked, this, &frmAbout::cmdOK_Click);
}

// Esc and the close box do what the button does: a dialog closes with them by itself.
void frmAbout::cmdOK_Click() {
    accept();
}

void frmAbout::Form_Load() {
    lblVersion->setText(
        QStringLiteral("Version %1.%2  ").arg(EDITOR_VERSION_MAJOR).arg(EDITOR_VERSION_MINOR));
}

} // namespace editor
