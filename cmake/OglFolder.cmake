# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# ogl_folder(NAME DEPENDS targets... SOURCES files...)
# Declares the static library of one source folder. Only the named folders are on its link line.
function(ogl_folder name)
    cmake_parse_arguments(ARG "" "" "DEPENDS;SOURCES" ${ARGN})
    if(ARG_SOURCES)
        add_library(${name} STATIC ${ARG_SOURCES})
        target_include_directories(${name} PUBLIC
            "$<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/include;${CMAKE_SOURCE_DIR}/src>")
        target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE ogl_options)
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${CMAKE_SOURCE_DIR}/include
                                                     ${CMAKE_SOURCE_DIR}/src)
        target_link_libraries(${name} INTERFACE ${ARG_DEPENDS})
    endif()
endfunction()
