// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace editor {

/// The nearest integer that `Integer` holds; halves go to the even neighbour, what lies outside
/// its range (infinities too) to the nearest limit, and "not a number" to 0. The one place where
/// a floating-point value becomes an integer of the model.
template <class Integer>
[[nodiscard]] inline Integer RoundTo(double value) {
    using Limits = std::numeric_limits<Integer>;
    static_assert(sizeof(Integer) <= 4, "every limit must be exact as a double");
    if (std::isnan(value)) {
        return 0;
    }
    // The default rounding mode of IEEE 754 is "to nearest, ties to even"; nothing here changes it.
    const double rounded = std::nearbyint(value);
    if (rounded <= static_cast<double>(Limits::min())) {
        return Limits::min();
    }
    if (rounded >= static_cast<double>(Limits::max())) {
        return Limits::max();
    }
    return static_cast<Integer>(rounded);
}

} // namespace editor
