// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/Sizes.h"
#include "png/mdlPNG.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
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

[[nodiscard]] inline Bytes BigEndian(std::uint32_t value) {
    return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
            static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

/// One chunk with its length and its right CRC.
[[nodiscard]] inline Bytes Chunk(std::string_view type, const Bytes& data = {}) {
    const Bytes body = Join({Bytes(type.begin(), type.end()), data});
    const auto crc = crc32(0, body.data(), static_cast<uInt>(body.size()));
    return Join({BigEndian(static_cast<std::uint32_t>(data.size())), body,
                 BigEndian(static_cast<std::uint32_t>(crc))});
}

/// A header as it is without interlacing.
[[nodiscard]] inline HeaderRec Header(std::int32_t width, std::int32_t height,
                                      std::uint8_t bitDepth, std::uint8_t colorType) {
    return {.Width = width, .Height = height, .BitDepth = bitDepth, .ColorType = colorType};
}

[[nodiscard]] inline Bytes Signature() {
    return {137, 'P', 'N', 'G', '\r', '\n', 26, '\n'};
}

[[nodiscard]] inline Bytes IHDR(const HeaderRec& header) {
    return Chunk("IHDR", Join({BigEndian(static_cast<std::uint32_t>(header.Width)),
                               BigEndian(static_cast<std::uint32_t>(header.Height)),
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

[[nodiscard]] inline Bytes IDAT(const Bytes& filtered) {
    return Chunk("IDAT", Deflated(filtered));
}

[[nodiscard]] inline Bytes IEND() {
    return Chunk("IEND");
}

/// Height rows of pixel data without filter-type bytes, filled with noise that has runs and slopes
/// in it, so that every filter meets every case.
[[nodiscard]] inline Bytes NoiseRows(const HeaderRec& header, std::uint32_t seed) {
    Bytes rows(static_cast<std::size_t>(RowBytes(header) - 1) *
               static_cast<std::size_t>(header.Height));
    std::uint32_t state = seed * 2654435761U + 1;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        state = state * 1664525U + 1013904223U;
        const bool slope = i >= 4 && (state >> 30 & 1U) != 0;
        rows[i] = static_cast<std::uint8_t>(slope ? rows[i - 4] + (state >> 24 & 3U) : state >> 24);
    }
    return rows;
}

/// What filter type `filter` predicts from the bytes a (left), b (above) and c (above left),
/// written as in the W3C PNG text.
[[nodiscard]] inline int Predicted(std::uint8_t filter, int a, int b, int c) {
    const int p = a + b - c;
    const int pa = std::abs(p - a);
    const int pb = std::abs(p - b);
    const int pc = std::abs(p - c);
    if (filter != 4) {
        return filter == 1 ? a : filter == 2 ? b : filter == 3 ? (a + b) / 2 : 0;
    }
    return pa <= pb && pa <= pc ? a : pb <= pc ? b : c;
}

/// The rows, each behind its filter-type byte and filtered with the next of `filters` in turn.
[[nodiscard]] inline Bytes Filtered(const HeaderRec& header, const Bytes& rows,
                                    const Bytes& filters) {
    const auto length = static_cast<std::size_t>(RowBytes(header) - 1);
    const auto back = static_cast<std::size_t>(BytesPerPixel(header));
    Bytes filtered;
    filtered.reserve(rows.size() + rows.size() / length);
    for (std::size_t start = 0; start < rows.size(); start += length) {
        const std::uint8_t filter = filters[start / length % filters.size()];
        filtered.push_back(filter);
        for (std::size_t i = 0; i < length; ++i) {
            const std::uint8_t* byte = &rows[start + i];
            const int a = i < back ? 0 : *(byte - back);
            const int b = start == 0 ? 0 : *(byte - length);
            const int c = start == 0 || i < back ? 0 : *(byte - length - back);
            filtered.push_back(static_cast<std::uint8_t>(*byte - Predicted(filter, a, b, c)));
        }
    }
    return filtered;
}

/// A whole file of one IDAT chunk; `before` are the chunks between it and IHDR.
[[nodiscard]] inline Bytes PngOf(const HeaderRec& header, const Bytes& filtered,
                                 const Bytes& before = {}) {
    return Join({Signature(), IHDR(header), before, IDAT(filtered), IEND()});
}

/// A small file that every decoder accepts: 1 by 1 pixel, 8-bit truecolour, red 10, green 20,
/// blue 30.
[[nodiscard]] inline Bytes OnePixelPng() {
    return PngOf(Header(1, 1, 8, Truecolour), {0, 10, 20, 30});
}

inline void WriteFile(const std::filesystem::path& path, const Bytes& bytes) {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

} // namespace editor
