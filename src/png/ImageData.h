// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <span>

namespace editor {

/// The data of the IDAT chunks end to end; empty when there is no IHDR chunk or no IDAT chunk. They
/// are moved together where the file was read to, which takes no second copy; the records in the
/// chunk table then refer to the new places. Throws std::overflow_error when they are too long for
/// signed 32 bits and std::runtime_error when one of them is empty.
[[nodiscard]] std::span<const std::uint8_t> GetImageData();

/// Takes the next band of inflated bytes.
using BandTaker = std::function<void(std::span<std::uint8_t> band)>;

/// Inflates `data` to `expectedSize` bytes and hands them on in order. They come in pieces of the
/// size of `band`, only the last of which may be shorter; each lies in `band` until the next one
/// replaces it. What the stream does not fill is 0.
///
/// False when the stream is corrupt, cut short, empty, or longer than expected, all as zlib's
/// uncompress() judges it; then nothing that was handed on counts. What `take` throws is passed on.
[[nodiscard]] bool Inflate(std::span<const std::uint8_t> data, std::int32_t expectedSize,
                           std::span<std::uint8_t> band, const BandTaker& take);

} // namespace editor
