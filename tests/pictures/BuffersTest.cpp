// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "pictures/LargeBuffer.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <new>
#include <vector>

namespace editor {
namespace {

constexpr std::size_t MiB = std::size_t{1} << 20;

bool IsFilledWith(const LargeBuffer& buffer, std::uint8_t value) {
    return std::ranges::all_of(buffer.bytes(), [=](std::uint8_t byte) { return byte == value; });
}

TEST(BuffersTest, LiveBuffersOfAnySizeDoNotShareMemoryAlsoWhenItIsUsedAgain) {
    std::vector<LargeBuffer> live;
    std::uint8_t value = 0;
    for (int round = 0; round < 3; ++round) {
        for (const std::size_t size : {std::size_t{1}, std::size_t{4096}, 2 * MiB - 1, 2 * MiB,
                                       2 * MiB + 1, 5 * MiB, 7 * MiB + 4097, 3 * MiB}) {
            live.emplace_back(size);
            ASSERT_EQ(live.back().size(), size);
            std::memset(live.back().data(), ++value, size);
        }
        for (std::size_t i = 0; i < live.size(); ++i) {
            EXPECT_TRUE(
                IsFilledWith(live[i], static_cast<std::uint8_t>(value - live.size() + i + 1)));
        }
        live.erase(live.begin(), live.begin() + 5); // some of their memory is kept
    }
}

TEST(BuffersTest, ABufferGoesWithItsNameAndLeavesNothingBehind) {
    LargeBuffer first(100);
    first.data()[99] = 7;
    LargeBuffer second(3 * MiB);
    second = std::move(first);
    EXPECT_EQ(second.size(), 100U);
    EXPECT_EQ(second.data()[99], 7);
    EXPECT_TRUE(first.empty()); // NOLINT(bugprone-use-after-move): this is what is asked
    second.Truncate(10);
    EXPECT_EQ(second.bytes().size(), 10U);
    EXPECT_TRUE(LargeBuffer(0).empty());
    EXPECT_THROW(LargeBuffer(std::size_t{1} << 60), std::bad_alloc);
}

} // namespace
} // namespace editor
