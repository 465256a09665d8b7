// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#include "inflate/Adler32.h"

#include <algorithm>

namespace editor {
namespace {

constexpr std::uint32_t Modulus = 65521;

// After so many bytes of 255, sums that began below the modulus still fit in 32 bits.
constexpr std::size_t BytesUntilModulo = 5552;

} // namespace

void Adler32::Add(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const std::span<const std::uint8_t> part =
            bytes.first(std::min(bytes.size(), BytesUntilModulo));
        for (const std::uint8_t byte : part.subspan(AddToSums(part, low_, high_))) {
            low_ += byte;
            high_ += low_;
        }
        low_ %= Modulus;
        high_ %= Modulus;
        bytes = bytes.subspan(part.size());
    }
}

} // namespace editor
