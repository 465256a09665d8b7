// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "windows/TextBox.h"

#include <QValidator>

namespace editor {
namespace {

bool BreaksLine(QChar c) {
    switch (c.unicode()) {
    case u'\0':
    case u'\n':
    case u'\r':
    case 0x0085: // next line
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
        return true;
    default:
        return false;
    }
}

// A validator may correct the text that it is asked about; this one does so and accepts any.
class SingleLine : public QValidator {
  public:
    using QValidator::QValidator;

    State validate(QString& text, int&) const override {
        for (QChar& c : text) {
            if (BreaksLine(c)) {
                c = u' ';
            }
        }
        return Acceptable;
    }
};

} // namespace

TextBox::TextBox(QWidget* parent) : QLineEdit(parent) {
    setValidator(new SingleLine(this));
}

} // namespace editor
