# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

# Run by cpack on the files that it is about to pack: what Debian wants besides, or in another
# form. gzip -n leaves the time out, so that the same files give the same package.
set(files "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}")
set(doc "${files}/share/doc/${CPACK_PACKAGE_NAME}")
file(COPY "${CPACK_PROJECT_SOURCE}/packaging/debian/changelog"
          "${CPACK_PROJECT_SOURCE}/packaging/debian/copyright"
     DESTINATION "${doc}"
     FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
# Where the package will stand, not where it is put together.
set(VERSION ${CPACK_PACKAGE_VERSION})
set(DOCDIR "${CPACK_PACKAGING_INSTALL_PREFIX}/share/doc/${CPACK_PACKAGE_NAME}")
configure_file("${CPACK_PROJECT_SOURCE}/packaging/torvak-level-editor.1.in"
               "${files}/share/man/man1/${CPACK_PACKAGE_NAME}.1" @ONLY NO_SOURCE_PERMISSIONS)
execute_process(
    COMMAND gzip -9n "${doc}/changelog" "${files}/share/man/man1/${CPACK_PACKAGE_NAME}.1"
    COMMAND_ERROR_IS_FATAL ANY)
