// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <map>

namespace editor {

/// A text of "[section]" lines and "key=value" lines, parsed once, with the look-ups of the
/// platform that the game runs on. The rules are those documented for GetPrivateProfileString and
/// GetPrivateProfileInt, and, where the documentation is silent, those observed there:
///
/// - Letter case in the names of sections and keys is ignored, for ASCII letters. Blanks and tabs
///   around a section, a key or a value are dropped, and so is one pair of quotes around a value.
/// - A line that begins with ";" or with blanks and ";" is a comment; "#" and a later ";" are text.
/// - Of several sections with the same name the first counts, and in it of several keys the first.
/// - A section's name ends at the first "]". A line without "=" says nothing, nor does one before
///   the first section.
/// - CR and LF, alone or together, end a line. A UTF-8 byte-order mark at the start is skipped.
class PrivateProfile {
  public:
    /// The profile that `text` holds. No text is malformed.
    explicit PrivateProfile(const QByteArray& text);

    /// The value as it stands in the file, without the blanks and quotes around it; a null view
    /// when the section or the key is missing.
    [[nodiscard]] QByteArrayView Value(QByteArrayView section, QByteArrayView key) const;

    /// The value of a key cut to `size` - 1 bytes and then to what comes before its first NUL, as
    /// GetPrivateProfileStringA leaves it in a buffer of `size` bytes; empty when missing.
    [[nodiscard]] QByteArray GetPrivateProfileString(QByteArrayView section, QByteArrayView key,
                                                     qsizetype size) const;

    /// The decimal number that the value of a key begins with (an optional sign, then digits; 0
    /// when it begins with none), or `missing` when there is no such key. A number outside 64 bits
    /// becomes the nearest limit.
    [[nodiscard]] std::int64_t GetPrivateProfileInt(QByteArrayView section, QByteArrayView key,
                                                    std::int64_t missing) const;

  private:
    void AddLine(QByteArrayView line);

    struct Name {
        int section = 0; // running number among the different section names
        QByteArrayView key;
    };
    struct Before {
        bool operator()(QByteArrayView a, QByteArrayView b) const;
        bool operator()(const Name& a, const Name& b) const;
    };

    static constexpr int NoSection = -1; // before the first section, or in a repeated one

    QByteArray text_;
    // Ordered, not hashed: a file could be full of names that share one hash, and take hours.
    std::map<QByteArrayView, int, Before> sections_;
    std::map<Name, QByteArrayView, Before> values_;
    int current_ = NoSection;
};

} // namespace editor
