// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/PngFile.h"

#include "png/ChunkWalk.h"
#include "png/Decoding.h"
#include "png/FileReader.h"
#include "png/mdlPNG.h"

#include <fstream>
#include <system_error>

namespace editor {

bool FileExists(const std::filesystem::path& name) {
    std::error_code ignored;
    return std::filesystem::exists(name, ignored);
}

LoadResult LoadExistingFile(const std::filesystem::path& name, const PictureLimits& limits) {
    // Opening a pipe, socket or device could block for ever or have effects.
    std::error_code error;
    if (!std::filesystem::is_regular_file(name, error)) {
        return NotAcceptable;
    }
    const std::uintmax_t size = std::filesystem::file_size(name, error);
    std::ifstream file;
    file.rdbuf()->pubsetbuf(nullptr, 0); // what is read goes straight to where it stays
    file.open(name, std::ios::binary);
    return error ? NotAcceptable : LoadContents(file, size, limits);
}

LoadResult LoadContents(std::istream& file, std::uint64_t size, const PictureLimits& limits) {
    mdlPNG.ClearChunks();
    if (size < SignatureSize || !CheckSignature(file)) {
        return NotAcceptable;
    }
    FileReader reader(file, size - SignatureSize, limits, mdlPNG.FileBytes);
    HeaderRec header;
    if (!ReadChunks(reader, limits, header)) {
        return NotAcceptable;
    }
    mdlPNG.FileBytes.Truncate(static_cast<std::size_t>(reader.Position()));
    mdlPNG.PngHeader = header;
    mdlPNG.PngImage = header.Interlace != 0 ? DecodeInterlaced() : DecodeImage(limits);
    return Accepted;
}

} // namespace editor
