// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

// Plays random gestures, keys and changes of fields and windows on random levels, and the same by
// rules that know no window. After each step the level, the fields and the picture have to agree.
// The seed is printed; EDITOR_MONKEY_SEED plays it again.

#include "model/FieldValue.h"
#include "support/EditorFixture.h"
#include "support/Models.h"

#include <cmath>
#include <iostream>
#include <map>
#include <random>

namespace editor::test {

using enum EditingMode;

constexpr int Steps = 20'000;
constexpr int LevelSide = 60; // small, so that many entities are hit
constexpr int Margin = 10;    // for positions outside the level

constexpr QRgb Black = 0xff000000, White = 0xffffffff, Blue = 0xff0000ff, Magenta = 0xffff00ff;
const QList<QRgb> ItemColours = {Black, 0xff000080, 0xff008000, 0xff008080, 0xff800000};
const QList<QRgb> LinkColours = {White, 0xff00ffff, 0xffc0c0c0, 0xff008080};

/// Halves go to the even number.
int Rounded(double value, double largest) {
    return std::isnan(value) ? 0 : int(std::clamp(std::rint(value), -largest - 1, largest));
}

/// An entity of any kind.
struct Entity {
    ItemRec item; // the position of any entity, and the settings of an item
    std::int16_t flags = 0;
    QList<std::pair<int, std::int16_t>> links = {}; // each one's target and flags

    [[nodiscard]] QPointF Position() const { return {qreal(item.PosX), qreal(item.PosY)}; }
    bool operator==(const Entity&) const = default;
};

using Tables = std::map<EditingMode, QList<Entity>>;

Tables Entities(const LevelModel& model) {
    Tables tables = {{Waypoints, {}}, {Items, {}}, {StartPoints, {}}};
    for (const StartPointRec& start : model.StartPointTable()) {
        tables[StartPoints] += Entity{{.PosX = start.X, .PosY = start.Y, .Name = {}}};
    }
    for (const ItemRec& item : model.ItemTable()) {
        tables[Items] += Entity{item};
    }
    for (const WaypointRec& from : model.WayPointTable()) {
        Entity waypoint{{.PosX = from.X, .PosY = from.Y, .Name = {}}, from.Flags};
        for (std::size_t slot = 0; slot < from.LinkCount(); ++slot) {
            waypoint.links.emplace_back(from.LinkDest[slot], from.LinkFlags[slot]);
        }
        tables[Waypoints] += waypoint;
    }
    return tables;
}

/// What the gestures do to a level and to what is seen of it. Positions are in level pixels.
struct Rules {
    Tables tables = Entities({});
    float zoom = 1;
    Qt::MouseButtons held = {}, dropped = {}; // held too, but by a gesture that has ended
    EditingMode mode = StartPoints;
    int selected = NoSelection;
    ItemRec shown = {}; // the item fields
    QString caption = u"Waypoint"_s;
    bool reload = false, jump = false, rope = false;
    std::optional<std::pair<QPointF, QPointF>> band = {}; // until the next repaint
    QStringList told = {};

    QList<Entity>& Table() { return tables[mode]; }
    Entity& Selected() { return Table()[selected]; }
    bool HasSelected(EditingMode inMode) const { return mode == inMode && selected >= 0; }
    void Unselect() {
        selected = NoSelection;
        band.reset();
    }

    QList<int> Hits(const QPointF& at) {
        QList<int> hits;
        for (int i = 0; i < Table().size(); ++i) {
            const QPointF off = at - Table()[i].Position();
            if (std::abs(off.x()) < 4 && std::abs(off.y()) < 4) {
                hits += i;
            }
        }
        return hits;
    }

    void Mouse(QEvent::Type type, Qt::MouseButtons buttons, const QPointF& at) {
        if (type == QEvent::MouseMove) {
            dropped &= buttons;
            Move(dropped ? Qt::NoButton : buttons, at);
        } else if (type == QEvent::MouseButtonRelease) {
            Release(buttons & ~dropped, at);
            held &= ~buttons;
            dropped &= ~buttons;
        } else {
            held |= buttons;
            dropped &= ~buttons;
            Press(buttons, at);
        }
    }

