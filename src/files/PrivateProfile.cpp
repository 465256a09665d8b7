// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "files/PrivateProfile.h"

#include <algorithm>
#include <limits>

namespace editor {
namespace {

constexpr bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

QByteArrayView Stripped(QByteArrayView text) {
    while (!text.isEmpty() && IsBlank(text.front())) {
        text = text.sliced(1);
    }
    while (!text.isEmpty() && IsBlank(text.back())) {
        text.chop(1);
    }
    return text;
}

QByteArrayView WithoutQuotes(QByteArrayView value) {
    if (value.size() >= 2 && value.front() == value.back() &&
        (value.front() == '"' || value.front() == '\'')) {
        return value.sliced(1, value.size() - 2);
    }
    return value;
}

} // namespace

bool PrivateProfile::Before::operator()(QByteArrayView a, QByteArrayView b) const {
    return a.compare(b, Qt::CaseInsensitive) < 0; // ignores the case of ASCII letters only
}

bool PrivateProfile::Before::operator()(const Name& a, const Name& b) const {
    return a.section != b.section ? a.section < b.section : (*this)(a.key, b.key);
}

PrivateProfile::PrivateProfile(const QByteArray& text) : text_(text) {
    QByteArrayView rest(text_);
    if (rest.startsWith("\xEF\xBB\xBF")) {
        rest = rest.sliced(3);
    }
    while (!rest.isEmpty()) {
        const auto* end =
            std::find_if(rest.begin(), rest.end(), [](char c) { return c == '\r' || c == '\n'; });
        const qsizetype length = end - rest.begin();
        AddLine(rest.first(length));
        rest = rest.sliced(std::min(length + 1, rest.size()));
    }
}

void PrivateProfile::AddLine(QByteArrayView line) {
    line = Stripped(line);
    if (line.isEmpty() || line.front() == ';') {
        return;
    }
    if (line.front() == '[') {
        const qsizetype end = line.indexOf(']');
        if (end > 0) {
            const int next = static_cast<int>(sections_.size());
            const bool first =
                sections_.try_emplace(Stripped(line.sliced(1, end - 1)), next).second;
            current_ = first ? next : NoSection;
            return;
        }
    }
    const qsizetype equals = line.indexOf('=');
    if (equals < 0 || current_ == NoSection) {
        return;
    }
    values_.try_emplace(Name{current_, Stripped(line.first(equals))},
                        WithoutQuotes(Stripped(line.sliced(equals + 1))));
}

QByteArrayView PrivateProfile::Value(QByteArrayView section, QByteArrayView key) const {
    const auto number = sections_.find(section);
    if (number == sections_.end()) {
        return {};
    }
    const auto value = values_.find(Name{number->second, key});
    return value == values_.end() ? QByteArrayView() : value->second;
}

QByteArray PrivateProfile::GetPrivateProfileString(QByteArrayView section, QByteArrayView key,
                                                   qsizetype size) const {
    QByteArrayView value = Value(section, key);
    value = value.first(std::min(value.size(), size - 1));
    const qsizetype nul = value.indexOf('\0');
    return (nul < 0 ? value : value.first(nul)).toByteArray();
}

std::int64_t PrivateProfile::GetPrivateProfileInt(QByteArrayView section, QByteArrayView key,
                                                  std::int64_t missing) const {
    QByteArrayView digits = Value(section, key);
    if (digits.isNull()) {
        return missing;
    }
    const bool negative = digits.startsWith('-');
    if (negative || digits.startsWith('+')) {
        digits = digits.sliced(1);
    }
    constexpr std::int64_t Limit = std::numeric_limits<std::int64_t>::max();
    std::int64_t number = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9') {
            break;
        }
        const int digit = c - '0';
        number = number > (Limit - digit) / 10 ? Limit : number * 10 + digit;
    }
    return negative ? -number : number;
}

} // namespace editor
