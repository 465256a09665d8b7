// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/FileReader.h"
#include "png/mdlPNG.h"

#include <cstddef>
#include <istream>

namespace editor {

inline constexpr std::size_t SignatureSize = 8;

/// True when the file begins with the PNG signature, which is read.
[[nodiscard]] bool CheckSignature(std::istream& file);

/// Walks over the chunks of a PNG file, which follow its signature, checks each against the rules
/// and stores it in the chunk table of mdlPNG, up to and including IEND.
///
/// Returns false when the file is refused: a chunk that is invalid or out of place, a header that
/// cannot be decoded, an unknown critical chunk, a palette image without a palette, or a file that
/// ends too early. The table then holds what came before. On true `header` is that of the file, all
/// 0 when it has no IHDR chunk.
///
/// Throws std::overflow_error for a chunk length that does not fit in signed 32 bits, what
/// FileReader throws, and std::bad_alloc when the chunks with their table take more memory than
/// `limits` allow.
[[nodiscard]] bool ReadChunks(FileReader& reader, const PictureLimits& limits, HeaderRec& header);

} // namespace editor
