// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace editor {

/// Takes the next band of inflated bytes, which it may change, and keeps none of them.
using BandTaker = std::function<void(std::span<std::uint8_t> band)>;

/// Inflates `data` to `expectedSize` bytes and hands them on in order, in bands of `bandSize`
/// bytes, at least 1, only the last of which may be shorter. `take` is called on this thread; of
/// large streams, another one inflates the next bands meanwhile. What the stream does not fill is
/// 0.
///
/// False when the stream is corrupt, cut short, empty, or longer than expected, all as zlib's
/// uncompress() judges it; then nothing that was handed on counts. What `take` throws is passed on.
[[nodiscard]] bool Inflate(std::span<const std::uint8_t> data, std::int32_t expectedSize,
                           std::size_t bandSize, const BandTaker& take);

} // namespace editor
