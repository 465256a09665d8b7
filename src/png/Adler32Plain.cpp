// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/InstructionSet.h"
#include "png/Adler32.h"

#ifndef EDITOR_SSE2

namespace editor {

std::size_t AddToSums(std::span<const std::uint8_t>, std::uint32_t&, std::uint32_t&) {
    return 0;
}

} // namespace editor

#endif
