# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# ogl_resource_parts(RESULT folder file)
# The files that a text takes in by #include "file", those of its parts, too.
function(ogl_resource_parts result folder name)
    file(STRINGS ${folder}/${name} lines REGEX "^#include \"")
    set(parts)
    foreach(line IN LISTS lines)
        string(REGEX MATCH "\"([^\"]+)\"" matched "${line}")
        set(part ${CMAKE_MATCH_1})
        ogl_resource_parts(inner ${folder} ${part})
        list(APPEND parts ${folder}/${part} ${inner})
    endforeach()
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${folder}/${name})
    set(${result} ${parts} PARENT_SCOPE)
endfunction()

# ogl_resources(NAME script.rc)
# Declares the target that carries the texts that a resource script names, each assembled from its
# parts. On Windows it is an object that the resource compiler made; elsewhere a static library with
# the same table, made from the same lines. Whatever links it (directly, on Windows) has the
# resources.
function(ogl_resources name script)
    get_filename_component(script ${script} ABSOLUTE)
    get_filename_component(folder ${script} DIRECTORY)
    file(STRINGS ${script} lines REGEX "^[0-9]+[ \t]")
    set(files)
    foreach(line IN LISTS lines)
        if(NOT line MATCHES "^[0-9]+[ \t]+[A-Za-z_]+[ \t]+\"([^\"]+)\"$")
            message(FATAL_ERROR "${script}: cannot read the line: ${line}")
        endif()
        list(APPEND files ${CMAKE_MATCH_1})
    endforeach()
    list(REMOVE_DUPLICATES files)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${script})

    set(assembled ${CMAKE_CURRENT_BINARY_DIR}/${name}_texts)
    set(sources)
    set(texts)
    foreach(file IN LISTS files)
        ogl_resource_parts(parts ${folder} ${file})
        list(APPEND sources ${folder}/${file} ${parts})
        list(APPEND texts ${assembled}/${file})
    endforeach()
    list(REMOVE_DUPLICATES sources)
    add_custom_command(
        OUTPUT ${texts}
        COMMAND ${CMAKE_COMMAND} -DSCRIPT=${script} -DOUTPUT=${assembled}
                -P ${CMAKE_SOURCE_DIR}/cmake/AssembleTexts.cmake
        DEPENDS ${script} ${sources} ${CMAKE_SOURCE_DIR}/cmake/AssembleTexts.cmake
        COMMENT "Assembling the texts of ${name}"
        VERBATIM)

    if(WIN32)
        set(object ${CMAKE_CURRENT_BINARY_DIR}/${name}.o)
        add_custom_command(
            OUTPUT ${object}
            COMMAND ${CMAKE_RC_COMPILER} --include-dir ${assembled} ${script} ${object}
            DEPENDS ${script} ${texts}
            COMMENT "Compiling ${name}"
            VERBATIM)
        add_custom_target(${name}_object DEPENDS ${object})
        add_library(${name} INTERFACE)
        add_dependencies(${name} ${name}_object)
        target_link_libraries(${name} INTERFACE ${object})
    else()
        set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
        add_custom_command(
            OUTPUT ${source}
            COMMAND ${CMAKE_COMMAND} -DSCRIPT=${script} -DFOLDER=${assembled} -DOUTPUT=${source}
                    -P ${CMAKE_SOURCE_DIR}/cmake/EmbedResources.cmake
            DEPENDS ${script} ${texts} ${CMAKE_SOURCE_DIR}/cmake/EmbedResources.cmake
            COMMENT "Embedding ${name}"
            VERBATIM)
        add_library(${name} STATIC ${source})
        target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/src)
        target_link_libraries(${name} PRIVATE ogl_options)
    endif()
endfunction()
