// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace editor {

/// Who loads a picture.
enum class Loader {
    Ours,      // file to picture, the way the map view does it
    Qt,        // QImage(path), converted to 32 bits a pixel where it has another form
    Uncompress // zlib alone, from memory to memory, both touched before
};

/// One load in this process.
struct Measured {
    double milliseconds = 0;
    std::int64_t bytes = 0; // by which the process's memory grew: at most, unless it says otherwise
};

/// From here on malloc() gives back no memory to the system, so that what the process frees it has
/// touched when it uses it again.
void KeepFreedMemory();

[[nodiscard]] Measured Load(Loader loader, const std::filesystem::path& file);

} // namespace editor
