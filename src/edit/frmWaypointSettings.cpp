// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "edit/frmWaypointSettings.h"

#include "model/FieldValue.h"
#include "view/frmWaypoint.h"
#include "windows/Layout.h"
#include "windows/TextBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>

#include <algorithm>

namespace editor {
namespace {

// The layout in twips.
constexpr int ClientWidth = 3570;
constexpr int ClientHeight = 4395;
constexpr int PanelLeft = 120;
constexpr int PanelTop = 480;
constexpr int ObjectPanelTop = 600;
constexpr int PanelWidth = 3255;
constexpr int PanelBottom = 4215;
constexpr int LineHeight = 255; // of everything with a caption
constexpr int FieldLeft = 960;
constexpr int FieldWidth = 2055;
constexpr int TextBoxHeight = 285;
constexpr int ListHeight = 315;

constexpr const char* WaypointCaption = "Waypoint";

struct HelpLine {
    std::size_t index; // in lblDesc
    const char* text;
    int top;
    int width;
};

constexpr int HelpLeft = 120;

constexpr std::array<HelpLine, 4> SpawnPointHelp = {{
    {0, "Right click to create start points", 120, 3015},
    {1, "Left click to select", 360, 2775},
    {2, "Left drag to move", 600, 3015},
    {3, "Press DEL to remove", 840, 3015},
}};

constexpr std::array<HelpLine, 4> ObjectHelp = {{
    {4, "Right click to create Items", 0, 2775},
    {5, "Left click to select", 240, 2775},
    {6, "Left drag to move", 480, 2895},
    {7, "Press DEL to delete", 720, 2895},
}};

constexpr std::array<HelpLine, 4> WaypointHelp = {{
    {11, "Right click to create Waypoints", 120, 2775},
    {10, "Left click to select", 360, 2775},
    {9, "Left drag to move, right drag to link", 600, 2895},
    {8, "DEL to delete, link again to unlink", 840, 2895},
}};

/// The list of item kinds; the position is the value of ItemRec::Type.
constexpr std::array<const char*, NumItemTypes> ItemKinds = {"MEDIKIT", "FLAG", "TEAMSPAWN",
                                                             "DOMINATION", "KICKERPAD"};

QString Text(const char* ascii) {
    return QString::fromLatin1(ascii);
}

template <class Control>
Control* AddCaptioned(const char* name, const char* caption, QWidget* parent, int left, int top,
                      int width, int height = LineHeight) {
    auto* control = new Control(Text(caption), parent);
    control->setObjectName(Text(name));
    PlaceTwips(control, left, top, width, height);
    return control;
}

// Buttons, whose captions never change.
template <class Button>
Button* AddButton(const char* name, const char* caption, QWidget* parent, int left, int top,
                  int width) {
    auto* button = AddCaptioned<Button>(name, caption, parent, left, top, width);
    button->setAccessibleName(Text(caption));
    return button;
}

template <std::size_t Count, std::size_t Lines>
void AddHelp(std::array<QLabel*, Count>& lblDesc, const std::array<HelpLine, Lines>& help,
             QWidget* panel) {
    for (const HelpLine& line : help) {
        lblDesc.at(line.index) =
            AddCaptioned<QLabel>("lblDesc", line.text, panel, HelpLeft, line.top, line.width);
    }
}

// A row of a label and the field that it names.
template <class Field>
Field* AddField(QWidget* panel, const char* labelName, const char* caption, const char* name,
                int top, int labelWidth, int height) {
    auto* label = AddCaptioned<QLabel>(labelName, caption, panel, HelpLeft, top, labelWidth);
    auto* field = new Field(panel);
    field->setObjectName(Text(name));
    field->setAccessibleName(Text(caption));
    PlaceTwips(field, FieldLeft, top, FieldWidth, height);
    label->setBuddy(field);
    return field;
}

QWidget* AddPanel(const char* name, const char* accessibleName, QWidget* parent, int top) {
    auto* panel = new QWidget(parent);
    panel->setObjectName(Text(name));
    panel->setAccessibleName(Text(accessibleName));
    PlaceTwips(panel, PanelLeft, top, PanelWidth, PanelBottom - top);
    return panel;
}

} // namespace

frmWaypointSettings::frmWaypointSettings(FormArea& area, const OnceForm<frmWaypoint>& mapView)
    : MdiForm(area, QStringLiteral("Entity settings"), new QWidget,
              {.pinned = true, .fromRight = true}),
      mapView_(mapView) {
    BuildModeRow();
    BuildSpawnPointPanel();
    BuildObjectPanel();
    BuildWaypointPanel();
    quietControls_.InstallOn(*this);
    FixClientSize(QSize(Twips(ClientWidth), Twips(ClientHeight)));
    Form_Load();
    ConnectHandlers();
}

void frmWaypointSettings::BuildModeRow() {
    const auto add = [this](const char* name, const char* caption, int left) {
        return AddButton<QRadioButton>(name, caption, widget(), left, 120, 1095);
    };
    optStart = add("optStart", "Start points", 120);
    optItems = add("optItems", "Items", 1200);
    optWaypoints = add("optWaypoints", "Waypoints", 2280);
}

void frmWaypointSettings::BuildSpawnPointPanel() {
    tabSpawnPoints = AddPanel("tabSpawnPoints", "Start points", widget(), PanelTop);
    AddHelp(lblDesc, SpawnPointHelp, tabSpawnPoints);
}

void frmWaypointSettings::BuildObjectPanel() {
    tabObjects = AddPanel("tabObjects", "Items", widget(), ObjectPanelTop);
    AddHelp(lblDesc, ObjectHelp, tabObjects);
    const auto textBox = [this](const char* label, const char* caption, const char* name, int top,
                                int labelWidth = 855) {
        return AddField<TextBox>(tabObjects, label, caption, name, top, labelWidth, TextBoxHeight);
    };
    txtName = textBox("lblName", "Name", "txtName", 1080, 735);
    cmbType = AddField<QComboBox>(tabObjects, "lblType", "Type", "cmbType", 1440, 855, ListHeight);
    for (const char* kind : ItemKinds) {
        cmbType->addItem(Text(kind));
    }
    txtAmount = textBox("lblAmount", "Amount", "txtAmount", 1800);
    txtRespawn = textBox("lblRespawn", "Respawn", "txtRespawn", 2160);
    txtBounce = textBox("lblBounce", "Bounce", "txtBounce", 2520);
    txtDist = textBox("lblDist", "DetectDist", "txtDist", 2880);
    txtGravity = textBox("lblGravity", "Gravity", "txtGravity", 3240);
}

void frmWaypointSettings::BuildWaypointPanel() {
    tabWaypoint = AddPanel("tabWaypoint", "Waypoints", widget(), PanelTop);
    AddHelp(lblDesc, WaypointHelp, tabWaypoint);
    fraWaypoint =
        AddCaptioned<QGroupBox>("fraWaypoint", WaypointCaption, tabWaypoint, 0, 1200, 3135, 615);
    chkReload = AddButton<QCheckBox>("chkReload", "Reload Waypoint", fraWaypoint, 120, 240, 2775);
    fraLinks = AddCaptioned<QGroupBox>("fraLinks", "Links", tabWaypoint, 0, 1920, 3135, 855);
    chkJump = AddButton<QCheckBox>("chkJump", "Jump required", fraLinks, 120, 240, 2415);
    chkRope = AddButton<QCheckBox>("chkRope", "Rope required", fraLinks, 120, 480, 2535);
}

void frmWaypointSettings::Form_Load() {
    cmbType->setCurrentIndex(Medikit);
    optStart->setChecked(true);
    tabObjects->hide();
    tabWaypoint->hide();
    ClearSelection();
    PaintPoints();
}

void frmWaypointSettings::ConnectHandlers() {
    using Self = frmWaypointSettings;
    connect(chkReload, &QCheckBox::toggled, this, &Self::chkReload_Click);
    connect(cmbType, &QComboBox::currentIndexChanged, this, &Self::cmbType_Click);
    connect(txtName, &QLineEdit::textChanged, this, &Self::txtName_Change);
    connect(txtAmount, &QLineEdit::textChanged, this, &Self::txtAmount_Change);
    connect(txtRespawn, &QLineEdit::textChanged, this, &Self::txtRespawn_Change);
    connect(txtBounce, &QLineEdit::textChanged, this, &Self::txtBounce_Change);
    connect(txtDist, &QLineEdit::textChanged, this, &Self::txtDist_Change);
    connect(txtGravity, &QLineEdit::textChanged, this, &Self::txtGravity_Change);
    // An option button that goes off is followed by the one that goes on.
    const auto onSwitchedOn = [this](QRadioButton* option, void (Self::*handler)()) {
        connect(option, &QRadioButton::toggled, this, [this, handler](bool on) {
            if (on) {
                (this->*handler)();
            }
        });
    };
    onSwitchedOn(optWaypoints, &Self::optWaypoints_Click);
    onSwitchedOn(optItems, &Self::optItems_Click);
    onSwitchedOn(optStart, &Self::optStart_Click);
}

EditingMode frmWaypointSettings::Mode() const {
    if (optWaypoints->isChecked()) {
        return EditingMode::Waypoints;
    }
    if (optItems->isChecked()) {
        return EditingMode::Items;
    }
    return optStart->isChecked() ? EditingMode::StartPoints : EditingMode::None;
}

void frmWaypointSettings::optWaypoints_Click() {
    ChangeMode(tabWaypoint);
}

void frmWaypointSettings::optItems_Click() {
    ChangeMode(tabObjects);
}

void frmWaypointSettings::optStart_Click() {
    ChangeMode(tabSpawnPoints);
}

void frmWaypointSettings::ChangeMode(const QWidget* front) {
    ClearSelection();
    for (QWidget* panel : {tabSpawnPoints, tabObjects, tabWaypoint}) {
        panel->setVisible(panel == front);
    }
    PaintPoints();
}

void frmWaypointSettings::ClearSelection() {
    if (frmWaypoint* view = mapView_.Existing()) {
        view->curpoint = NoSelection;
    }
}

void frmWaypointSettings::PaintPoints() {
    if (frmWaypoint* view = mapView_.Existing()) {
        view->PaintPoints();
    }
}

// The selection where it is one of the mode, which must be the current one: the controls of a panel
// that is not in front change nothing.
int frmWaypointSettings::SelectedIn(EditingMode mode) const {
    const frmWaypoint* view = mapView_.Existing();
    return view != nullptr && Mode() == mode ? view->curpoint : NoSelection;
}

void frmWaypointSettings::ShowWaypoint(int index) {
    if (index == NoSelection) {
        fraWaypoint->setTitle(Text(WaypointCaption));
        return;
    }
    fraWaypoint->setTitle(QStringLiteral("%1 %2").arg(Text(WaypointCaption)).arg(index));
    const WaypointRec& waypoint = mdlEdit.WayPointTable()[index];
    chkReload->setChecked((waypoint.Flags & ReloadWaypoint) != 0);
}

WaypointChoices frmWaypointSettings::Choices() const {
    const auto isSet = [](const QCheckBox* box) { return box->checkState() == Qt::Checked; };
    return {.reload = isSet(chkReload), .jump = isSet(chkJump), .rope = isSet(chkRope)};
}

void frmWaypointSettings::chkReload_Click() {
    if (WaypointRec* waypoint = mdlEdit.WayPointTable().Find(SelectedIn(EditingMode::Waypoints))) {
        waypoint->Flags = Choices().reload ? ReloadWaypoint : std::int16_t{0};
        PaintPoints();
    }
}

void frmWaypointSettings::ShowItem(const ItemRec& item) {
    txtName->setText(item.Name);
    txtAmount->setText(QString::number(item.Amount));
    cmbType->setCurrentIndex(item.Type >= 0 && item.Type < NumItemTypes ? item.Type : -1);
    txtBounce->setText(QString::number(item.Bounce));
    txtDist->setText(QString::number(item.DetectDist));
    txtGravity->setText(QString::number(item.Gravity));
    txtRespawn->setText(QString::number(item.Respawn));
}

namespace {

std::int16_t FieldNumber(const QLineEdit& text) {
    return RoundedFieldValue<std::int16_t>(text.text());
}

} // namespace

ItemRec frmWaypointSettings::ShownItem() const {
    ItemRec item;
    item.Name = txtName->text();
    item.Type = static_cast<std::int16_t>(std::max<int>(cmbType->currentIndex(), Medikit));
    item.Amount = FieldNumber(*txtAmount);
    item.Bounce = FieldNumber(*txtBounce);
    item.DetectDist = FieldNumber(*txtDist);
    item.Gravity = FieldNumber(*txtGravity);
    item.Respawn = FieldNumber(*txtRespawn);
    return item;
}

// Null when nothing is selected that the item fields could change.
ItemRec* frmWaypointSettings::SelectedItem() const {
    return mdlEdit.ItemTable().Find(SelectedIn(EditingMode::Items));
}

void frmWaypointSettings::txtName_Change() {
    if (ItemRec* item = SelectedItem()) {
        item->Name = txtName->text();
        PaintPoints();
    }
}

// While nothing is chosen the item keeps a type that the list does not have.
void frmWaypointSettings::cmbType_Click() {
    ItemRec* item = SelectedItem();
    if (item != nullptr && cmbType->currentIndex() >= 0) {
        item->Type = static_cast<std::int16_t>(cmbType->currentIndex());
        PaintPoints();
    }
}

void frmWaypointSettings::WriteItemNumber(std::int16_t ItemRec::*field, const QLineEdit& text) {
    if (ItemRec* item = SelectedItem()) {
        item->*field = FieldNumber(text);
        PaintPoints();
    }
}

void frmWaypointSettings::txtAmount_Change() {
    WriteItemNumber(&ItemRec::Amount, *txtAmount);
}

void frmWaypointSettings::txtRespawn_Change() {
    WriteItemNumber(&ItemRec::Respawn, *txtRespawn);
}

void frmWaypointSettings::txtBounce_Change() {
    WriteItemNumber(&ItemRec::Bounce, *txtBounce);
}

void frmWaypointSettings::txtDist_Change() {
    WriteItemNumber(&ItemRec::DetectDist, *txtDist);
}

void frmWaypointSettings::txtGravity_Change() {
    WriteItemNumber(&ItemRec::Gravity, *txtGravity);
}

} // namespace editor
