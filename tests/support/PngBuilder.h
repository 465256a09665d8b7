// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/Sizes.h"
#include "png/mdlPNG.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>
#include <zlib.h>

namespace editor {

using Bytes = std::vector<std::uint8_t>;

// PNG files made piece by piece, with nothing of the decoder under test but its records and sizes.

[[nodiscard]] inline Bytes Join(std::initializer_list<Bytes> parts) {
    Bytes joined;
    for (const Bytes& part : parts) {
        joined.insert(joined.end(), part.begin(), part.end());
    }
    return joined;
}

[[nodiscard]] inline Bytes BigEndian(auto value) {
    return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
            static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

/// One chunk with its length and its right CRC.
[[nodiscard]] inline Bytes Chunk(std::string_view type, const Bytes& data = {}) {
    const Bytes body = Join({Bytes(type.begin(), type.end()), data});
    const auto crc = crc32(0, body.data(), static_cast<uInt>(body.size()));
    return Join({BigEndian(data.size()), body, BigEndian(crc)});
}

inline const Bytes Signature = {137, 'P', 'N', 'G', '\r', '\n', 26, '\n'};

[[nodiscard]] inline Bytes IHDR(const HeaderRec& header) {
    return Chunk("IHDR", Join({BigEndian(header.Width),
                               BigEndian(header.Height),
                               {header.BitDepth, header.ColorType, header.Compression,
                                header.Filter, header.Interlace}}));
}

[[nodiscard]] inline Bytes Deflated(const Bytes& data, int level = 6) {
    uLongf size = compressBound(static_cast<uLong>(data.size()));
    Bytes deflated(size);
    compress2(deflated.data(), &size, data.data(), static_cast<uLong>(data.size()), level);
    deflated.resize(size);
    return deflated;
}

/// Noise of which every other byte is one of -1 to 2, so that each filter meets ties and slopes.
[[nodiscard]] inline Bytes Noise(std::int32_t size, std::uint32_t seed) {
    std::mt19937 random(seed);
    Bytes noise(static_cast<std::size_t>(size));
    for (std::uint8_t& byte : noise) {
        const auto number = random();
        byte = static_cast<std::uint8_t>(number % 2 == 0 ? number >> 24 : (number >> 30) - 1);
    }
    return noise;
}

/// The rows of a picture behind their filter types, all of it noise. About as many rows as not are
/// of the type that depends on most neighbours.
[[nodiscard]] inline Bytes NoiseRows(const HeaderRec& header, std::uint32_t seed) {
    Bytes rows = Noise(RowBytes(header) * header.Height, seed);
    for (std::size_t i = 0; i < rows.size(); i += static_cast<std::size_t>(RowBytes(header))) {
        rows[i] = std::min<std::uint8_t>(rows[i] % 8, 4);
    }
    return rows;
}

/// A whole file of two IDAT chunks; `before` are the chunks between them and IHDR.
[[nodiscard]] inline Bytes PngOf(const HeaderRec& header, const Bytes& filtered,
                                 const Bytes& before = {}) {
    const Bytes stream = Deflated(filtered);
    const auto middle = stream.begin() + static_cast<std::ptrdiff_t>(stream.size() / 2);
    return Join({Signature, IHDR(header), before, Chunk("IDAT", {stream.begin(), middle}),
                 Chunk("IDAT", {middle, stream.end()}), Chunk("IEND")});
}

inline void WriteFile(const std::filesystem::path& path, const Bytes& bytes) {
    std::ofstream(path, std::ios::binary) << std::string(bytes.begin(), bytes.end());
}

} // namespace editor
