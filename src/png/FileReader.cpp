// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/FileReader.h"

#include "png/Sizes.h"

#include <algorithm>
#include <limits>

namespace editor {
namespace {

// What is read at a time where less was asked for.
constexpr std::uint64_t PieceSize = 256 * 1024;

constexpr std::uint64_t LargestBuffer = std::numeric_limits<std::int32_t>::max();

} // namespace

FileReader::FileReader(std::istream& file, std::uint64_t size, const PictureLimits& limits,
                       LargeBuffer& bytes)
    : file_(file), size_(size), limits_(limits), bytes_(bytes) {
    bytes_ =
        LargeBuffer(static_cast<std::size_t>(std::min({size, LargestBuffer, limits.MaximumBytes})));
}

bool FileReader::Read(std::size_t count, std::span<const std::uint8_t>& next) {
    const std::uint64_t end = position_ + count;
    if (end > filled_ && !FillTo(end)) {
        return false;
    }
    next = bytes_.bytes().subspan(static_cast<std::size_t>(position_), count);
    position_ = end;
    return true;
}

bool FileReader::FillTo(std::uint64_t end) {
    if (end > size_) {
        return false;
    }
    static_cast<void>(To32Bit(static_cast<std::int64_t>(end)));
    limits_.RequireBytes(end);
    const auto count = static_cast<std::streamsize>(
        std::min<std::uint64_t>(std::max(end, filled_ + PieceSize), bytes_.size()) - filled_);
    file_.read(reinterpret_cast<char*>(bytes_.data() + filled_), count);
    filled_ += static_cast<std::uint64_t>(file_.gcount());
    return filled_ >= end; // a file may have become shorter
}

} // namespace editor
