// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/mdlPNG.h"

#include <cstdint>
#include <span>

namespace editor {

/// Reconstructs rows of a filtered image (RowBytes() bytes each) where they lie: each then has its
/// pixel data behind its filter-type byte, in the layout of the file. `previous` are the pixel data
/// of the row before, reconstructed; empty for the top row. A filter-type byte that names no filter
/// leaves its row as it is.
void Unfilter(const HeaderRec& header, std::span<std::uint8_t> rows,
              std::span<const std::uint8_t> previous);

} // namespace editor
