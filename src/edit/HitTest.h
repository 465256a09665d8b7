// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Rounding.h"
#include "model/mdlEdit.h"

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

template <class Record>
[[nodiscard]] bool IsHit(const LevelPoint& point, const Record& entity) {
    const auto& [x, y] = PositionOf(entity);
    return std::fabs(point.x - static_cast<float>(x)) < HitReach &&
           std::fabs(point.y - static_cast<float>(y)) < HitReach;
}

/// Each coordinate goes to the nearest integer, halves to even, clamped to 16 bits.
template <class Record>
void MoveTo(Record& entity, const LevelPoint& point) {
    const auto& [x, y] = PositionOf(entity);
    x = RoundTo<std::int16_t>(point.x);
    y = RoundTo<std::int16_t>(point.y);
}

} // namespace editor
