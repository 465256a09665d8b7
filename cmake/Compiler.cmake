# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

# What every target is compiled with: warnings as errors, sanitizers where a preset asks for
# them, and the hardening that costs nothing in a release.
add_library(editor_compiler INTERFACE)

if(MSVC)
    target_compile_options(editor_compiler INTERFACE /W4 /WX /utf-8)
else()
    target_compile_options(editor_compiler INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
endif()
target_compile_definitions(editor_compiler INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                                                     QT_NO_KEYWORDS)

if(EDITOR_SANITIZE)
    target_compile_options(editor_compiler INTERFACE
        -fsanitize=${EDITOR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(editor_compiler INTERFACE -fsanitize=${EDITOR_SANITIZE})
elseif(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND CMAKE_BUILD_TYPE STREQUAL "Release")
    target_compile_options(editor_compiler INTERFACE -fstack-protector-strong)
    target_compile_definitions(editor_compiler INTERFACE _FORTIFY_SOURCE=2 _GLIBCXX_ASSERTIONS)
    target_link_options(editor_compiler INTERFACE -Wl,-z,relro,-z,now)
endif()

find_program(EDITOR_CCACHE ccache)
if(EDITOR_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${EDITOR_CCACHE})
endif()
