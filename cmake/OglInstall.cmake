# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# What a host program builds against: the library as ogl::ogl, the host kit as ogl::host, and their
# headers, found with find_package(ogl). The headers lie in a folder of their own version.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)
set(OGL_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/ogl-${PROJECT_VERSION})
set(OGL_PACKAGE ${CMAKE_INSTALL_LIBDIR}/cmake/ogl)

set(OGL_INSTALLED ogl)
if(NOT WIN32)
    # A static library of MinGW's is of no use to a host built with another compiler.
    list(APPEND OGL_INSTALLED ogl_host ogl_memory32 ogl_options ogl_system)
    set_target_properties(ogl_host PROPERTIES EXPORT_NAME host)
endif()
install(TARGETS ${OGL_INSTALLED} EXPORT oglTargets INCLUDES DESTINATION ${OGL_HEADERS})
install(DIRECTORY include/ogl DESTINATION ${OGL_HEADERS})
install(FILES
    host/sample_flat.h
    host/scene_builder.h
    host/scene_parts.h
    host/vector3.h
    DESTINATION ${OGL_HEADERS}/host)
if(TARGET oglview)
    install(TARGETS oglview)
endif()

install(EXPORT oglTargets NAMESPACE ogl:: DESTINATION ${OGL_PACKAGE})
configure_package_config_file(cmake/oglConfig.cmake.in ${CMAKE_BINARY_DIR}/oglConfig.cmake
                              INSTALL_DESTINATION ${OGL_PACKAGE})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/oglConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/oglConfig.cmake ${CMAKE_BINARY_DIR}/oglConfigVersion.cmake
        DESTINATION ${OGL_PACKAGE})
