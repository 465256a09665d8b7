// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/InstructionSet.h"
#include "pictures/WideRows.h"

#ifndef EDITOR_SSE2

namespace editor {

std::int32_t LookUpColours(std::uint32_t*, const std::uint8_t*, std::int32_t, const ColourTable&) {
    return 0;
}

std::int32_t WidenTriples(std::uint32_t*, const std::uint8_t*, std::int32_t) {
    return 0;
}

std::int32_t SwapTriples(std::uint8_t*, const std::uint8_t*, std::int32_t) {
    return 0;
}

std::int32_t BlendPixels(std::uint32_t*, const std::uint32_t*, const std::uint8_t*, std::int32_t) {
    return 0;
}

void Prefetch(const std::uint32_t*, const std::uint32_t*) {}

} // namespace editor

#endif
