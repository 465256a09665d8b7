// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "inflate/Adler32.h"
#include "pictures/InstructionSet.h"

#ifndef EDITOR_SSE2

namespace editor {

std::size_t AddToSums(std::span<const std::uint8_t>, std::uint32_t&, std::uint32_t&) {
    return 0;
}

} // namespace editor

#endif
