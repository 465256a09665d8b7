// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/ImageData.h"
#include "support/PngBuilder.h"

#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <zlib.h>

namespace editor {
namespace {

using Outcome = std::optional<Bytes>;

// What zlib makes of the whole stream at once is the rule.
Outcome ByZlib(const Bytes& stream, std::size_t size) {
    Bytes inflated(size);
    auto filled = static_cast<uLongf>(size);
    const int result = uncompress(inflated.data(), &filled, stream.data(), stream.size());
    return result == Z_OK && filled >= 1 ? Outcome(inflated) : std::nullopt;
}

Outcome InBands(const Bytes& stream, std::size_t size, std::size_t bandSize) {
    Bytes inflated;
    Bytes band(bandSize, 99);
    const bool accepted = Inflate(stream, static_cast<std::int32_t>(size), band,
                                  [&](std::span<const std::uint8_t> next) {
                                      inflated.insert(inflated.end(), next.begin(), next.end());
                                  });
    return accepted ? Outcome(inflated) : std::nullopt;
}

// Noise with runs and copies from afar, as pictures have them.
Bytes Data(std::mt19937& random, std::size_t size) {
    Bytes data(size);
    for (std::size_t i = 0; i < size; ++i) {
        const auto choice = random() % 100;
        const std::size_t back = choice == 0 ? random() % 40000 + 1 : 1;
        data[i] = choice < 60 && i >= back ? data[i - back] : static_cast<std::uint8_t>(random());
    }
    return data;
}

TEST(InflateTest, InBandsOfAnySizeTheResultIsZlibsOwn) {
    std::mt19937 random(1);
    int accepted = 0, refused = 0;
    const auto compare = [&](const Bytes& stream, std::size_t size, std::size_t bandSize) {
        const Outcome expected = ByZlib(stream, size);
        ++(expected ? accepted : refused);
        ASSERT_EQ(InBands(stream, size, bandSize), expected) << size << " in " << bandSize;
    };
    for (const std::size_t size : {1, 15, 16, 17, 5552, 70000}) {
        // All bytes 255: the largest sums that a checksum can meet.
        for (const Bytes& data : {Data(random, size), Bytes(size, 255)}) {
            for (const int level : {0, 9}) {
                const Bytes stream = Deflated(data, level);
                for (const std::size_t bandSize : {size, size / 3 + 1, std::size_t{300}}) {
                    compare(stream, size, bandSize);
                    compare(stream, size + 1, bandSize);
                    compare(stream, size + 1000, bandSize);
                    compare(stream, std::max<std::size_t>(1, size - 1), bandSize);
                    compare(Join({stream, {1, 2, 3}}), size, bandSize);
                }
            }
        }
    }
    const Bytes stream = Deflated(Data(random, 700));
    for (std::size_t length = 0; length < stream.size(); ++length) {
        compare(Bytes(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(length)), 700,
                length % 2 == 0 ? 700 : 64);
    }
    for (std::size_t bit = 0; bit < 8 * stream.size(); ++bit) {
        Bytes damaged = stream;
        damaged[bit / 8] ^= static_cast<std::uint8_t>(1 << bit % 8);
        compare(damaged, 700, bit % 2 == 0 ? 700 : 64);
    }
    for (unsigned header = 0; header < 0x10000; ++header) {
        Bytes other = stream;
        other[0] = static_cast<std::uint8_t>(header >> 8);
        other[1] = static_cast<std::uint8_t>(header);
        compare(other, 700, 700);
    }
    compare(Deflated({}), 10, 10);
    EXPECT_GT(accepted, 300);
    EXPECT_GT(refused, 5000);
}

} // namespace
} // namespace editor
