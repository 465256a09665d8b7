// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace editor {

/// How many bytes of memory the system could give this process now without swapping anything out;
/// on Linux, the limits of its control groups count too. Where the system does not say, as many as
/// a program can address.
[[nodiscard]] std::uint64_t FreeMemory();

} // namespace editor
