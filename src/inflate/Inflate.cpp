// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "inflate/Inflate.h"

#include "inflate/Adler32.h"
#include "inflate/BigEndian.h"

#include <algorithm>
#include <cstring>

#define ZLIB_CONST
#include <zlib.h>

namespace editor {
namespace {

// A zlib stream that is inflated piece by piece. Its checksum is checked here, because zlib takes
// many times as long to work it out: up to a third of a load.
class InflateStream {
  public:
    explicit InflateStream(std::span<const std::uint8_t> data) {
        stream_.next_in = data.data();
        stream_.avail_in = static_cast<uInt>(data.size());
        status_ = inflateInit(&stream_);
        inflateValidate(&stream_, 0);
    }
    ~InflateStream() { inflateEnd(&stream_); }
    InflateStream(const InflateStream&) = delete;
    InflateStream& operator=(const InflateStream&) = delete;

    // Inflates the next bytes into `out` and says how many they are: fewer than fit when the stream
    // has ended or is corrupt.
    [[nodiscard]] std::size_t Fill(std::span<std::uint8_t> out) {
        stream_.next_out = out.data();
        stream_.avail_out = static_cast<uInt>(out.size());
        if (status_ == Z_OK) {
            status_ = inflate(&stream_, Z_NO_FLUSH);
        }
        const std::size_t filled = out.size() - stream_.avail_out;
        checksum_.Add(out.first(filled));
        return filled;
    }

    // Whether the stream has ended, was not empty, and its last bytes are the checksum of its data.
    [[nodiscard]] bool EndedWell() const {
        return status_ == Z_STREAM_END && stream_.total_out > 0 &&
               checksum_.Value() == BigEndian(stream_.next_in - sizeof(std::uint32_t));
    }

  private:
    z_stream stream_{};
    int status_ = Z_OK;
    Adler32 checksum_;
};

} // namespace

bool Inflate(std::span<const std::uint8_t> data, std::int32_t expectedSize,
             std::span<std::uint8_t> band, const BandTaker& take) {
    InflateStream stream(data);
    auto left = static_cast<std::size_t>(expectedSize);
    while (left > 0) {
        const std::span<std::uint8_t> next = band.first(std::min(band.size(), left));
        const std::size_t filled = stream.Fill(next);
        if (filled < next.size() && !stream.EndedWell()) {
            return false;
        }
        std::memset(next.data() + filled, 0, next.size() - filled);
        take(next);
        left -= next.size();
    }
    // The end of a stream that has filled the last band may be still to come, but no more bytes.
    static_cast<void>(stream.Fill(band.first(0)));
    return stream.EndedWell();
}

} // namespace editor
