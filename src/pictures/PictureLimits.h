// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <limits>
#include <new>

namespace editor {

/// What a picture may take that is to be loaded. Checked before the memory is used: that of the
/// file as it is read, that of the pixels before any is made.
struct PictureLimits {
    /// The largest width and height in pixels.
    std::int32_t MaximumSide = std::numeric_limits<std::int32_t>::max();
    /// The most memory that loading may take: what of the file is in memory at once, its index, and
    /// every copy of the pixels.
    std::uint64_t MaximumBytes = std::numeric_limits<std::uint64_t>::max();
    /// Whether the image of a PNG file is to be drawn on a surface of its size, which then counts.
    bool WillBeDrawn = true;

    /// Throws std::bad_alloc where loading would take more memory than it may.
    void RequireBytes(std::uint64_t bytes) const {
        if (bytes > MaximumBytes) {
            throw std::bad_alloc();
        }
    }
};

} // namespace editor
