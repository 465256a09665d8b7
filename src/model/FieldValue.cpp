// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "model/FieldValue.h"

#include <QLocale>
#include <QRegularExpression>
#include <QString>

namespace editor {
namespace {

// Whole, and of any length.
double NumberOf(QStringView digits, int base) {
    double value = 0;
    for (qsizetype i = 0; i < digits.size(); ++i) {
        value = value * base + digits.sliced(i, 1).toInt(nullptr, base);
    }
    return value;
}

} // namespace

double FieldValue(QStringView text) {
    static const QRegularExpression Ignored(QStringLiteral("[ \\t\\n]"));
    static const QRegularExpression Number(
        QStringLiteral("^(?:&h(?<hex>[0-9a-f]+)|&o(?<oct>[0-7]+)|"
                       "(?<dec>[+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:e[+-]?[0-9]+)?))"),
        QRegularExpression::CaseInsensitiveOption);
    // Through Latin-1, since no expression matches a text with half a pair of surrogates.
    const QString significant = QString::fromLatin1(text.toLatin1()).remove(Ignored);
    const QRegularExpressionMatch number = Number.match(significant);
    if (number.hasCaptured(u"hex")) {
        return NumberOf(number.capturedView(u"hex"), 16);
    }
    if (number.hasCaptured(u"oct")) {
        return NumberOf(number.capturedView(u"oct"), 8);
    }
    // Infinite when too large, 0 when too small or when there is no number.
    return QLocale::c().toDouble(number.capturedView(u"dec"));
}

} // namespace editor
