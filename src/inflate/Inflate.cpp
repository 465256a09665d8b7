// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "inflate/Inflate.h"

#include "inflate/Adler32.h"
#include "inflate/BigEndian.h"
#include "pictures/LargeBuffer.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

#define ZLIB_CONST
#include <zlib.h>

namespace editor {
namespace {

// A zlib stream that is inflated piece by piece. Its checksum is not left to zlib, which takes many
// times as long to work it out: up to a third of a load.
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
    // has ended or is corrupt. From then on it does nothing.
    [[nodiscard]] std::size_t Fill(std::span<std::uint8_t> out) {
        if (status_ != Z_OK) {
            return 0;
        }
        stream_.next_out = out.data();
        stream_.avail_out = static_cast<uInt>(out.size());
        status_ = inflate(&stream_, Z_NO_FLUSH);
        if (status_ == Z_OK && stream_.avail_out > 0) {
            status_ = Z_BUF_ERROR; // what zlib would say the next time: it is cut short
        }
        return out.size() - stream_.avail_out;
    }

    // Whether the stream has ended, was not empty, and its last bytes are `checksum`.
    [[nodiscard]] bool EndedWell(const Adler32& checksum) const {
        return status_ == Z_STREAM_END && stream_.total_out > 0 &&
               checksum.Value() == BigEndian(stream_.next_in - sizeof(std::uint32_t));
    }

  private:
    z_stream stream_{};
    int status_ = Z_OK;
};

// The bands of a stream, one after the other. Where there are many, a thread inflates the next few
// while one is in use. It leaves alone what Next() gave until Release(), and the stream once the
// last band or one that is not full is there.
class Bands {
  public:
    struct Band {
        std::span<std::uint8_t> bytes;
        std::size_t filled = 0; // of them, from the first on
    };

    // `size` bytes in bands of `bandSize`.
    Bands(InflateStream& stream, std::size_t size, std::size_t bandSize)
        : stream_(stream), size_(size), bandSize_(std::min(bandSize, size)),
          count_((size + bandSize - 1) / bandSize), places_(count_ > MostPlaces ? MostPlaces : 1),
          buffer_(places_ * bandSize_) {
        if (places_ > 1) {
            StartThread();
        }
    }
    ~Bands() {
        Change([this] { count_ = 0; });
        if (thread_.joinable()) {
            thread_.join();
        }
    }
    Bands(const Bands&) = delete;
    Bands& operator=(const Bands&) = delete;

    // The next one, to be released before the one after it is asked for; empty after the last.
    [[nodiscard]] Band Next() {
        if (!thread_.joinable()) {
            static_cast<void>(InflateOne());
        }
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return inflated_ > released_ || released_ == count_; });
        return released_ == count_ ? Band() : bands_[released_ % places_];
    }

    void Release() {
        Change([this] { ++released_; });
    }

  private:
    // Enough that neither thread often waits for the other, few enough to stay in caches.
    static constexpr std::size_t MostPlaces = 8;

    void StartThread() {
        try {
            thread_ = std::thread([this] {
                while (InflateOne()) {
                }
            });
        } catch (const std::system_error&) {
            // Where no thread is to be had, Next() inflates.
        }
    }

    // Inflates a band once there is a place for it. False when no more are wanted.
    [[nodiscard]] bool InflateOne() {
        {
            std::unique_lock lock(mutex_);
            changed_.wait(
                lock, [this] { return inflated_ - released_ < places_ || inflated_ >= count_; });
            if (inflated_ >= count_) {
                return false;
            }
        }
        const std::size_t place = inflated_ % places_;
        Band& band = bands_[place];
        band.bytes = buffer_.bytes().subspan(place * bandSize_,
                                             std::min(bandSize_, size_ - inflated_ * bandSize_));
        band.filled = stream_.Fill(band.bytes);
        Change([this] { ++inflated_; });
        return true;
    }

    template <class Action>
    void Change(Action action) {
        {
            const std::lock_guard lock(mutex_);
            action();
        }
        changed_.notify_one();
    }

    InflateStream& stream_;
    std::size_t size_;
    std::size_t bandSize_;
    std::size_t count_; // of bands that are wanted
    std::size_t places_;
    LargeBuffer buffer_;
    std::array<Band, MostPlaces> bands_;
    std::size_t inflated_ = 0; // bands so far
    std::size_t released_ = 0;
    // For the three counts. No semaphores: as libstdc++ 12 builds them for Windows, a waiter can
    // miss that it has been woken. Only one thread waits at a time.
    std::mutex mutex_;
    std::condition_variable changed_;
    std::thread thread_;
};

} // namespace

bool Inflate(std::span<const std::uint8_t> data, std::int32_t expectedSize, std::size_t bandSize,
             const BandTaker& take) {
    InflateStream stream(data);
    Adler32 checksum;
    Bands bands(stream, static_cast<std::size_t>(expectedSize), bandSize);
    for (Bands::Band band = bands.Next(); !band.bytes.empty(); band = bands.Next()) {
        checksum.Add(band.bytes.first(band.filled));
        if (band.filled < band.bytes.size() && !stream.EndedWell(checksum)) {
            return false;
        }
        std::ranges::fill(band.bytes.subspan(band.filled), std::uint8_t{0});
        take(band.bytes);
        bands.Release();
    }
    // The end of a stream that has filled the last band may be still to come, but no more bytes.
    std::uint8_t none = 0;
    static_cast<void>(stream.Fill({&none, 0}));
    return stream.EndedWell(checksum);
}

} // namespace editor
