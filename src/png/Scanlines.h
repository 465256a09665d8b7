// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/mdlPNG.h"

#include <cstdint>
#include <span>

namespace editor {

/// Reconstructs rows of a filtered image (RowBytes() bytes each) in place: after its filter-type
/// byte each row then has its pixel data, in the layout of the file. `previous` is the pixel data
/// of the row above the first one, reconstructed; zeros above the top row of the image. A
/// filter-type byte that names no filter leaves its row as it is.
void Unfilter(const HeaderRec& header, std::span<std::uint8_t> rows,
              std::span<const std::uint8_t> previous);

} // namespace editor
