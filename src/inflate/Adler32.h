// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace editor {

/// The checksum Adler-32 (RFC 1950, section 8.2) of bytes that come piece by piece.
class Adler32 {
  public:
    void Add(std::span<const std::uint8_t> bytes);
    [[nodiscard]] std::uint32_t Value() const { return high_ << 16 | low_; }

  private:
    std::uint32_t low_ = 1;  // 1 and all bytes, modulo the largest prime below 65536
    std::uint32_t high_ = 0; // the sum of what `low_` was after each byte, modulo the same
};

/// Adds the bytes up to the last multiple of what is added at a time to both sums, and returns how
/// many that are; in plain C++ none. The sums must have room for all of them.
[[nodiscard]] std::size_t AddToSums(std::span<const std::uint8_t> bytes, std::uint32_t& low,
                                    std::uint32_t& high);

} // namespace editor
