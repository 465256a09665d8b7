# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

# editor_room(<folder> SOURCES file... [ROOMS folder...] [LIBRARIES target...]
#             [WITH_SIGNALS | WITHOUT_QT])
#
# A folder of src/ as a static library editor_<folder>, included as "<folder>/File.h". ROOMS are the
# rooms below that it stands on, and the only ones whose headers it may include: any other include
# fails the build, also of a header that needs no linking. LIBRARIES are those that its headers
# need. WITH_SIGNALS: has classes that say Q_OBJECT, which moc has to read. WITHOUT_QT: nothing of Qt
# is in its include path, although a room below may need it.
function(editor_room folder)
    cmake_parse_arguments(ROOM "WITH_SIGNALS;WITHOUT_QT" "" "SOURCES;ROOMS;LIBRARIES" ${ARGN})
    add_library(editor_${folder} STATIC ${ROOM_SOURCES})
    target_include_directories(editor_${folder} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(editor_${folder} PUBLIC ${ROOM_LIBRARIES} PRIVATE editor_compiler)
    foreach(below IN LISTS ROOM_ROOMS)
        if(ROOM_WITHOUT_QT)
            target_link_libraries(editor_${folder} PUBLIC $<LINK_ONLY:editor_${below}>)
        else()
            target_link_libraries(editor_${folder} PUBLIC editor_${below})
        endif()
    endforeach()
    set_target_properties(editor_${folder} PROPERTIES AUTOMOC ${ROOM_WITH_SIGNALS})

    file(GLOB files CONFIGURE_DEPENDS *.h *.cpp)
    set(checked ${CMAKE_CURRENT_BINARY_DIR}/includes.checked)
    add_custom_command(OUTPUT ${checked}
        COMMAND ${CMAKE_COMMAND} "-DFOLDER=${CMAKE_CURRENT_SOURCE_DIR}"
                "-DALLOWED=${folder};${ROOM_ROOMS}" -P ${PROJECT_SOURCE_DIR}/cmake/CheckIncludes.cmake
        COMMAND ${CMAKE_COMMAND} -E touch ${checked}
        DEPENDS ${files} ${PROJECT_SOURCE_DIR}/cmake/CheckIncludes.cmake CMakeLists.txt
        COMMENT "Reading the includes of ${folder}" VERBATIM)
    add_custom_target(includes_${folder} DEPENDS ${checked})
    add_dependencies(editor_${folder} includes_${folder})
endfunction()

# editor_test(<name> SOURCES file... LINKS target... [GUI] [VALGRIND])
#
# A GoogleTest program test_<name>, one CTest entry. With GUI it has a QApplication, under Qt's
# offscreen platform; on Windows, where that one lacks the fonts, on the desktop. VALGRIND makes
# the same tests also the program valgrind_<name>, which takes all memory from malloc(), whose
# use valgrind watches; ./test runs it.
set(EDITOR_TEST_PLATFORM $<IF:$<BOOL:${WIN32}>,windows,offscreen>)
function(editor_test name)
    cmake_parse_arguments(TEST "GUI;VALGRIND" "" "SOURCES;LINKS" ${ARGN})
    add_executable(test_${name} ${TEST_SOURCES})
    target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(test_${name} PRIVATE ${TEST_LINKS} GTest::gtest editor_compiler)
    if(TEST_GUI)
        target_link_libraries(test_${name} PRIVATE gui_main Qt6::Test)
    else()
        target_link_libraries(test_${name} PRIVATE GTest::gtest_main)
    endif()
    if(TEST_VALGRIND AND TARGET plain_buffers)
        # The linker takes no second LargeBuffer from the room's library.
        add_executable(valgrind_${name} $<TARGET_OBJECTS:test_${name}>)
        target_link_libraries(valgrind_${name} PRIVATE plain_buffers ${TEST_LINKS} GTest::gtest_main)
    endif()
    add_test(NAME ${name} COMMAND test_${name})
    # Memory that cannot be had is an error to be handled under the sanitizers too.
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=${EDITOR_TEST_PLATFORM};ASAN_OPTIONS=allocator_may_return_null=1"
        TIMEOUT 600)
endfunction()
