// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/mdlPNG.h"

#include <bit>

namespace editor {

PngModule mdlPNG;

void PngModule::ClearChunks() {
    Chunks.assign(1, {});
    indicesOfType_ = {}; // clear() would keep a million buckets
    FileBytes = {};
}

void PngModule::AddChunk(const ChunkRec& chunk) {
    indicesOfType_[std::bit_cast<std::uint32_t>(chunk.ChunkType)].push_back(
        static_cast<std::int32_t>(Chunks.size()));
    Chunks.push_back(chunk);
}

std::span<const std::int32_t> PngModule::IndicesOf(const ChunkTypeText& type) const {
    const auto found = indicesOfType_.find(std::bit_cast<std::uint32_t>(type));
    return found == indicesOfType_.end() ? std::span<const std::int32_t>() : found->second;
}

bool PngModule::ChunkExists(const ChunkTypeText& type, std::size_t number) const {
    return number >= 1 && number <= IndicesOf(type).size();
}

ChunkRec PngModule::GetChunk(const ChunkTypeText& type, std::size_t number) const {
    return ChunkExists(type, number) ? Chunks[static_cast<std::size_t>(IndicesOf(type)[number - 1])]
                                     : ChunkRec{};
}

} // namespace editor