    void Drop() {
        dropped |= std::exchange(held, {});
        if (dropped) {
            band.reset();
        }
    }

    void Press(Qt::MouseButtons button, const QPointF& at) {
        band.reset();
        if (button != Qt::LeftButton) {
            return;
        }
        const QList<int> hits = Hits(at);
        selected = hits.isEmpty() ? NoSelection : mode == Items ? hits.first() : hits.last();
        if (mode == Items) {
            shown = selected >= 0 ? Selected().item : ItemRec{0, 0, 0, 1, {}, 600, 500, 50, 0};
        } else if (mode == Waypoints) {
            caption = selected >= 0 ? u"Waypoint %1"_s.arg(selected) : u"Waypoint"_s;
            for (const int hit : hits) { // the box shows each, and rewrites the flags if it changes
                if (reload != (Table()[hit].flags % 2 != 0)) {
                    reload = !reload;
                    Table()[hit].flags = reload ? 1 : 0;
                }
            }
        }
    }

    void Place(const QPointF& at) {
        Selected().item.PosX = std::int16_t(Rounded(at.x(), INT16_MAX));
        Selected().item.PosY = std::int16_t(Rounded(at.y(), INT16_MAX));
        band.reset();
    }

    void Move(Qt::MouseButtons buttons, const QPointF& at) {
        if (buttons == Qt::LeftButton && selected >= 0) {
            Place(at);
        } else if (buttons == Qt::RightButton && mode == Waypoints) {
            band.reset();
            if (selected >= 0) {
                band = {Selected().Position(), at};
            }
        }
    }

    void Release(Qt::MouseButtons button, const QPointF& at) {
        if (button != Qt::RightButton) {
            band.reset();
        } else if (const QList<int> hits = Hits(at); HasSelected(Waypoints) && !hits.isEmpty()) {
            Link(hits.first());
        } else if (Table().size() == Capacity(mode)) {
            told += mode == Waypoints ? u"Maximum number of waypoints reached (201)"_s
                    : mode == Items   ? u"Maximum number of items reached (51)"_s
                                      : u"Maximum number of start points reached (51)"_s;
        } else {
            Table() += mode == Items       ? Entity{Settings()}
                       : mode == Waypoints ? Entity{{.Name = {}}, std::int16_t(reload ? 1 : 0)}
                                           : Entity();
            selected = int(Table().size()) - 1;
            Place(at);
        }
    }

    void Link(int target) {
        if (Unlink(Selected(), target)) {
            band.reset();
        } else if (target != selected && Selected().links.size() < 4) {
            Selected().links.emplace_back(target, (jump ? 1 : 0) + (rope ? 2 : 0));
            band.reset();
        } else if (target != selected) {
            told += u"Maximum number of links reached"_s;
        }
    }

    /// The last link takes the place of the one that goes.
    static bool Unlink(Entity& from, int target) {
        for (auto& link : from.links) {
            if (link.first == target) {
                link = from.links.last();
                from.links.removeLast();
                return true;
            }
        }
        return false;
    }

    void Delete() {
        if (selected < 0) {
            return;
        }
        for (Entity& other : Table()) {
            while (Unlink(other, selected)) {
            }
            for (auto& link : other.links) {
                link.first = link.first == Table().size() - 1 ? selected : link.first;
            }
        }
        Selected() = Table().last();
        Table().removeLast();
        Unselect();
    }

    void SetZoom(float wanted) {
        if (wanted >= 0.25F && wanted <= 8) {
            zoom = wanted;
            band.reset();
        }
    }

    void SetMode(EditingMode wanted) {
        if (std::exchange(mode, wanted) != wanted) {
            Unselect();
        }
    }

