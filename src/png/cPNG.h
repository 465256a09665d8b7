// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "pictures/DrawingSurface.h"
#include "pictures/PictureLimits.h"

#include <cstdint>
#include <filesystem>

namespace editor {

/// The PNG decoder: reads a file of the W3C PNG text (second edition) and draws its image. Chunk
/// CRCs are not checked, interlaced images are accepted without being decoded, and of the ancillary
/// chunks only tRNS is used, for palette images.
///
/// Objects hold nothing of their own: all of them report and draw what mdlPNG holds, the last file
/// that any of them accepted. Only to be used on the user-interface thread.
class cPNG {
  public:
    // Of the last accepted file; 0 and false before the first one.
    [[nodiscard]] std::int32_t BitDepth() const;
    [[nodiscard]] bool Interlaced() const;
    [[nodiscard]] std::int32_t ColorType() const;
    [[nodiscard]] std::int32_t Height() const;

    /// Draws the image with its top-left pixel at (x, y) of `hDC`, blended with what is there if it
    /// has alpha; what lies outside the surface is dropped. Throws std::runtime_error, with
    /// nothing drawn, when no image is held.
    void DrawToDC(DrawingSurface& hDC, std::int32_t x, std::int32_t y) const;

    /// Reads and decodes a file: 0 accepted, 1 no such file, 3 a file that this decoder does not
    /// accept as PNG, that is not an ordinary file, or that ends too early. `FileName` has the
    /// bytes of a name as the system gives it, so that names in no valid encoding can be loaded
    /// too.
    ///
    /// Throws std::runtime_error when the image data are missing, corrupt or more than the header
    /// says, when the image is wider or higher than `limits` allow, when an index lies beyond the
    /// palette of an image with transparency, or (as std::overflow_error) when a size does not fit
    /// in signed 32 bits; std::bad_alloc when there is not enough memory, or when loading
    /// would take more than `limits` allow.
    ///
    /// On 1, 3 and an error while the chunks are read, header and image stay those of the last
    /// accepted file, unless Release() was called. On an error after that, the header is already
    /// the new one, and nothing should be drawn before another file has been accepted.
    [[nodiscard]] std::int32_t LoadPNGFile(const std::filesystem::path& FileName,
                                           const PictureLimits& limits = {});

    /// Gives up the image and what was read of the file. The header stays; nothing can be drawn
    /// before another file has been accepted.
    void Release();

    [[nodiscard]] std::int32_t Width() const;
};

} // namespace editor
