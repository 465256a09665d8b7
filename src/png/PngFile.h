// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/PictureLimits.h"

#include <cstdint>
#include <filesystem>
#include <istream>

namespace editor {

/// Result codes of loading a PNG file.
enum LoadResult : std::int32_t { Accepted = 0, NoSuchFile = 1, NotAcceptable = 3 };

/// True when there is something of that name, whatever it is.
[[nodiscard]] bool FileExists(const std::filesystem::path& name);

/// What cPNG::LoadPNGFile() does with a file that exists.
[[nodiscard]] LoadResult LoadExistingFile(const std::filesystem::path& name,
                                          const PictureLimits& limits);

/// The same with the contents of a file of `size` bytes. Reading stops at the IEND chunk.
[[nodiscard]] LoadResult LoadContents(std::istream& file, std::uint64_t size,
                                      const PictureLimits& limits);

} // namespace editor
