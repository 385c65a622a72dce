# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# What cpack makes from the install rules: a zip file for Windows, a tar file and a Debian package
# for Linux.
set(CPACK_PACKAGE_VENDOR "The ogl authors")
set(CPACK_PACKAGE_CONTACT "The ogl authors <ogl@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Rendering library for architectural visualisation")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_THREADS 0)
if(WIN32)
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
        set(CPACK_PACKAGE_FILE_NAME ogl-${PROJECT_VERSION}-win32)
    else()
        set(CPACK_PACKAGE_FILE_NAME ogl-${PROJECT_VERSION}-win64)
    endif()
    set(CPACK_GENERATOR ZIP)
else()
    set(CPACK_PACKAGE_FILE_NAME ogl-${PROJECT_VERSION}-linux)
    set(CPACK_GENERATOR TGZ DEB)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_PACKAGE_SECTION libs)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    # What hosts need to build against the platform layer and the host kit.
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
        "libfontconfig-dev, libfreetype-dev, libgl-dev, libglew-dev, libglu1-mesa-dev, libx11-dev")
endif()
include(CPack)
