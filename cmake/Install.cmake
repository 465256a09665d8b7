# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

# What `cmake --install` puts where, in the folders of the GNU coding standards, and the Debian
# package that cpack makes of the same files.
include(GNUInstallDirs)

install(TARGETS torvak-level-editor)

install(FILES packaging/torvak-level-editor.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/torvak-level-editor.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
        RENAME org.torvak.leveleditor.metainfo.xml) # AppStream wants its id for a name
install(FILES packaging/torvak-level-editor.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 16 22 24 32 48 64 128 256) # drawn for the pixels of each size by scripts/icons
    install(FILES packaging/icons/${size}.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
            RENAME torvak-level-editor.png)
endforeach()

# The manual page says where the guide and the examples lie, which depends on the prefix that
# `cmake --install` is given.
install(CODE "
    set(VERSION ${PROJECT_VERSION})
    set(DOCDIR \"${CMAKE_INSTALL_DOCDIR}\")
    cmake_path(ABSOLUTE_PATH DOCDIR BASE_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}\")
    configure_file(\"${PROJECT_SOURCE_DIR}/packaging/torvak-level-editor.1.in\"
                   \"${PROJECT_BINARY_DIR}/torvak-level-editor.1\" @ONLY NO_SOURCE_PERMISSIONS)")
install(FILES ${PROJECT_BINARY_DIR}/torvak-level-editor.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# docs/ and examples/ stay side by side, so that the links between them hold.
install(FILES docs/guide.md docs/file-formats.md DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
install(DIRECTORY docs/pictures DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
install(DIRECTORY examples/canyon examples/factory examples/islands
        DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME torvak-level-editor)
set(CPACK_PACKAGE_CONTACT "The authors of the Torvak! level editor <maintainers@torvak.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "level editor for the game Torvak!")
set(CPACK_PACKAGE_DESCRIPTION
"A level of the game Torvak! is a folder of pictures with two text files. This
editor shows the level's picture, magnified up to eight times, and lets start
points, items of five kinds and the waypoints of the bots, with links that may
require a jump or a rope, be placed over it.
.
New levels are made from a folder of PNG or BMP pictures; existing ones are
opened and saved back in the form that the game reads.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-liberation) # the windows' layouts were made for this face
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianFiles.cmake)
set(CPACK_PROJECT_SOURCE ${PROJECT_SOURCE_DIR})
include(CPack)
