#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace editor {

/// A block of bytes for pictures: aligned for any vector instruction, never copied by accident.
class LargeBuffer {
  public:
    LargeBuffer() = default;

    /// `size` bytes, all 0. Throws std::bad_alloc when they cannot be had.
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

  private:
    std::uint8_t* data_ = nullptr;
    std::size_t size_ = 0;
};

} // namespace editor
