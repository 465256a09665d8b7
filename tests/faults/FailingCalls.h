// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace editor::test {

/// What the n-th system call of a kind that can lose data does instead of its work. The calls are
/// open, write, fchmod, sync, link, rename and close; this program's own functions of those names
/// stand before the C library's.
struct Fault {
    int number = 0; // 1 for the first call after Arm()
    int error = 0;  // errno of the failure; 0: the process is killed before the call
};

/// Counts calls from now on and injects `fault`.
void Arm(const Fault& fault);

/// Ends the counting. Returns the name of the call that failed; empty when there were fewer.
std::string Disarm();

} // namespace editor::test
