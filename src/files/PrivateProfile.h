// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <map>
#include <string_view>

namespace editor {

/// A text file of "[section]" lines and "key=value" lines, read and parsed once, with the look-ups
/// of the platform that the game runs on. The rules are those documented for
/// GetPrivateProfileString and GetPrivateProfileInt, and where the documentation is silent those
/// observed there:
///
/// - Section and key names ignore the case of ASCII letters. Blanks and tabs around a section, a
///   key and a value are dropped, and so is one matching outer pair of quotes around a value.
/// - A line whose first other character is ";" is a comment; "#" and a later ";" are data.
/// - The first section of a name counts, and in it the first key of a name.
/// - A section's name ends at the first "]". A line without "=" is no key; keys before the first
///   section cannot be reached.
/// - CR and LF, alone or together, end a line. A UTF-8 byte-order mark at the start is skipped.
class PrivateProfile {
  public:
    /// The largest file that is read, in bytes; a level's own files have some 50 KiB at most.
    static constexpr qint64 MaximumSize = 8 * 1024 * 1024;

    /// An empty profile: every key is missing.
    PrivateProfile() = default;

    /// The profile that `text` holds. No text is malformed.
    explicit PrivateProfile(const QByteArray& text);

    // The index points into the text, which a copy would share and a move would keep.
    PrivateProfile(const PrivateProfile&) = delete;
    PrivateProfile& operator=(const PrivateProfile&) = delete;
    PrivateProfile(PrivateProfile&&) = default;
    PrivateProfile& operator=(PrivateProfile&&) = default;

    /// Reads the file `path`. A file that does not exist gives an empty profile. Returns an empty
    /// text, or the reason why an existing file could not be read, and then leaves *this alone.
    [[nodiscard]] QString Load(const QString& path);

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
        std::string_view key;
    };
    struct Before {
        bool operator()(std::string_view a, std::string_view b) const;
        bool operator()(const Name& a, const Name& b) const;
    };

    static constexpr int NoSection = -1; // before the first section, or in a repeated one

    QByteArray text_;
    // Ordered, not hashed: a file could be full of names that share one hash, and take hours.
    std::map<std::string_view, int, Before> sections_;
    std::map<Name, std::string_view, Before> values_;
    int current_ = NoSection;
};

} // namespace editor
