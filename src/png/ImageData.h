// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/LargeBuffer.h"

#include <cstdint>
#include <span>

namespace editor {

/// The data of the chunks "IDAT1", "IDAT2", ... end to end; empty when there is no "IHDR1" or
/// "IDAT1". They are closed up where the file was read to, so that joining them takes no second
/// copy: the records in the chunk table then refer to the new places, their contents stay. Throws
/// std::overflow_error when they are too long for signed 32 bits and std::runtime_error when one
/// of them is empty.
[[nodiscard]] std::span<const std::uint8_t> GetImageData();

/// `data` inflated into a buffer of exactly `expectedSize` bytes; what the stream does not fill is
/// 0. Empty when the stream is corrupt, cut short, empty, or longer than expected. Throws
/// std::bad_alloc when the buffer cannot be had.
[[nodiscard]] LargeBuffer Inflate(std::span<const std::uint8_t> data, std::int32_t expectedSize);

} // namespace editor
