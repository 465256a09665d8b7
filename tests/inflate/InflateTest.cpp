// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "inflate/Inflate.h"

#include "support/PngBuilder.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>
#include <zlib.h>

namespace editor {
namespace {

// What zlib makes of the whole stream at once is the rule. A refused stream gives no bytes.
Bytes ByZlib(const Bytes& stream, std::size_t size) {
    Bytes inflated(size);
    auto filled = static_cast<uLongf>(size);
    const int result =
        uncompress(inflated.data(), &filled, stream.data(), static_cast<uLong>(stream.size()));
    return result == Z_OK && filled >= 1 ? inflated : Bytes();
}

Bytes InBands(const Bytes& stream, std::size_t size, std::size_t bandSize,
              std::chrono::milliseconds pause = {}) {
    Bytes inflated;
    const auto append = [&](auto next) {
        std::this_thread::sleep_for(pause);
        inflated.insert(inflated.end(), next.begin(), next.end());
    };
    const bool accepted = Inflate(stream, static_cast<std::int32_t>(size), bandSize, append);
    return accepted ? inflated : Bytes();
}

TEST(InflateTest, InBandsOfAnySizeWholeAndDamagedStreamsGiveWhatZlibGives) {
    constexpr std::size_t Size = 700;
    const Bytes whole = Deflated(Noise(Size, 1));
    std::vector<Bytes> streams = {whole, Join({whole, {1, 2, 3}}), Deflated({})};
    for (std::size_t i = 0; i < whole.size(); ++i) {
        streams.emplace_back(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(i));
        for (int bit = 0; bit < 8; ++bit) {
            streams.emplace_back(whole)[i] ^= static_cast<std::uint8_t>(1 << bit);
        }
    }
    for (const std::size_t bandSize : {std::size_t{64}, std::size_t{100}, Size}) {
        for (const std::size_t size : {Size - 1, Size, 2 * Size}) {
            for (std::size_t i = 0; i < streams.size(); ++i) {
                ASSERT_EQ(InBands(streams[i], size, bandSize), ByZlib(streams[i], size))
                    << "stream " << i << ", " << size << " bytes in " << bandSize;
            }
        }
    }
    // A band that is used for long, while others are inflated ahead.
    EXPECT_EQ(InBands(whole, Size, 9, std::chrono::milliseconds(1)), ByZlib(whole, Size));
    // What is thrown while more is inflated ahead.
    const auto refuse = [](auto) { throw std::overflow_error("no"); };
    EXPECT_THROW(static_cast<void>(Inflate(whole, Size, 9, refuse)), std::overflow_error);
    // The largest sums of the checksum.
    EXPECT_EQ(InBands(Deflated(Bytes(70000, 255)), 70000, 9999), Bytes(70000, 255));
}

} // namespace
} // namespace editor
