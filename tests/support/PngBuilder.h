// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/mdlPNG.h"

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace editor {

using Bytes = std::vector<std::uint8_t>;

// PNG files made piece by piece, with nothing of the decoder under test but its records and sizes.

[[nodiscard]] Bytes Join(std::initializer_list<Bytes> parts);

/// One chunk with its length and its right CRC.
[[nodiscard]] Bytes Chunk(std::string_view type, const Bytes& data = {});

/// A header as it is without interlacing.
[[nodiscard]] HeaderRec Header(std::int32_t width, std::int32_t height, std::uint8_t bitDepth,
                               std::uint8_t colorType);

[[nodiscard]] Bytes Signature();
[[nodiscard]] Bytes IHDR(const HeaderRec& header);
[[nodiscard]] Bytes IDAT(const Bytes& filtered); // deflates it
[[nodiscard]] Bytes IEND();

[[nodiscard]] Bytes Deflated(const Bytes& data, int level = 6);

/// Height rows of pixel data without filter-type bytes, filled with noise that has runs and slopes
/// in it, so that every filter meets every case.
[[nodiscard]] Bytes NoiseRows(const HeaderRec& header, std::uint32_t seed);

/// The rows, each behind its filter-type byte and filtered with the next of `filters` in turn.
[[nodiscard]] Bytes Filtered(const HeaderRec& header, const Bytes& rows, const Bytes& filters);

/// A whole file of one IDAT chunk; `before` are the chunks between it and IHDR.
[[nodiscard]] Bytes PngOf(const HeaderRec& header, const Bytes& filtered, const Bytes& before = {});

/// A small file that every decoder accepts: 1 by 1 pixel, 8-bit truecolour, red 10, green 20,
/// blue 30.
[[nodiscard]] Bytes OnePixelPng();

void WriteFile(const std::filesystem::path& path, const Bytes& bytes);

} // namespace editor
