// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/PngFile.h"

#include "png/ChunkWalk.h"
#include "png/Decoding.h"
#include "png/Sizes.h"
#include "png/mdlPNG.h"

#include <fstream>

namespace editor {
namespace {

// Reads what of `bytes` lies from `start` to `end`; the number of bytes that are there now.
std::size_t ReadPart(std::ifstream& file, LargeBuffer& bytes, std::size_t start, std::size_t end) {
    file.read(reinterpret_cast<char*>(bytes.data() + start),
              static_cast<std::streamsize>(end - start));
    return start + static_cast<std::size_t>(file.gcount());
}

} // namespace

bool FileExists(const std::filesystem::path& name) {
    std::error_code ignored;
    return std::filesystem::exists(name, ignored);
}

LargeBuffer ReadPngFile(const std::filesystem::path& name) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(name, error)) {
        return {};
    }
    const std::uintmax_t size = std::filesystem::file_size(name, error);
    std::ifstream file;
    file.rdbuf()->pubsetbuf(nullptr, 0); // the two reads below go straight into `bytes`
    file.open(name, std::ios::binary);
    if (error || !file || size < SignatureSize) {
        return {};
    }
    LargeBuffer bytes(static_cast<std::size_t>(To32Bit(static_cast<std::int64_t>(size))));
    std::size_t read = ReadPart(file, bytes, 0, SignatureSize);
    if (read == SignatureSize && CheckSignature(bytes.bytes())) {
        read = ReadPart(file, bytes, read, bytes.size());
    }
    bytes.Truncate(read); // a file may have shrunk since its size was asked for
    return bytes;
}

LoadResult LoadPNGBytes(LargeBuffer bytes) {
    mdlPNG.ClearChunks();
    mdlPNG.FileBytes = std::move(bytes);
    HeaderRec header;
    if (!ReadChunks(mdlPNG.FileBytes.bytes(), header)) {
        return NotAcceptable;
    }
    mdlPNG.PngHeader = header;
    mdlPNG.PngImage = header.Interlace != 0 ? DecodeInterlaced() : DecodeImage();
    return Accepted;
}

} // namespace editor
