// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace editor {

/// A block of bytes for files and pictures, which can be moved but not copied. The bytes may have
/// any value until they are written.
///
/// A few freed blocks are kept for later buffers: memory that has been used before is much faster
/// than memory fresh from the system.
class LargeBuffer {
  public:
    LargeBuffer() = default;

    /// Takes `size` bytes. Throws std::bad_alloc when they cannot be had.
    explicit LargeBuffer(std::size_t size);
    ~LargeBuffer();

    LargeBuffer(LargeBuffer&& other) noexcept;
    LargeBuffer& operator=(LargeBuffer&& other) noexcept;
    LargeBuffer(const LargeBuffer&) = delete;
    LargeBuffer& operator=(const LargeBuffer&) = delete;

    [[nodiscard]] std::uint8_t* data() { return data_; }
    [[nodiscard]] const std::uint8_t* data() const { return data_; }
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] bool empty() const { return size_ == 0; }
    [[nodiscard]] std::span<std::uint8_t> bytes() { return {data_, size_}; }
    [[nodiscard]] std::span<const std::uint8_t> bytes() const { return {data_, size_}; }

    /// Drops the bytes from `size` on; there must be at least as many.
    void Truncate(std::size_t size) { size_ = size; }

    /// Gives the freed blocks that are kept back to the system.
    static void ReleaseKept();

  private:
    std::uint8_t* data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace editor
