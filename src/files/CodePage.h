// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <optional>

namespace editor {

/// The single-byte code page of the level files, Windows-1252, after the table that the WHATWG
/// Encoding Standard gives for "windows-1252": the five bytes that the code page leaves undefined
/// (81, 8D, 8F, 90, 9D) stand for the code points of the same number, so that every byte becomes
/// one character and comes back as the same byte.
[[nodiscard]] QString FromCodePage(QByteArrayView bytes);

/// The text as bytes of the code page, one per character; nothing when a character has no byte.
[[nodiscard]] std::optional<QByteArray> ToCodePage(QStringView text);

/// The first character that the code page cannot hold, as it stands in the text (a pair of
/// surrogates as one); empty when there is none.
[[nodiscard]] QString FirstOutsideCodePage(QStringView text);

} // namespace editor
