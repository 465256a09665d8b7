// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/mdlPNG.h"

#include <cstdint>
#include <span>

namespace editor {

/// Walks over the chunks of a PNG file, checks each against the rules and stores it in the chunk
/// table of mdlPNG, up to and with IEND. `file` must stay where it is as long as the table.
///
/// Returns false when the file is refused: no PNG signature, a chunk that is invalid or out of its
/// place, a header that cannot be decoded, a critical chunk that is not known, a palette image
/// without a palette, or a file that ends too early. The table then holds what came before. On
/// true `header` is that of the file, all 0 when it has no IHDR chunk.
///
/// Throws std::overflow_error for a chunk length that does not fit in signed 32 bits.
[[nodiscard]] bool ReadChunks(std::span<const std::uint8_t> file, HeaderRec& header);

/// True when the bytes begin with the PNG signature.
[[nodiscard]] bool CheckSignature(std::span<const std::uint8_t> bytes);
inline constexpr std::size_t SignatureSize = 8;

} // namespace editor
