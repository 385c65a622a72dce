# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# ogl_resources(NAME script.rc)
# Declares the target that carries a resource script's files. On Windows it is an object that the
# resource compiler made; elsewhere a static library with the same table, made from the same lines.
# Whatever links it (directly, on Windows) has the resources.
function(ogl_resources name script)
    get_filename_component(script ${script} ABSOLUTE)
    get_filename_component(folder ${script} DIRECTORY)
    file(STRINGS ${script} lines REGEX "^[0-9]+[ \t]")
    set(files)
    foreach(line IN LISTS lines)
        if(NOT line MATCHES "^[0-9]+[ \t]+[A-Za-z_]+[ \t]+\"([^\"]+)\"$")
            message(FATAL_ERROR "${script}: cannot read the line: ${line}")
        endif()
        list(APPEND files ${folder}/${CMAKE_MATCH_1})
    endforeach()
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${script})

    if(WIN32)
        set(object ${CMAKE_CURRENT_BINARY_DIR}/${name}.o)
        add_custom_command(
            OUTPUT ${object}
            COMMAND ${CMAKE_RC_COMPILER} --include-dir ${folder} ${script} ${object}
            DEPENDS ${script} ${files}
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
            COMMAND ${CMAKE_COMMAND} -DSCRIPT=${script} -DOUTPUT=${source}
                    -P ${CMAKE_SOURCE_DIR}/cmake/EmbedResources.cmake
            DEPENDS ${script} ${files} ${CMAKE_SOURCE_DIR}/cmake/EmbedResources.cmake
            COMMENT "Embedding ${name}"
            VERBATIM)
        add_library(${name} STATIC ${source})
        target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/src)
        target_link_libraries(${name} PRIVATE ogl_options)
    endif()
endfunction()
