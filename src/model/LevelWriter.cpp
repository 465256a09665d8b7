// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "model/LevelWriter.h"

#include "files/CodePage.h"
#include "files/FileProblem.h"

#include <QString>

#include <cstddef>
#include <optional>

namespace editor {
namespace {

/// Collects the lines of one file.
class Lines {
  public:
    void Blank() { bytes_ += "\r\n"; }

    void Section(const QByteArray& name) { bytes_ += "[" + name + "]\r\n"; }

    void Number(const QByteArray& key, int value) {
        bytes_ += key + "=" + QByteArray::number(value) + "\r\n";
    }

    void NumberUnless(int omitted, const QByteArray& key, int value) {
        if (value != omitted) {
            Number(key, value);
        }
    }

    /// `field` names the value as a person knows it, for the message.
    void Text(const QByteArray& key, const QString& value, const QString& field) {
        const std::optional<QByteArray> encoded = ToCodePage(value);
        if (!encoded) {
            const QString character = FirstOutsideCodePage(value);
            Refuse(field, QStringLiteral("the character \"%1\" (U+%2) does not exist in the game's "
                                         "code page, Windows-1252")
                              .arg(character, CodePoint(character)));
        }
        if (encoded->contains('\r') || encoded->contains('\n') || encoded->contains('\0')) {
            Refuse(field, QStringLiteral("it holds a line break or a NUL character"));
        }
        bytes_ += key + "=" + *encoded + "\r\n";
    }

    void TextUnlessEmpty(const QByteArray& key, const QString& value, const QString& field) {
        if (!value.isEmpty()) {
            Text(key, value, field);
        }
    }

    [[nodiscard]] const QByteArray& Bytes() const { return bytes_; }

  private:
    static QString CodePoint(const QString& character) {
        return QStringLiteral("%1").arg(character.toUcs4().value(0), 4, 16, QChar(u'0')).toUpper();
    }

    [[noreturn]] static void Refuse(const QString& field, const QString& reason) {
        throw FileProblem(QStringLiteral("The level was not saved: the %1 cannot be written: %2.")
                              .arg(field, reason));
    }

    QByteArray bytes_;
};

void WriteItem(Lines& lines, const ItemRec& item, int index) {
    lines.Section("Item." + QByteArray::number(index));
    lines.Number("Type", item.Type);
    lines.Number("PosX", item.PosX);
    lines.Number("PosY", item.PosY);
    lines.NumberUnless(StandardItem::UnwrittenAmount, "Amount", item.Amount);
    lines.TextUnlessEmpty("Name", item.Name, QStringLiteral("Name of item %1").arg(index));
    lines.NumberUnless(StandardItem::Bounce, "Bounce", item.Bounce);
    lines.NumberUnless(StandardItem::DetectDist, "DetectDist", item.DetectDist);
    lines.NumberUnless(StandardItem::Gravity, "Gravity", item.Gravity);
    lines.NumberUnless(StandardItem::Respawn, "Respawn", item.Respawn);
    lines.Blank();
}

void WriteWaypoint(Lines& lines, const WaypointRec& waypoint, int index) {
    lines.Section("Point." + QByteArray::number(index));
    lines.Number("X", waypoint.X);
    lines.Number("Y", waypoint.Y);
    lines.NumberUnless(0, "Flags", waypoint.Flags);
    for (std::size_t slot = 0; slot < waypoint.LinkCount(); ++slot) {
        const QByteArray link = "Link" + QByteArray::number(qulonglong{slot});
        lines.Number(link + ".Dest", waypoint.LinkDest[slot]);
        lines.NumberUnless(0, link + ".Flags", waypoint.LinkFlags[slot]);
    }
    lines.Blank();
}

} // namespace

QByteArray WriteLevelCfg(const LevelModel& model) {
    Lines lines;
    lines.Section("Map");
    lines.Text("Back", model.BackFile, QStringLiteral("name of the background graphics"));
    lines.Text("Level", model.LevelFile, QStringLiteral("name of the level graphics"));
    lines.Text("Material", model.MaterialFile, QStringLiteral("name of the material graphics"));
    lines.TextUnlessEmpty("Parallax", model.ParallaxFile,
                          QStringLiteral("name of the parallax graphics"));
    lines.Blank();
    lines.Number("NumItems", model.NumItems);
    lines.Blank();
    lines.NumberUnless(0, "PScroll", model.ParallaxScroll ? 1 : 0);
    lines.Blank();
    lines.Number("NumStartPoints", model.NumStartPoints);
    const auto startPoints = model.StartPointTable();
    for (int n = 0; n < startPoints.Size(); ++n) {
        const StartPointRec& point = startPoints[n];
        lines.Number("StartX" + QByteArray::number(n), point.X);
        lines.Number("StartY" + QByteArray::number(n), point.Y);
        lines.Blank();
    }
    lines.Blank();
    lines.Section("Physics");
    lines.NumberUnless(0, "JumperForce", model.JumperForce);
    lines.NumberUnless(0, "KickerForce", model.KickerForce);
    lines.Blank();
    for (int n = 0; n < model.ItemTable().Size(); ++n) {
        WriteItem(lines, model.ItemTable()[n], n);
    }
    return lines.Bytes();
}

QByteArray WriteWaypointCfg(const LevelModel& model) {
    Lines lines;
    lines.Section("Map");
    lines.Number("NumWayPoints", model.NumWayPoints);
    lines.Blank();
    for (int n = 0; n < model.WayPointTable().Size(); ++n) {
        WriteWaypoint(lines, model.WayPointTable()[n], n);
    }
    return lines.Bytes();
}

} // namespace editor
