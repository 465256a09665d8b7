// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace editor {

/// How many bytes of memory the system could give this process now without swapping anything out;
/// on Linux, the limits of its control groups count too. As many as a program can address where the
/// system does not say.
[[nodiscard]] std::uint64_t FreeMemory();

} // namespace editor
