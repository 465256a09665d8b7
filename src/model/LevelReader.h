// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/mdlEdit.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace editor {

class PrivateProfile;

/// Turns the two level files into a level model, key by key in the order of the format. The first
/// value that the model cannot hold ends the reading and is remembered.
class LevelReader {
  public:
    /// Longest string value that is read, in characters.
    static constexpr int MaxStringLength = 199;

    /// Reads into `model`, which is half changed when a reading ends early.
    explicit LevelReader(LevelModel& model) : model_(model) {}

    /// Each returns false when it met a value that does not fit.
    [[nodiscard]] bool ReadLevelCfg(const PrivateProfile& profile);
    [[nodiscard]] bool ReadWaypointCfg(const PrivateProfile& profile);

    /// What did not fit, with file, section, key, value and reason, as the rest of a sentence.
    [[nodiscard]] QString Problem(const QString& levelPath, const QString& waypointPath) const;

  private:
    struct Misfit {
        bool inWaypointCfg = false;
        QByteArray section;
        QByteArray key;
        QByteArray value;
        QString reason;
    };

    [[nodiscard]] QString ReadLevelString(const QByteArray& section, const QByteArray& key) const;
    template <class Integer>
    Integer ReadInt(const QByteArray& section, const QByteArray& key, Integer missing);
    std::int16_t ReadLevelInt(const QByteArray& section, const QByteArray& key,
                              std::int16_t missing);
    template <class Integer>
    Integer ReadCount(const QByteArray& key, int capacity, const QString& things);
    void ReadItem(int index);
    void ReadWaypoint(int index);
    void Remember(const QByteArray& section, const QByteArray& key, const QString& reason);

    LevelModel& model_;
    const PrivateProfile* profile_ = nullptr;
    bool inWaypointCfg_ = false;
    std::optional<Misfit> misfit_;
};

} // namespace editor
