// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "files/CodePage.h"

#include <algorithm>
#include <array>

namespace editor {
namespace {

constexpr int FirstMapped = 0x80;

// Bytes 80 to 9F; every other byte is the code point of the same number.
constexpr std::array<char16_t, 32> Mapped = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr bool IsMapped(int value) {
    return value >= FirstMapped && value < FirstMapped + static_cast<int>(Mapped.size());
}

std::optional<char> ByteOf(QChar character) {
    const int code = character.unicode();
    if (code <= 0xFF && !IsMapped(code)) {
        return static_cast<char>(code);
    }
    const auto* found = std::find(Mapped.begin(), Mapped.end(), character.unicode());
    if (found == Mapped.end()) {
        return std::nullopt;
    }
    return static_cast<char>(FirstMapped + (found - Mapped.begin()));
}

} // namespace

QString FromCodePage(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        const int value = static_cast<unsigned char>(byte);
        return IsMapped(value) ? QChar(Mapped[static_cast<std::size_t>(value - FirstMapped)])
                               : QChar(value);
    });
    return text;
}

std::optional<QByteArray> ToCodePage(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar character : text) {
        const std::optional<char> byte = ByteOf(character);
        if (!byte) {
            return std::nullopt;
        }
        bytes.append(*byte);
    }
    return bytes;
}

QString FirstOutsideCodePage(QStringView text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!ByteOf(text[i])) {
            const bool pair = text[i].isHighSurrogate() && i + 1 < text.size();
            return text.mid(i, pair ? 2 : 1).toString();
        }
    }
    return {};
}

} // namespace editor
