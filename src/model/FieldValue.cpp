// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "model/FieldValue.h"

#include <QByteArray>
#include <QLocale>

#include <limits>

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

qsizetype SkipDigits(QByteArrayView text, qsizetype from) {
    while (from < text.size() && DigitValue(text[from]) <= 9) {
        ++from;
    }
    return from;
}

qsizetype SkipSign(QByteArrayView text, qsizetype from) {
    return from < text.size() && (text[from] == '+' || text[from] == '-') ? from + 1 : from;
}

// The sign, digits, fraction and exponent with which `text` begins, each as far as it is there.
double DecimalNumber(QByteArrayView text) {
    const qsizetype first = SkipSign(text, 0);
    qsizetype end = SkipDigits(text, first);
    qsizetype digits = end - first;
    if (end < text.size() && text[end] == '.') {
        const qsizetype fraction = end + 1;
        end = SkipDigits(text, fraction);
        digits += end - fraction;
    }
    if (digits == 0) {
        return 0;
    }
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        const qsizetype exponent = SkipSign(text, end + 1);
        const qsizetype exponentEnd = SkipDigits(text, exponent);
        end = exponentEnd > exponent ? exponentEnd : end;
    }
    // Infinite when too large, 0 when too small.
    return QLocale::c().toDouble(QString::fromLatin1(text.first(end)));
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
