// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/ImageData.h"

#include "png/Sizes.h"
#include "png/mdlPNG.h"

#include <cstring>
#include <stdexcept>
#include <string>
#include <zlib.h>

namespace editor {

std::span<const std::uint8_t> GetImageData() {
    const auto found = mdlPNG.IndicesOfType.find("IDAT");
    if (!mdlPNG.ChunkExists("IHDR1") || found == mdlPNG.IndicesOfType.end()) {
        return {};
    }
    // The chunks' data lie in the file's bytes in their order, so that moving each to the end of
    // the one before overwrites only what stood between them.
    std::uint8_t* start = nullptr;
    std::int64_t joined = 0;
    for (const std::int32_t index : found->second) {
        ChunkRec& chunk = mdlPNG.Chunks[static_cast<std::size_t>(index)];
        if (chunk.Data.empty()) {
            throw std::runtime_error("an empty IDAT chunk");
        }
        if (start == nullptr) {
            start = mdlPNG.FileBytes.data() + (chunk.Data.data() - mdlPNG.FileBytes.data());
        }
        std::memmove(start + joined, chunk.Data.data(), chunk.Data.size());
        chunk.Data = {start + joined, chunk.Data.size()};
        joined = To32Bit(joined + chunk.Length);
    }
    return {start, static_cast<std::size_t>(joined)};
}

LargeBuffer Inflate(std::span<const std::uint8_t> data, std::int32_t expectedSize) {
    LargeBuffer buffer(static_cast<std::size_t>(expectedSize));
    auto filled = static_cast<uLongf>(expectedSize);
    const int result =
        uncompress(buffer.data(), &filled, data.data(), static_cast<uLong>(data.size()));
    if (result != Z_OK || filled < 1) {
        return {};
    }
    std::memset(buffer.data() + filled, 0, buffer.size() - filled);
    return buffer;
}

} // namespace editor