    /// What a new item takes from the window, which has no entry for some types of files.
    [[nodiscard]] ItemRec Settings() const {
        ItemRec item = shown;
        item.PosX = item.PosY = 0;
        item.Type = item.Type < 0 || item.Type > 4 ? std::int16_t{0} : item.Type;
        return item;
    }

    [[nodiscard]] QPoint ViewPixel(const QPointF& at) const {
        return {Rounded(at.x() * zoom, INT32_MAX), Rounded(at.y() * zoom, INT32_MAX)};
    }

    /// Draws the entities of the mode and, wide, the selected one once more.
    void Paint(PersistentImage& image) {
        for (int i = 0; i < Table().size() + (selected >= 0 ? 1 : 0); ++i) {
            const bool wide = i == Table().size();
            const Entity& entity = wide ? Selected() : Table()[i];
            const QPoint at = ViewPixel(entity.Position());
            image.SetLineWidth(wide ? 3 : 1);
            image.SetLineStyle(wide ? LineStyle::Solid : LineStyle::Dotted);
            image.SetFillColour(mode == Items ? ItemColours.value(entity.item.Type, Magenta)
                                : mode == Waypoints && (wide || entity.flags != 0) ? White
                                                                                   : Black);
            image.Circle(at, mode != Waypoints ? White : wide ? Black : Blue);
            for (const auto& [target, flags] : entity.links) {
                if (target >= 0 && target < Table().size()) {
                    const QPoint to = ViewPixel(Table()[target].Position());
                    image.Line(at, to, LinkColours.value(flags, Magenta));
                }
            }
        }
        if (band) { // with the pen of the selected one
            image.Line(ViewPixel(band->first), ViewPixel(band->second), Black);
        }
    }

    static int Capacity(EditingMode mode) { return mode == Waypoints ? 201 : 51; }
};

class Monkey : public EditorFixture {
  protected:
    Monkey() {
        MakeLevel(folder, LevelSide, LevelSide);
        Open(folder);
    }

    int Number(int low, int high) { // libraries differ in their distributions
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    }
    template <class T>
    T OneOf(std::initializer_list<T> choices) {
        return choices.begin()[Number(0, static_cast<int>(choices.size()) - 1)];
    }

    // To a quarter of a level pixel: about an entity, in the level, beside it, or anywhere.
    QPointF Position() {
        if (const auto count = int(rules.Table().size()); count > 0 && Number(0, 3) > 0) {
            return rules.Table()[Number(0, count - 1)].Position() +
                   QPointF(Number(-20, 20), Number(-20, 20)) / 4;
        }
        const auto coordinate = [this] {
            return Number(0, 99) > 0 ? Number(-Margin * 4, (LevelSide + Margin) * 4) / 4.
                                     : OneOf({40000., -1e9, double(NAN)});
        };
        return {coordinate(), coordinate()};
    }

    void Both(QEvent::Type type, Qt::MouseButtons buttons, const QPointF& at) {
        Mouse(type, buttons, at * rules.zoom);
        rules.Mouse(type, buttons, at);
    }

    // Mouse events that need not belong together.
    void UseMouse() {
        if (Number(0, 19) == 0) { // the user leaves the program, or opens a menu
            QEvent left(QEvent::WindowDeactivate);
            QFocusEvent menu(QEvent::FocusOut,
                             OneOf({Qt::PopupFocusReason, Qt::MenuBarFocusReason}));
            QApplication::sendEvent(view().widget(), Number(0, 1) == 0 ? &left : &menu);
            rules.Drop();
        }
        const auto type = OneOf({QEvent::MouseMove, QEvent::MouseButtonRelease,
                                 QEvent::MouseButtonPress, QEvent::MouseButtonDblClick});
        const int move = OneOf({1, 2, Number(0, 7)}), other = OneOf({1, 2, 4});
        Both(type, Qt::MouseButtons(type == QEvent::MouseMove ? move : other), Position());
    }

