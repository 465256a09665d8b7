// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/mdlPNG.h"

#include <charconv>

namespace editor {
namespace {

constexpr std::int32_t Placeholder = 0;

} // namespace

PngModule mdlPNG;

void PngModule::ClearChunks() {
    Chunks.assign(1, {});
    ChunkKeys.assign(1, {});
    IndicesOfType.clear();
    FileBytes = {};
}

void PngModule::AddChunk(const ChunkRec& chunk, const std::string& key) {
    const auto index = static_cast<std::int32_t>(Chunks.size());
    Chunks.push_back(chunk);
    ChunkKeys.push_back(key);
    IndicesOfType[key.substr(0, chunk.ChunkType.size())].push_back(index);
}

std::string PngModule::NextKey(const ChunkTypeText& type) const {
    std::string key(type.data(), type.size());
    const auto found = IndicesOfType.find(key);
    const std::size_t stored = found == IndicesOfType.end() ? 0 : found->second.size();
    return key += std::to_string(stored + 1);
}

std::int32_t PngModule::IndexOf(std::string_view key) const {
    const std::string_view type = key.substr(0, ChunkTypeText{}.size());
    const auto found = IndicesOfType.find(type);
    if (found == IndicesOfType.end()) {
        return Placeholder;
    }
    std::size_t number = 0;
    std::from_chars(key.data() + type.size(), key.data() + key.size(), number);
    if (number < 1 || number > found->second.size()) {
        return Placeholder;
    }
    const std::int32_t index = found->second[number - 1];
    return ChunkKeys[static_cast<std::size_t>(index)] == key ? index : Placeholder;
}

bool PngModule::ChunkExists(std::string_view key) const {
    return IndexOf(key) != Placeholder;
}

ChunkRec PngModule::GetChunk(std::string_view key) const {
    const std::int32_t index = IndexOf(key);
    return index == Placeholder ? ChunkRec{} : Chunks[static_cast<std::size_t>(index)];
}

} // namespace editor
