# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# What a host program builds against: the library as ogl::ogl and, where there is no Windows, the
# platform layer as ogl::platform and the host kit as ogl::host, found with find_package(ogl) or
# pkg-config. The headers lie in a folder of their own version.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)
set(OGL_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/ogl-${PROJECT_VERSION})
set(OGL_PACKAGE ${CMAKE_INSTALL_LIBDIR}/cmake/ogl)
set(OGL_DOCS ${CMAKE_INSTALL_DATADIR}/doc/ogl)

set(OGL_INSTALLED ogl)
if(NOT WIN32)
    # A static library of MinGW's is of no use to a host built with another compiler.
    list(APPEND OGL_INSTALLED ogl_host ogl_memory32 ogl_options ogl_platform ogl_resources
                              ogl_system)
    set_target_properties(ogl_host PROPERTIES EXPORT_NAME host)
    set_target_properties(ogl_platform PROPERTIES EXPORT_NAME platform)
    install(FILES
        host/sample_flat.h
        host/scene_builder.h
        host/scene_parts.h
        host/vector3.h
        DESTINATION ${OGL_HEADERS}/host)
    install(FILES src/platform/memory32.h src/platform/win32.h DESTINATION ${OGL_HEADERS}/platform)
    install(DIRECTORY src/platform/x11/subset DESTINATION ${OGL_HEADERS}/platform/x11)
endif()
install(TARGETS ${OGL_INSTALLED} EXPORT oglTargets INCLUDES DESTINATION ${OGL_HEADERS})
install(DIRECTORY include/ogl DESTINATION ${OGL_HEADERS})

install(EXPORT oglTargets NAMESPACE ogl:: DESTINATION ${OGL_PACKAGE})
configure_package_config_file(cmake/oglConfig.cmake.in ${CMAKE_BINARY_DIR}/oglConfig.cmake
                              INSTALL_DESTINATION ${OGL_PACKAGE})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/oglConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES
    ${CMAKE_BINARY_DIR}/oglConfig.cmake
    ${CMAKE_BINARY_DIR}/oglConfigVersion.cmake
    cmake/OglLowMemory.cmake
    DESTINATION ${OGL_PACKAGE})

# Relative to the .pc file, so that the tree may be moved.
file(RELATIVE_PATH OGL_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/ogl.pc.in ${CMAKE_BINARY_DIR}/ogl.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/ogl.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
if(NOT WIN32)
    configure_file(cmake/ogl-host.pc.in ${CMAKE_BINARY_DIR}/ogl-host.pc @ONLY)
    install(FILES ${CMAKE_BINARY_DIR}/ogl-host.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endif()

# Import libraries for other compilers, made from the export list's names alone.
if(WIN32)
    file(STRINGS src/api/ogl.def lines REGEX "^    ")
    list(TRANSFORM lines REPLACE "^    (\"[^\"]+\"|[^ ]+).*$" "    \\1")
    list(JOIN lines "\n" names)
    set(OGL_IMPORT_DEF ${CMAKE_BINARY_DIR}/import/ogl.def)
    file(CONFIGURE OUTPUT ${OGL_IMPORT_DEF} CONTENT "LIBRARY ogl.dll\nEXPORTS\n@names@\n" @ONLY)
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
        set(machine i386)
    else()
        set(machine i386:x86-64)
    endif()
    find_program(OGL_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 REQUIRED)
    set(OGL_IMPORT_LIB ${CMAKE_BINARY_DIR}/import/ogl.lib)
    add_custom_command(
        OUTPUT ${OGL_IMPORT_LIB}
        COMMAND ${OGL_DLLTOOL} -m ${machine} -d ${OGL_IMPORT_DEF} -D ogl.dll -l ${OGL_IMPORT_LIB}
        DEPENDS ${OGL_IMPORT_DEF}
        VERBATIM)
    add_custom_target(ogl_import_lib ALL DEPENDS ${OGL_IMPORT_LIB})
    install(FILES ${OGL_IMPORT_DEF} ${OGL_IMPORT_LIB} DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()

# The program, with the page and the trace module that it finds beside itself.
if(WIN32)
    set(OGL_PROGRAM ${CMAKE_INSTALL_BINDIR})
else()
    set(OGL_PROGRAM ${CMAKE_INSTALL_LIBDIR}/ogl)
    set_target_properties(oglview PROPERTIES INSTALL_RPATH $ORIGIN/..)
    file(RELATIVE_PATH link /${CMAKE_INSTALL_BINDIR} /${OGL_PROGRAM}/oglview)
    file(CREATE_LINK ${link} ${CMAKE_BINARY_DIR}/oglview-link SYMBOLIC)
    install(FILES ${CMAKE_BINARY_DIR}/oglview-link DESTINATION ${CMAKE_INSTALL_BINDIR}
            RENAME oglview)
endif()
install(TARGETS oglview RUNTIME DESTINATION ${OGL_PROGRAM})
install(TARGETS oglview_trace
    RUNTIME DESTINATION ${OGL_PROGRAM}/oglview-modules
    LIBRARY DESTINATION ${OGL_PROGRAM}/oglview-modules
    ARCHIVE DESTINATION ${OGL_PROGRAM}/oglview-modules EXCLUDE_FROM_ALL)
install(DIRECTORY ${CMAKE_BINARY_DIR}/oglview-page DESTINATION ${OGL_PROGRAM})

# The sample host as source, and on Windows as a program.
install(DIRECTORY examples/minimal_host DESTINATION ${OGL_DOCS}/examples)
install(FILES examples/first_picture.cpp DESTINATION ${OGL_DOCS}/examples)
if(WIN32)
    install(PROGRAMS
        $<TARGET_FILE:minimal_host>
        $<TARGET_FILE:minimal_host_trace>
        DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

install(FILES LICENSE README.md DESTINATION ${OGL_DOCS})
install(DIRECTORY docs DESTINATION ${OGL_DOCS})
install(FILES viewer/node_modules/gl-matrix/LICENSE.md DESTINATION ${OGL_DOCS}/licences
        RENAME gl-matrix.txt)
# Of the code that is linked in, as Debian states them.
set(licences libcli11-dev libstb-dev libtinyobjloader-dev nlohmann-json3-dev)
if(WIN32)
    list(APPEND licences g++-mingw-w64-i686-posix libglew-dev mingw-w64-common)
endif()
foreach(package IN LISTS licences)
    install(FILES /usr/share/doc/${package}/copyright DESTINATION ${OGL_DOCS}/licences
            RENAME ${package}.txt)
endforeach()