    void UseKeys() {
        const auto key = OneOf({Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Backspace});
        const auto from = OneOf({Qt::NoModifier, Qt::KeypadModifier});
        Key(key, from);
        if (from == Qt::KeypadModifier && key != Qt::Key_Backspace) {
            rules.SetZoom(key == Qt::Key_Plus ? rules.zoom * 2 : rules.zoom / 2);
        }
        for (int i = Number(0, 9); i > 0; --i) {
            Both(QEvent::MouseButtonPress, Qt::LeftButton, Position());
            Key(Qt::Key_Delete);
            rules.Delete();
        }
    }

    // No text has an outer blank, which reading drops, and no Amount is the number that is not
    // written.
    void ChangeSettings() {
        using Field = std::pair<const char*, std::int16_t ItemRec::*>;
        const auto [name, number] = OneOf<Field>({{"txtName", nullptr},
                                                  {"txtAmount", &ItemRec::Amount},
                                                  {"txtRespawn", &ItemRec::Respawn},
                                                  {"txtBounce", &ItemRec::Bounce},
                                                  {"txtDist", &ItemRec::DetectDist},
                                                  {"txtGravity", &ItemRec::Gravity}});
        QString text = OneOf<QString>({{}, u"-40000"_s, u"&HFFFF"_s, u"2.5\n\u2029\0\u00e4;#"_s});
        QApplication::clipboard()->setText(text);
        text.replace(u'\n', u' ').replace(u'\u2029', u' ').replace(QChar(), u' ');
        Setting(name).clear();
        Setting(name).paste();
        QTest::keyClick(&Setting(name), Qt::Key_7);
        QTest::keyClick(&Setting(name), Qt::Key_Backspace);
        QTest::keyClick(&Setting(name), Qt::Key_Delete); // deletes no entity
        EXPECT_EQ(Setting(name).text(), text);
        const int type = Number(-1, 4);
        Setting<QComboBox>("cmbType").setCurrentIndex(type);
        const auto change = [&, number = number](ItemRec& item) {
            if (number != nullptr) {
                item.*number = RoundedFieldValue<std::int16_t>(text);
            } else {
                item.Name = text;
            }
            item.Type = type >= 0 ? std::int16_t(type) : item.Type;
        };
        change(rules.shown);
        rules.shown.Type = std::int16_t(type);
        if (rules.HasSelected(Items)) {
            change(rules.Selected().item);
        }
        const auto [box, choice] = OneOf<std::pair<const char*, bool Rules::*>>(
            {{"chkReload", &Rules::reload}, {"chkJump", &Rules::jump}, {"chkRope", &Rules::rope}});
        Setting<QCheckBox>(box).click();
        rules.*choice = !(rules.*choice);
        if (choice == &Rules::reload && rules.HasSelected(Waypoints)) {
            rules.Selected().flags = rules.reload ? 1 : 0;
            rules.band.reset();
        }
    }

    void ChangeMode() {
        const auto [option, mode] =
            OneOf<std::pair<QString, EditingMode>>({{u"optWaypoints"_s, Waypoints},
                                                    {u"optWaypoints"_s, Waypoints},
                                                    {u"optItems"_s, Items},
                                                    {u"optStart"_s, StartPoints}});
        In<QRadioButton>(settings(), option).click();
        rules.SetMode(mode);
    }

    void CloseWindows() {
        if (Number(0, 1) == 0) {
            settings().close();
            Key(Qt::Key_Backspace); // any event of the view makes the settings anew
            EXPECT_FALSE(settings().isVisible());
            rules = {rules.tables, rules.zoom, rules.held, rules.dropped};
        } else if (Number(0, 1) == 0) {
            view().close();
            Type(u"F7"_s);
            rules.held = rules.dropped = {};
        } else {
            Type(u"F7"_s);
            rules.Drop();
            Type(u"F7"_s);
        }
        DeleteClosed();
        rules.Unselect();
    }

