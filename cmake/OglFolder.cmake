# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# ogl_folder(NAME DEPENDS targets... [FOLDERS folders...] SOURCES files...)
# Declares the static library of one source folder, and of folders in it that are not of their own.
# Its files see these, include/ and what the named targets see; another folder's header does not
# exist for them.
function(ogl_folder name)
    cmake_parse_arguments(ARG "" "" "DEPENDS;FOLDERS;SOURCES" ${ARGN})
    set(visible $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/include>)
    foreach(folder IN ITEMS ${CMAKE_CURRENT_SOURCE_DIR} ${ARG_FOLDERS})
        ogl_room(${folder} room)
        list(APPEND visible $<BUILD_INTERFACE:${room}>)
    endforeach()
    if(ARG_SOURCES)
        add_library(${name} STATIC ${ARG_SOURCES})
        target_include_directories(${name} PUBLIC ${visible})
        target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE ogl_options)
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${visible})
        target_link_libraries(${name} INTERFACE ${ARG_DEPENDS})
    endif()
endfunction()

# ogl_room(FOLDER RESULT)
# Sets RESULT to a folder of the build in which the headers of FOLDER, one of src/, are found under
# the name that they have in src/, and no others. A folder elsewhere is seen with all beside it.
function(ogl_room folder result)
    file(RELATIVE_PATH path ${CMAKE_SOURCE_DIR}/src ${folder})
    if(path MATCHES "^\\.\\.")
        get_filename_component(parent ${folder} DIRECTORY)
        set(${result} ${parent} PARENT_SCOPE)
        return()
    endif()
    string(REPLACE "/" "_" name ${path})
    set(room ${CMAKE_BINARY_DIR}/rooms/${name})
    file(REMOVE_RECURSE ${room})
    file(MAKE_DIRECTORY ${room}/${path})
    file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h)
    foreach(header IN LISTS headers)
        get_filename_component(file ${header} NAME)
        file(CREATE_LINK ${header} ${room}/${path}/${file} SYMBOLIC)
    endforeach()
    set(${result} ${room} PARENT_SCOPE)
endfunction()
