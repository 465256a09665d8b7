// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "png/cPNG.h"

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace editor {

/// Loads a file as the editor does and says in words what came of it.
[[nodiscard]] inline std::string OutcomeOf(const std::filesystem::path& file,
                                           const PictureLimits& limits = {}) {
    try {
        const std::int32_t code = cPNG().LoadPNGFile(file, limits);
        return code == 0 ? "accepted" : code == 1 ? "no file" : "refused";
    } catch (const std::bad_alloc&) {
        return "too much memory";
    } catch (const std::overflow_error&) {
        return "2^31 or more";
    } catch (const std::runtime_error&) {
        return "corrupt";
    }
}

[[nodiscard]] inline std::vector<std::uint32_t> PixelsOf(DrawingSurface& surface) {
    std::vector<std::uint32_t> pixels;
    for (std::int32_t y = 0; y < surface.height(); ++y) {
        pixels.insert(pixels.end(), surface.row(y), surface.row(y) + surface.width());
    }
    return pixels;
}

/// What DrawToDC() makes of a surface of the image's size.
[[nodiscard]] inline std::vector<std::uint32_t> Drawn() {
    const cPNG png{};
    DrawingSurface surface(png.Width(), png.Height());
    png.DrawToDC(surface, 0, 0);
    return PixelsOf(surface);
}

} // namespace editor
