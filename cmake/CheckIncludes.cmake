# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

# Run by the build on each room: fails when a file of FOLDER includes a header of a room that is not
# among ALLOWED. Headers of libraries stand in angle brackets and are the linker's business.
cmake_policy(VERSION 3.25)
file(GLOB files ${FOLDER}/*.h ${FOLDER}/*.cpp)
foreach(file IN LISTS files)
    file(STRINGS ${file} includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
    foreach(line IN LISTS includes)
        string(REGEX REPLACE "^[^\"]*\"([^\"/]*).*" "\\1" room "${line}")
        if(NOT room IN_LIST ALLOWED)
            message(FATAL_ERROR "${file}: ${line}\nThis room may include ${ALLOWED} only: "
                                "see docs/architecture.md")
        endif()
    endforeach()
endforeach()
