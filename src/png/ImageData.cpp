// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/ImageData.h"

#include "png/Adler32.h"
#include "png/Sizes.h"
#include "png/mdlPNG.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>

#define ZLIB_CONST
#include <zlib.h>

namespace editor {
namespace {

// The header of a zlib stream (RFC 1950, section 2.2): deflate with a window of up to 32 KiB and no
// preset dictionary.
constexpr std::size_t StreamHeaderSize = 2;

bool IsStreamHeader(std::span<const std::uint8_t> bytes) {
    constexpr int Deflate = 8;
    constexpr int LargestWindow = 7;
    constexpr int PresetDictionary = 0x20;
    return bytes.size() >= StreamHeaderSize && (bytes[0] & 0xf) == Deflate &&
           bytes[0] >> 4 <= LargestWindow && (bytes[0] << 8 | bytes[1]) % 31 == 0 &&
           (bytes[1] & PresetDictionary) == 0;
}

// A zlib stream that is inflated piece by piece. Its frame is read here and only what it frames by
// zlib, because the checksum that ends it takes us a fraction of the time.
class InflateStream {
  public:
    explicit InflateStream(std::span<const std::uint8_t> data) {
        constexpr int WithoutFrame = -MAX_WBITS;
        if (IsStreamHeader(data)) {
            stream_.next_in = data.data() + StreamHeaderSize;
            stream_.avail_in = static_cast<uInt>(data.size() - StreamHeaderSize);
            status_ = inflateInit2(&stream_, WithoutFrame);
        }
    }
    ~InflateStream() { inflateEnd(&stream_); }
    InflateStream(const InflateStream&) = delete;
    InflateStream& operator=(const InflateStream&) = delete;

    // Inflates the next bytes into `out`, and says how many they are: fewer than fit at the
    // stream's end, and where it fails.
    [[nodiscard]] std::size_t Fill(std::span<std::uint8_t> out) {
        if (status_ != Z_OK) {
            return 0;
        }
        stream_.next_out = out.data();
        stream_.avail_out = static_cast<uInt>(out.size());
        status_ = inflate(&stream_, Z_NO_FLUSH);
        const std::size_t filled = out.size() - stream_.avail_out;
        checksum_.Add(out.first(filled));
        return filled;
    }

    [[nodiscard]] bool Ended() const { return status_ == Z_STREAM_END; }
    [[nodiscard]] bool Empty() const { return stream_.total_out == 0; }

    // Of a stream that has ended: whether the checksum behind it is that of its bytes.
    [[nodiscard]] bool Intact() const {
        std::uint32_t stored = 0;
        if (stream_.avail_in < sizeof stored) {
            return false;
        }
        for (const std::uint8_t byte : std::span(stream_.next_in, sizeof stored)) {
            stored = stored << 8 | byte;
        }
        return stored == checksum_.Value();
    }

  private:
    z_stream stream_{};
    int status_ = Z_DATA_ERROR;
    Adler32 checksum_;
};

} // namespace

std::span<const std::uint8_t> GetImageData() {
    const auto found = mdlPNG.IndicesOfType.find("IDAT");
    if (!mdlPNG.ChunkExists("IHDR1") || found == mdlPNG.IndicesOfType.end()) {
        return {};
    }
    // The chunks' data lie in the file's bytes in their order, so that moving each to the end of
    // the one before overwrites only what stood between them.
    std::uint8_t* start = nullptr;
    std::int64_t joined = 0;
    for (const std::int32_t index : found->second) {
        ChunkRec& chunk = mdlPNG.Chunks[static_cast<std::size_t>(index)];
        if (chunk.Data.empty()) {
            throw std::runtime_error("an empty IDAT chunk");
        }
        if (start == nullptr) {
            start = mdlPNG.FileBytes.data() + (chunk.Data.data() - mdlPNG.FileBytes.data());
        }
        std::memmove(start + joined, chunk.Data.data(), chunk.Data.size());
        chunk.Data = {start + joined, chunk.Data.size()};
        joined = To32Bit(joined + chunk.Length);
    }
    return {start, static_cast<std::size_t>(joined)};
}

bool Inflate(std::span<const std::uint8_t> data, std::int32_t expectedSize,
             std::span<std::uint8_t> band, const BandTaker& take) {
    InflateStream stream(data);
    auto left = static_cast<std::size_t>(expectedSize);
    while (left > 0) {
        const std::span<std::uint8_t> next = band.first(std::min(band.size(), left));
        const std::size_t filled = stream.Fill(next);
        if (filled < next.size() && !stream.Ended()) {
            return false;
        }
        std::memset(next.data() + filled, 0, next.size() - filled);
        take(next);
        left -= next.size();
    }
    // A stream that fills the last band may have its end still to come, but no more bytes.
    static_cast<void>(stream.Fill(band.first(0)));
    return stream.Ended() && stream.Intact() && !stream.Empty();
}

} // namespace editor
