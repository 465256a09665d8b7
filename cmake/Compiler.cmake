# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

# What every target is compiled with: warnings, which the presets turn into errors, sanitizers where
# a preset asks for them, and otherwise the hardening that costs nothing in an optimised program.
add_library(editor_compiler INTERFACE)

if(MSVC)
    target_compile_options(editor_compiler INTERFACE /W4 /utf-8)
else()
    target_compile_options(editor_compiler INTERFACE -Wall -Wextra -Wconversion -Wshadow)
endif()
target_compile_definitions(editor_compiler INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                                     QT_NO_KEYWORDS)
if(EDITOR_PLAIN)
    target_compile_definitions(editor_compiler INTERFACE EDITOR_PLAIN)
endif()

if(EDITOR_SANITIZE)
    target_compile_options(editor_compiler INTERFACE
        -fsanitize=${EDITOR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(editor_compiler INTERFACE -fsanitize=${EDITOR_SANITIZE})
elseif(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
    target_compile_options(editor_compiler INTERFACE $<${optimised}:-fstack-protector-strong>)
    target_compile_definitions(editor_compiler INTERFACE $<${optimised}:_GLIBCXX_ASSERTIONS>)
    target_link_options(editor_compiler INTERFACE $<${optimised}:-Wl,-z,relro,-z,now>)

    # Distributions define it in their flags or in the compiler itself, and once is enough.
    include(CheckCXXSourceCompiles)
    set(CMAKE_REQUIRED_FLAGS "-O2 ${CMAKE_CXX_FLAGS_RELEASE}")
    check_cxx_source_compiles("#ifndef _FORTIFY_SOURCE\n#error\n#endif\nint main() {}" EDITOR_FORTIFIED)
    unset(CMAKE_REQUIRED_FLAGS)
    if(NOT EDITOR_FORTIFIED)
        target_compile_definitions(editor_compiler INTERFACE $<${optimised}:_FORTIFY_SOURCE=2>)
    endif()
endif()
