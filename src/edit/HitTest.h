// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Rounding.h"

#include <cmath>
#include <cstdint>

namespace editor {

/// A position in level pixels, unrounded: single precision is what every comparison is made in.
struct LevelPoint {
    float x = 0;
    float y = 0;
};

/// An entity is hit when the pointer lies less than this many level pixels from it in x and in y.
inline constexpr float HitReach = 4;

/// A position of the view's client area in level pixels.
[[nodiscard]] inline LevelPoint ToLevel(float viewX, float viewY, float zoom) {
    return {viewX / zoom, viewY / zoom};
}

[[nodiscard]] inline bool IsHit(const LevelPoint& point, std::int16_t x, std::int16_t y) {
    return std::fabs(point.x - static_cast<float>(x)) < HitReach &&
           std::fabs(point.y - static_cast<float>(y)) < HitReach;
}

/// A coordinate as the records hold it: the nearest integer, halves to even, clamped to 16 bits.
[[nodiscard]] inline std::int16_t ToPosition(float coordinate) {
    return RoundTo<std::int16_t>(coordinate);
}

} // namespace editor
