// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace editor {

[[nodiscard]] double Milliseconds(const std::function<void()>& work);

/// A field of this process's status in bytes: "VmRSS" what it has in memory, "VmHWM" the most that
/// it had. 0 where the system has no such field.
[[nodiscard]] std::int64_t StatusBytes(const std::string& field);

[[nodiscard]] double Median(std::vector<double> values);

/// The numbers that `program` prints when a process of its own runs it with `arguments`. Throws
/// std::runtime_error when there are not `count` of them.
[[nodiscard]] std::vector<double> InFreshProcess(const std::string& program,
                                                 const std::vector<std::string>& arguments,
                                                 std::size_t count);

} // namespace editor
