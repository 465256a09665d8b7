// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "model/FieldValue.h"

#include <QByteArray>
#include <QLocale>

#include <charconv>
#include <limits>
#include <system_error>

namespace editor {
namespace {

// The text in ASCII without what is ignored; any other character ends every number.
QByteArray Significant(QStringView text) {
    QByteArray kept;
    for (const QChar c : text) {
        if (c != u' ' && c != u'\t' && c != u'\n') {
            kept.append(c.unicode() < 0x80 ? static_cast<char>(c.unicode()) : '?');
        }
    }
    return kept;
}

int DigitValue(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return std::numeric_limits<int>::max();
}

double WholeNumber(QByteArrayView digits, int base) {
    double value = 0;
    for (const char c : digits) {
        const int digit = DigitValue(c);
        if (digit >= base) {
            break;
        }
        value = value * base + digit;
    }
    return value;
}

// std::from_chars takes no "+" and would take "inf" and "nan"; it gives no value when the number is
// too large or too small to hold.
double DecimalNumber(QByteArrayView text) {
    const bool negative = text.startsWith('-');
    if (negative || text.startsWith('+')) {
        text = text.sliced(1);
    }
    if (text.isEmpty() || (text.front() != '.' && DigitValue(text.front()) > 9)) {
        return 0;
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.begin(), text.end(), value);
    if (error == std::errc::result_out_of_range) {
        // Infinite when too large, 0 when too small.
        value = QLocale::c().toDouble(QString::fromLatin1(text.first(end - text.begin())));
    }
    return negative ? -value : value;
}

} // namespace

double FieldValue(QStringView text) {
    const QByteArray kept = Significant(text);
    const QByteArrayView view(kept);
    if (view.size() >= 2 && view[0] == '&') {
        switch (view[1]) {
        case 'h':
        case 'H':
            return WholeNumber(view.sliced(2), 16);
        case 'o':
        case 'O':
            return WholeNumber(view.sliced(2), 8);
        default:
            return 0;
        }
    }
    return DecimalNumber(view);
}

} // namespace editor
