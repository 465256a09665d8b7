// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Rounding.h"

#include <QStringView>

namespace editor {

/// The number that a typed text begins with: an optional sign, digits with an optional point and
/// an exponent (e or E), up to the first character that cannot continue it. Blanks, tabs and line
/// feeds are ignored wherever they stand. &H and &O in either case begin a hexadecimal or octal
/// number, taken as its plain value (&HFFFF is 65535). 0 when the text begins with no number.
/// May be infinite, never "not a number"; does not depend on the locale.
[[nodiscard]] double FieldValue(QStringView text);

/// The field value of a text as a field of the model holds it.
template <class Integer>
[[nodiscard]] Integer RoundedFieldValue(QStringView text) {
    return RoundTo<Integer>(FieldValue(text));
}

} // namespace editor
