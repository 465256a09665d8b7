// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/LargeBuffer.h"

#include <cstdint>
#include <filesystem>

namespace editor {

/// Result codes of loading a PNG file.
enum LoadResult : std::int32_t { Accepted = 0, NoSuchFile = 1, NotAcceptable = 3 };

/// True when there is something of that name, whatever it is.
[[nodiscard]] bool FileExists(const std::filesystem::path& name);

/// The bytes of an ordinary file. Of a file that does not begin with the PNG signature only as
/// many as tell that; nothing of what is no ordinary file (a folder, or a pipe, socket or device,
/// opening which could block for ever or have effects) or cannot be opened. Throws
/// std::overflow_error for a file of 2 GiB or more, and std::bad_alloc.
[[nodiscard]] LargeBuffer ReadPngFile(const std::filesystem::path& name);

/// What cPNG::LoadPNGFile() does with the bytes of a file: Accepted or NotAcceptable, and the same
/// errors.
[[nodiscard]] LoadResult LoadPNGBytes(LargeBuffer bytes);

} // namespace editor
