# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

include(OglPrecompile)

# ogl_folder(NAME DEPENDS targets... SOURCES files...)
# Declares the static library of one source folder. Only the named folders are on its link line.
function(ogl_folder name)
    cmake_parse_arguments(ARG "" "" "DEPENDS;SOURCES" ${ARGN})
    if(ARG_SOURCES)
        add_library(${name} STATIC ${ARG_SOURCES})
        target_include_directories(${name} PUBLIC
            "$<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/include;${CMAKE_SOURCE_DIR}/src>")
        target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE ogl_options)
        if(ogl_platform IN_LIST ARG_DEPENDS OR ogl_gpu IN_LIST ARG_DEPENDS
           OR ogl_render IN_LIST ARG_DEPENDS OR ogl_fixed IN_LIST ARG_DEPENDS)
            ogl_precompile(${name} ${CMAKE_SOURCE_DIR}/src/platform/win32.h ${OGL_STANDARD_HEADERS})
        endif()
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${CMAKE_SOURCE_DIR}/include
                                                     ${CMAKE_SOURCE_DIR}/src)
        target_link_libraries(${name} INTERFACE ${ARG_DEPENDS})
    endif()
endfunction()
