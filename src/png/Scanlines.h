// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/mdlPNG.h"

#include <cstdint>
#include <span>

namespace editor {

/// The `count` rows from `first` on of a filtered image (Height x RowBytes() bytes), reconstructed
/// where they lie: row y then has its pixel data from byte y x RowBytes() + 1 on, in the layout of
/// the file. The rows before `first` must have been reconstructed already. A filter-type byte that
/// names no filter leaves its row as it is.
void Unfilter(const HeaderRec& header, std::span<std::uint8_t> filtered, std::int32_t first,
              std::int32_t count);

} // namespace editor
