// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <span>

namespace editor {

/// The data of the IDAT chunks end to end; empty when there is no IHDR chunk or no IDAT chunk. They
/// are moved together where the file was read to, which takes no second copy; the records in the
/// chunk table then refer to the new places. Throws std::overflow_error when they are too long for
/// signed 32 bits and std::runtime_error when one of them is empty.
[[nodiscard]] std::span<const std::uint8_t> GetImageData();

} // namespace editor
