// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/LargeBuffer.h"
#include "pictures/PictureLimits.h"

#include <cstddef>
#include <cstdint>
#include <istream>
#include <span>

namespace editor {

/// Reads a file from front to back into one buffer, little further than it is asked to.
class FileReader {
  public:
    /// Reads what follows in `file`, at most `size` bytes, into `bytes`, which becomes long enough
    /// for them. Throws std::bad_alloc when the memory cannot be had.
    FileReader(std::istream& file, std::uint64_t size, const PictureLimits& limits,
               LargeBuffer& bytes);

    /// The next `count` bytes, which stay where they are; false when the file ends before. Throws
    /// std::overflow_error when they reach beyond 2 GiB, and std::bad_alloc when they reach beyond
    /// the memory that loading may take.
    [[nodiscard]] bool Read(std::size_t count, std::span<const std::uint8_t>& next);

    /// How many bytes Read() has given.
    [[nodiscard]] std::uint64_t Position() const { return position_; }

  private:
    [[nodiscard]] bool FillTo(std::uint64_t end);

    std::istream& file_;
    std::uint64_t size_;
    const PictureLimits& limits_;
    LargeBuffer& bytes_;
    std::uint64_t position_ = 0;
    std::uint64_t filled_ = 0; // bytes that have been read from the file
};

} // namespace editor
