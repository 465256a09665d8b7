// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "png/ImageData.h"
#include "support/PngBuilder.h"

#include <gtest/gtest.h>
#include <optional>
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

TEST(InflateTest, InBandsOfAnySizeTheResultIsZlibsOwn) {
    constexpr std::size_t Size = 700;
    const Bytes stream = Deflated(NoiseRows(Header(Size, 1, 8, Greyscale), 1));
    int accepted = 0;
    const auto compare = [&](const Bytes& compared, std::size_t size, std::size_t bandSize) {
        const Outcome expected = ByZlib(compared, size);
        accepted += expected ? 1 : 0;
        ASSERT_EQ(InBands(compared, size, bandSize), expected) << size << " in " << bandSize;
    };
    for (const std::size_t bandSize : {std::size_t{64}, std::size_t{100}, Size}) {
        for (const std::size_t size : {Size - 1, Size, Size + 1, 2 * Size}) {
            compare(stream, size, bandSize);
            compare(Join({stream, {1, 2, 3}}), size, bandSize);
        }
        compare(Deflated({}), Size, bandSize);
        compare(Deflated(Bytes(70000, 255)), 70000, 100 * bandSize); // the largest sums
        for (std::size_t length = 0; length < stream.size(); ++length) {
            compare(Bytes(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(length)),
                    Size, bandSize);
        }
        for (std::size_t bit = 0; bit < 8 * stream.size(); ++bit) {
            Bytes damaged = stream;
            damaged[bit / 8] ^= static_cast<std::uint8_t>(1 << bit % 8);
            compare(damaged, Size, bandSize);
        }
    }
    EXPECT_GE(accepted, 3 * 7); // the whole stream where it fits, and where a bit does not count
}

} // namespace
} // namespace editor
