// SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
// SPDX-License-Identifier: MIT

#pragma once

// EDITOR_SSE2 is defined where the code written for SSE2 may be compiled. Every x86-64 processor
// has SSE2; for 32-bit x86 the compiler says whether it may use it. All other processors run the
// plain code, and so does everything when EDITOR_PLAIN, an option of the build, is set.
//
// Code for an instruction set stands in files of its own, beside a file with the same functions in
// plain C++; each of the two is empty where the other is compiled.
#if defined(EDITOR_PLAIN) || defined(_M_ARM64EC)
// Plain. (Compiling x86-64 code for ARM, MSVC defines _M_X64 and would only emulate SSE2.)
#elif defined(__SSE2__) || defined(_M_X64)
#define EDITOR_SSE2
#elif defined(_M_IX86_FP)
#if _M_IX86_FP >= 2
#define EDITOR_SSE2
#endif
#endif
