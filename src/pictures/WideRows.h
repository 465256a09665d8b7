// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>

namespace editor {

// Work on rows of pixels, several pixels at a time where the processor has instructions for it.
// Each function that returns a number does that many pixels from the first one on, at most `count`,
// and leaves the rest of the row to its caller. In plain C++ that number is 0.

/// The colours of any byte.
using ColourTable = std::array<std::uint32_t, 256>;

/// Makes pixels of 8-bit indices.
[[nodiscard]] std::int32_t LookUpColours(std::uint32_t* out, const std::uint8_t* indices,
                                         std::int32_t count, const ColourTable& colours);

/// Makes pixels 0xffRRGGBB of blue, green and red bytes.
[[nodiscard]] std::int32_t WidenTriples(std::uint32_t* out, const std::uint8_t* triples,
                                        std::int32_t count);

/// Copies pixels of 3 bytes with the first and the third byte exchanged.
[[nodiscard]] std::int32_t SwapTriples(std::uint8_t* out, const std::uint8_t* triples,
                                       std::int32_t count);

/// Blends pixels of blue, green, red and alpha bytes with the ones at `background`, as BlendRow()
/// does. `out` may be `background`.
[[nodiscard]] std::int32_t BlendPixels(std::uint32_t* out, const std::uint32_t* background,
                                       const std::uint8_t* pixels, std::int32_t count);

/// Starts to bring the pixels from `first` to `last` into the processor's cache.
void Prefetch(const std::uint32_t* first, const std::uint32_t* last);

} // namespace editor
