// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "model/LevelReader.h"

#include "files/CodePage.h"
#include "files/PrivateProfile.h"

#include <QDir>

#include <limits>

namespace editor {
namespace {

const QByteArray Map = QByteArrayLiteral("Map");
const QByteArray Physics = QByteArrayLiteral("Physics");

} // namespace

bool LevelReader::ReadLevelCfg(const PrivateProfile& profile) {
    profile_ = &profile;
    inWaypointCfg_ = false;

    model_.MaterialFile = ReadLevelString(Map, "Material");
    model_.LevelFile = ReadLevelString(Map, "Level");
    model_.BackFile = ReadLevelString(Map, "Back");
    model_.ParallaxFile = ReadLevelString(Map, "Parallax");
    model_.ParallaxScroll = ReadLevelInt(Map, "PScroll", 0) == 1;
    model_.JumperForce = ReadInt<std::int32_t>(Physics, "JumperForce", 0);
    model_.KickerForce = ReadInt<std::int32_t>(Physics, "KickerForce", 0);

    model_.NumStartPoints =
        ReadCount<std::int16_t>("NumStartPoints", MaxStartPoints, QStringLiteral("start points"));
    for (int n = 0; n < model_.NumStartPoints && !misfit_; ++n) {
        StartPointRec& point = model_.StartPoints[static_cast<std::size_t>(n)];
        const QByteArray number = QByteArray::number(n);
        point.X = ReadLevelInt(Map, "StartX" + number, 0);
        point.Y = ReadLevelInt(Map, "StartY" + number, 0);
    }

    model_.NumItems = ReadCount<std::int16_t>("NumItems", MaxItems, QStringLiteral("items"));
    for (int n = 0; n < model_.NumItems && !misfit_; ++n) {
        ReadItem(n);
    }
    return !misfit_;
}

bool LevelReader::ReadWaypointCfg(const PrivateProfile& profile) {
    profile_ = &profile;
    inWaypointCfg_ = true;

    model_.NumWayPoints =
        ReadCount<std::int32_t>("NumWayPoints", MaxWayPoints, QStringLiteral("waypoints"));
    for (int n = 0; n < model_.NumWayPoints && !misfit_; ++n) {
        ReadWaypoint(n);
    }
    return !misfit_;
}

void LevelReader::ReadItem(int index) {
    ItemRec& item = model_.Items[static_cast<std::size_t>(index)];
    const QByteArray section = "Item." + QByteArray::number(index);
    item.Amount = ReadLevelInt(section, "Amount", StandardItem::Amount);
    item.PosX = ReadLevelInt(section, "PosX", StandardItem::Position);
    item.PosY = ReadLevelInt(section, "PosY", StandardItem::Position);
    item.Type = ReadLevelInt(section, "Type", Medikit);
    item.Name = ReadLevelString(section, "Name");
    item.Bounce = ReadLevelInt(section, "Bounce", StandardItem::Bounce);
    item.DetectDist = ReadLevelInt(section, "DetectDist", StandardItem::DetectDist);
    item.Gravity = ReadLevelInt(section, "Gravity", StandardItem::Gravity);
    item.Respawn = ReadLevelInt(section, "Respawn", StandardItem::Respawn);
}

void LevelReader::ReadWaypoint(int index) {
    constexpr std::int16_t NoLink = -1;
    WaypointRec& waypoint = model_.WayPoints[static_cast<std::size_t>(index)];
    const QByteArray section = "Point." + QByteArray::number(index);
    waypoint.X = ReadLevelInt(section, "X", 0);
    waypoint.Y = ReadLevelInt(section, "Y", 0);
    waypoint.Flags = ReadLevelInt(section, "Flags", 0);
    waypoint.NumLinks = -1;
    for (std::size_t j = 0; j < MaxLinks; ++j) {
        const QByteArray link = "Link" + QByteArray::number(static_cast<int>(j));
        const std::int16_t target = ReadLevelInt(section, link + ".Dest", NoLink);
        if (target == NoLink) {
            break;
        }
        waypoint.LinkDest[j] = target;
        waypoint.LinkFlags[j] = ReadLevelInt(section, link + ".Flags", 0);
        waypoint.NumLinks = static_cast<std::int16_t>(j);
    }
}

QString LevelReader::ReadLevelString(const QByteArray& section, const QByteArray& key) const {
    return FromCodePage(profile_->GetPrivateProfileString(section, key, MaxStringLength + 1));
}

std::int16_t LevelReader::ReadLevelInt(const QByteArray& section, const QByteArray& key,
                                       std::int16_t missing) {
    return ReadInt<std::int16_t>(section, key, missing);
}

template <class Integer>
Integer LevelReader::ReadInt(const QByteArray& section, const QByteArray& key, Integer missing) {
    using Limits = std::numeric_limits<Integer>;
    const std::int64_t value = profile_->GetPrivateProfileInt(section, key, missing);
    if (value < Limits::min() || value > Limits::max()) {
        Remember(section, key,
                 QStringLiteral("the number must lie between %1 and %2")
                     .arg(Limits::min())
                     .arg(Limits::max()));
        return missing;
    }
    return static_cast<Integer>(value);
}

template <class Integer>
Integer LevelReader::ReadCount(const QByteArray& key, int capacity, const QString& things) {
    const auto count = ReadInt<Integer>(Map, key, 0);
    if (count > capacity) {
        Remember(Map, key, QStringLiteral("a level has at most %1 %2").arg(capacity).arg(things));
        return 0;
    }
    return count;
}

void LevelReader::Remember(const QByteArray& section, const QByteArray& key,
                           const QString& reason) {
    if (!misfit_) {
        misfit_ = Misfit{inWaypointCfg_, section, key, profile_->Value(section, key).toByteArray(),
                         reason};
    }
}

QString LevelReader::Problem(const QString& levelPath, const QString& waypointPath) const {
    if (!misfit_) {
        return {};
    }
    // A hostile value must not fill the screen.
    constexpr int ShownLength = 40;
    QString value = FromCodePage(misfit_->value);
    if (value.size() > ShownLength) {
        value = value.left(ShownLength) + QChar(0x2026);
    }
    const QString path =
        QDir::toNativeSeparators(misfit_->inWaypointCfg ? waypointPath : levelPath);
    return QStringLiteral("in %1, section [%2], %3=%4: %5.")
        .arg(path, QString::fromLatin1(misfit_->section), QString::fromLatin1(misfit_->key), value,
             misfit_->reason);
}

} // namespace editor
