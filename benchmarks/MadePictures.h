// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/mdlPNG.h"

#include <filesystem>
#include <string>
#include <vector>

namespace editor {

/// One picture that is measured.
struct MadePicture {
    std::string kind;    // "RGBA 8"
    std::string content; // "flat" or "photo"
    HeaderRec header;
    std::filesystem::path file;
};

/// Game-like flat art and photo-like content of every kind that a target names, in one size. Files
/// that are not in `folder` yet are written the way common encoders do: each row with the filter
/// of the least sum of absolute differences (none for palette images), zlib at level 6 and IDAT
/// chunks of 8 KiB.
[[nodiscard]] std::vector<MadePicture> MakePictures(std::int32_t width, std::int32_t height,
                                                    const std::filesystem::path& folder);

} // namespace editor
