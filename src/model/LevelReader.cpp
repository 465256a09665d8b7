// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "model/LevelReader.h"

#include "files/CodePage.h"
#include "files/FileProblem.h"
#include "files/PrivateProfile.h"

#include <QDir>

#include <cstddef>
#include <cstdint>
#include <limits>

namespace editor {
namespace {

const QByteArray Map = QByteArrayLiteral("Map");
const QByteArray Physics = QByteArrayLiteral("Physics");

/// One of the two level files: the numbers in it, and what is said of one that does not fit.
class ConfigFile {
  public:
    ConfigFile(const QString& path, const QByteArray& text) : path_(path), profile_(text) {}

    template <class Integer>
    [[nodiscard]] Integer ReadInt(const QByteArray& section, const QByteArray& key,
                                  Integer missing) const {
        using Limits = std::numeric_limits<Integer>;
        const std::int64_t value = profile_.GetPrivateProfileInt(section, key, missing);
        if (value < Limits::min() || value > Limits::max()) {
            Refuse(section, key,
                   QStringLiteral("the number must lie between %1 and %2")
                       .arg(Limits::min())
                       .arg(Limits::max()));
        }
        return static_cast<Integer>(value);
    }

    /// The number of records that are in use in `table`.
    template <class Record, class Count>
    [[nodiscard]] Count ReadCount(const QByteArray& key, const Table<Record, Count>& table) const {
        const auto count = ReadInt<Count>(Map, key, 0);
        if (count > table.Capacity()) {
            Refuse(Map, key,
                   QStringLiteral("a level has at most %1 %2")
                       .arg(table.Capacity())
                       .arg(table.Things()));
        }
        return count;
    }

  protected:
    [[nodiscard]] const PrivateProfile& Profile() const { return profile_; }

  private:
    [[noreturn]] void Refuse(const QByteArray& section, const QByteArray& key,
                             const QString& reason) const {
        // A hostile value must not fill the screen.
        constexpr int ShownLength = 40;
        QString value = FromCodePage(profile_.Value(section, key));
        if (value.size() > ShownLength) {
            value = value.left(ShownLength) + QChar(0x2026);
        }
        throw FileProblem(QStringLiteral("in %1, section [%2], %3=%4: %5.")
                              .arg(QDir::toNativeSeparators(path_), QString::fromLatin1(section),
                                   QString::fromLatin1(key), value, reason));
    }

    const QString path_;
    const PrivateProfile profile_;
};

/// `level.cfg`, which alone holds texts and in which nearly all numbers have 16 bits.
class LevelCfg : public ConfigFile {
  public:
    using ConfigFile::ConfigFile;

    [[nodiscard]] QString ReadLevelString(const QByteArray& section, const QByteArray& key) const {
        return FromCodePage(Profile().GetPrivateProfileString(section, key, MaxStringLength + 1));
    }

    [[nodiscard]] std::int16_t ReadLevelInt(const QByteArray& section, const QByteArray& key,
                                            std::int16_t missing) const {
        return ReadInt(section, key, missing);
    }
};

void ReadItem(const LevelCfg& file, int index, ItemRec& item) {
    const QByteArray section = "Item." + QByteArray::number(index);
    item.Amount = file.ReadLevelInt(section, "Amount", StandardItem::Amount);
    item.PosX = file.ReadLevelInt(section, "PosX", StandardItem::Position);
    item.PosY = file.ReadLevelInt(section, "PosY", StandardItem::Position);
    item.Type = file.ReadLevelInt(section, "Type", Medikit);
    item.Name = file.ReadLevelString(section, "Name");
    item.Bounce = file.ReadLevelInt(section, "Bounce", StandardItem::Bounce);
    item.DetectDist = file.ReadLevelInt(section, "DetectDist", StandardItem::DetectDist);
    item.Gravity = file.ReadLevelInt(section, "Gravity", StandardItem::Gravity);
    item.Respawn = file.ReadLevelInt(section, "Respawn", StandardItem::Respawn);
}

void ReadWaypoint(const ConfigFile& file, int index, WaypointRec& waypoint) {
    constexpr std::int16_t NoLink = -1;
    const QByteArray section = "Point." + QByteArray::number(index);
    const auto readInt = [&](const QByteArray& key, std::int16_t missing) {
        return file.ReadInt(section, key, missing);
    };
    waypoint.X = readInt("X", 0);
    waypoint.Y = readInt("Y", 0);
    waypoint.Flags = readInt("Flags", 0);
    waypoint.NumLinks = -1;
    while (waypoint.LinkCount() < MaxLinks) {
        const std::size_t slot = waypoint.LinkCount();
        const QByteArray link = "Link" + QByteArray::number(qulonglong{slot});
        const std::int16_t target = readInt(link + ".Dest", NoLink);
        if (target == NoLink) {
            break;
        }
        waypoint.LinkDest[slot] = target;
        waypoint.LinkFlags[slot] = readInt(link + ".Flags", 0);
        ++waypoint.NumLinks;
    }
}

} // namespace

void ReadLevelCfg(const QString& path, const QByteArray& text, LevelModel& model) {
    const LevelCfg file(path, text);
    model.MaterialFile = file.ReadLevelString(Map, "Material");
    model.LevelFile = file.ReadLevelString(Map, "Level");
    model.BackFile = file.ReadLevelString(Map, "Back");
    model.ParallaxFile = file.ReadLevelString(Map, "Parallax");
    model.ParallaxScroll = file.ReadLevelInt(Map, "PScroll", 0) == 1;
    model.JumperForce = file.ReadInt<std::int32_t>(Physics, "JumperForce", 0);
    model.KickerForce = file.ReadInt<std::int32_t>(Physics, "KickerForce", 0);

    const auto startPoints = model.StartPointTable();
    model.NumStartPoints = file.ReadCount("NumStartPoints", startPoints);
    for (int n = 0; n < startPoints.Size(); ++n) {
        startPoints[n].X = file.ReadLevelInt(Map, "StartX" + QByteArray::number(n), 0);
        startPoints[n].Y = file.ReadLevelInt(Map, "StartY" + QByteArray::number(n), 0);
    }

    const auto items = model.ItemTable();
    model.NumItems = file.ReadCount("NumItems", items);
    for (int n = 0; n < items.Size(); ++n) {
        ReadItem(file, n, items[n]);
    }
}

void ReadWaypointCfg(const QString& path, const QByteArray& text, LevelModel& model) {
    const ConfigFile file(path, text);
    const auto waypoints = model.WayPointTable();
    model.NumWayPoints = file.ReadCount("NumWayPoints", waypoints);
    for (int n = 0; n < waypoints.Size(); ++n) {
        ReadWaypoint(file, n, waypoints[n]);
    }
}

} // namespace editor
