// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <span>

namespace editor {

/// The data of the chunks "IDAT1", "IDAT2", ... end to end; empty when there is no "IHDR1" or
/// "IDAT1". They are closed up where the file was read to, so that joining them takes no second
/// copy: the records in the chunk table then refer to the new places, their contents stay. Throws
/// std::overflow_error when they are too long for signed 32 bits and std::runtime_error when one
/// of them is empty.
[[nodiscard]] std::span<const std::uint8_t> GetImageData();

/// What takes the next band of inflated bytes.
using BandTaker = std::function<void(std::span<std::uint8_t> band)>;

/// Inflates `data` to `expectedSize` bytes and hands them on in their order, a `band` full at a
/// time, the last one perhaps shorter: each lies in `band`, where the next one will replace it.
/// What the stream does not fill is 0.
///
/// False when the stream is corrupt, cut short, empty, or longer than expected, as zlib's
/// uncompress() finds it; the bands handed on until then count for nothing. What `take` throws is
/// passed on.
[[nodiscard]] bool Inflate(std::span<const std::uint8_t> data, std::int32_t expectedSize,
                           std::span<std::uint8_t> band, const BandTaker& take);

} // namespace editor
