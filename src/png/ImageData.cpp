// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/ImageData.h"

#include "png/Sizes.h"
#include "png/mdlPNG.h"

#include <cstring>
#include <stdexcept>

namespace editor {

std::span<const std::uint8_t> GetImageData() {
    if (!mdlPNG.ChunkExists(chunks::IHDR)) {
        return {};
    }
    // The chunks' data lie in the file's bytes in this order, so that moving each to the end of the
    // one before overwrites only what was between them.
    std::uint8_t* start = nullptr;
    std::int64_t joined = 0;
    for (const std::int32_t index : mdlPNG.IndicesOf(chunks::IDAT)) {
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

} // namespace editor