    void SaveAndOpen() {
        if (Number(0, 1) == 0) {
            mdlEdit = AnyLevel();
            rules.tables = Entities(mdlEdit);
        }
        QFile::remove(folder.Path(u"waypoint.cfg"_s)); // none is written for no points
        Type(u"Ctrl+S"_s);
        mdlEdit = {};
        Type(u"Ctrl+O"_s);
        rules.zoom = 1;
        rules.caption = u"Waypoint"_s;
        rules.Unselect();
    }

    LevelModel AnyLevel() {
        LevelModel level = RandomLevel(random);
        level.LevelPath = mdlEdit.LevelPath;
        level.LevelFile = level.BackFile = level.MaterialFile = u"l.png"_s;
        level.NumStartPoints = level.NumItems = std::int16_t(OneOf({-1, 5, MaxItems}));
        level.NumWayPoints = OneOf({0, 5, 9, MaxWayPoints}); // few are hit one by one
        for (WaypointRec& from : level.WayPoints) {
            from.NumLinks = std::int16_t(OneOf({-1, 2, 3, 3, 4})); // often as many as can be made
            for (std::int16_t& target : from.LinkDest) { // also twice, the waypoint itself, or none
                target = std::int16_t(OneOf({-2, Number(0, 8), Number(0, 8)}));
            }
        }
        return level;
    }

    QImage Drawn(PersistentImage& image) const {
        QImage drawn(QSize(LevelSide, LevelSide) * rules.zoom, QImage::Format_RGB32);
        image.Paint(reinterpret_cast<std::uint32_t*>(drawn.bits()), drawn.width(), drawn.rect());
        return drawn;
    }

    void ExpectWhatTheRulesSay() {
        ASSERT_TRUE(Entities(mdlEdit) == rules.tables) << Text(mdlEdit).toStdString();
        ASSERT_EQ(view().curpoint, rules.selected);
        ASSERT_EQ(std::exchange(messages, {}), std::exchange(rules.told, {}));
        ASSERT_EQ(settings().ShownItem(), rules.Settings());
        ASSERT_EQ(Setting<QGroupBox>("fraWaypoint").title(), rules.caption);
        ASSERT_EQ(Setting<QCheckBox>("chkReload").isChecked(), rules.reload);
        ASSERT_EQ(Setting<QWidget>("tabWaypoint").isHidden(), rules.mode != Waypoints);
        ASSERT_EQ(Setting<QWidget>("tabObjects").isHidden(), rules.mode != Items);
        ASSERT_EQ(Setting<QWidget>("tabSpawnPoints").isHidden(), rules.mode != StartPoints);
        ASSERT_EQ(mdlEdit.Zoom, rules.zoom);
        ASSERT_EQ(view().ClientSize(), QSize(LevelSide, LevelSide) * rules.zoom);
        PersistentImage image;
        image.SetBackground(mdlEdit.LevelPicture, view().ClientSize());
        rules.Paint(image);
        ASSERT_EQ(Drawn(view().Image()), Drawn(image));
    }

    LevelFolder folder;
    std::mt19937 random;
    Rules rules;
};

TEST_F(Monkey, LeavesTheLevelThatTheRulesSayWhateverItDoes) {
    bool given = false;
    unsigned seed = qEnvironmentVariable("EDITOR_MONKEY_SEED").toUInt(&given);
    seed = given ? seed : std::random_device()();
    std::cout << "EDITOR_MONKEY_SEED=" << seed << std::endl;
    random.seed(seed);
    for (int step = 0; step < Steps && !HasFailure(); ++step) {
        SCOPED_TRACE(testing::Message() << "step " << step << " of seed " << seed);
        const int percent = Number(0, 99);
        percent < 85   ? UseMouse()
        : percent < 90 ? UseKeys()
        : percent < 94 ? ChangeSettings()
        : percent < 97 ? ChangeMode()
        : percent < 99 ? CloseWindows()
                       : SaveAndOpen();
        ExpectWhatTheRulesSay();
    }
}

} // namespace editor::test
