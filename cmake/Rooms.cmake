# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

# editor_room(<folder> SOURCES file... LINKS target...)
#
# A folder of src/ as a static library editor_<folder>, included as "<folder>/File.h". LINKS are
# the rooms below that it stands on and the libraries that its headers need; tests, benchmarks
# and tools link a room on its own.
function(editor_room folder)
    cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
    add_library(editor_${folder} STATIC ${ROOM_SOURCES})
    target_include_directories(editor_${folder} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(editor_${folder} PUBLIC ${ROOM_LINKS} PRIVATE editor_compiler)
endfunction()

# editor_test(<name> SOURCES file... LINKS target... [GUI])
#
# A GoogleTest program test_<name>, one CTest entry. With GUI it runs under Qt's offscreen
# platform, with a QApplication that looks like the editor's.
function(editor_test name)
    cmake_parse_arguments(TEST "GUI" "" "SOURCES;LINKS" ${ARGN})
    add_executable(test_${name} ${TEST_SOURCES})
    target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(test_${name} PRIVATE ${TEST_LINKS} GTest::gtest editor_compiler)
    if(TEST_GUI)
        target_sources(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/GuiMain.cpp)
        target_link_libraries(test_${name} PRIVATE Qt6::Widgets Qt6::Test)
    else()
        target_link_libraries(test_${name} PRIVATE GTest::gtest_main)
    endif()
    add_test(NAME ${name} COMMAND test_${name})
    # Memory that cannot be had is an error to be handled under the sanitizers too.
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;ASAN_OPTIONS=allocator_may_return_null=1"
        TIMEOUT 600)
endfunction()
