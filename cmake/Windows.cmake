# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

# What the program needs on Windows: icon, version and manifest in the executable, and what
# `cmake --install` puts into the folder from which it runs.
enable_language(RC)

set(PACKAGING ${PROJECT_SOURCE_DIR}/packaging/windows)
set(resources ${PROJECT_BINARY_DIR}/torvak-level-editor.rc)
configure_file(${PACKAGING}/torvak-level-editor.rc.in ${resources} @ONLY)
set_source_files_properties(${resources} TARGET_DIRECTORY torvak-level-editor PROPERTIES
    INCLUDE_DIRECTORIES ${PACKAGING}
    OBJECT_DEPENDS "${PACKAGING}/torvak-level-editor.ico;${PACKAGING}/torvak-level-editor.manifest")
target_sources(torvak-level-editor PRIVATE ${resources})

install(TARGETS torvak-level-editor RUNTIME DESTINATION .)
set(qt $<TARGET_FILE:Qt6::Core> $<TARGET_FILE:Qt6::Gui> $<TARGET_FILE:Qt6::Widgets>)
install(FILES ${qt} DESTINATION .)
install(FILES $<TARGET_FILE:Qt6::QWindowsIntegrationPlugin> DESTINATION platforms)
install(FILES LICENSE DESTINATION . RENAME LICENSE.txt)
install(FILES docs/guide.md docs/file-formats.md DESTINATION docs)
install(DIRECTORY docs/pictures DESTINATION docs)
install(DIRECTORY examples/canyon examples/factory examples/islands DESTINATION examples)

# The other libraries that these ask for, but for the system's own. Asked of the files themselves, since
# what a Qt needs depends on who built it. (Qt's own would not be found from another system: CMake
# looks for names in small letters.)
get_filename_component(compiler_folder ${CMAKE_CXX_COMPILER} DIRECTORY)
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++-6.dll
    OUTPUT_VARIABLE runtime OUTPUT_STRIP_TRAILING_WHITESPACE)
get_filename_component(runtime_folder ${runtime} DIRECTORY)
list(TRANSFORM CMAKE_FIND_ROOT_PATH APPEND /lib OUTPUT_VARIABLE library_folders)
install(CODE "
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_COMMAND \"${CMAKE_OBJDUMP}\")
    file(GET_RUNTIME_DEPENDENCIES
        RESOLVED_DEPENDENCIES_VAR libraries
        EXECUTABLES \"$<TARGET_FILE:torvak-level-editor>\"
        LIBRARIES ${qt}
        MODULES \"$<TARGET_FILE:Qt6::QWindowsIntegrationPlugin>\"
        DIRECTORIES \"$<TARGET_FILE_DIR:Qt6::Core>\" \"${runtime_folder}\" \"${compiler_folder}\"
                    ${library_folders}
        PRE_EXCLUDE_REGEXES \"^api-ms-\" \"^ext-ms-\"
        POST_EXCLUDE_REGEXES \"[Ss]ystem32\"
        UNRESOLVED_DEPENDENCIES_VAR of_the_system)
    file(INSTALL \${libraries} DESTINATION \"\${CMAKE_INSTALL_PREFIX}\")
    if(CMAKE_INSTALL_DO_STRIP)
        file(GLOB_RECURSE files \"\${CMAKE_INSTALL_PREFIX}/*.dll\")
        execute_process(COMMAND \"${CMAKE_STRIP}\" \${files} COMMAND_ERROR_IS_FATAL ANY)
    endif()")
