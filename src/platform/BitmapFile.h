#pragma once

#include "platform/Picture.h"

#include <QString>

#include <optional>

namespace editor {

/// Loads a BMP file, told by its content and not by its name. Nothing when the file is missing, is
/// no ordinary file, is no bitmap, is truncated, or is wider or higher than `maximumSide` pixels.
[[nodiscard]] std::optional<Picture> LoadBitmapFile(const QString& path, int maximumSide);

} // namespace editor
