# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# ogl_exports(TARGET FILE.def)
# Makes the shared library export what the list in the .def file names, and nothing else. On Linux a
# record helper is exported under its plain name, because '@' starts a version in ELF symbols.
function(ogl_exports target def)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${def})
    set(generated ${CMAKE_BINARY_DIR}/generated)
    # [[    "decorated" = Function@12]] or [[    function]]
    set(line_pattern [[^    "?([^" ]+)"?( = ([A-Za-z0-9_]+)(@[0-9]+)?)?$]])
    file(STRINGS ${def} lines REGEX "^    ")
    set(windows_list "LIBRARY ogl.dll\nEXPORTS\n")
    set(linux_list "")
    foreach(line IN LISTS lines)
        if(NOT line MATCHES "${line_pattern}")
            message(FATAL_ERROR "${def}: cannot read the line: ${line}")
        endif()
        set(name "${CMAKE_MATCH_1}")
        set(function "${CMAKE_MATCH_3}")
        set(suffix "${CMAKE_MATCH_4}")
        if(function STREQUAL "")
            set(function ${name})
        endif()
        if(NOT CMAKE_SIZEOF_VOID_P EQUAL 4)
            set(suffix "")
        endif()
        string(APPEND windows_list "    \"${name}\" = ${function}${suffix}\n")
        string(APPEND linux_list "        ${function};\n")
    endforeach()

    if(WIN32)
        set(list_file ${generated}/ogl.def)
        file(CONFIGURE OUTPUT ${list_file} CONTENT "@windows_list@" @ONLY)
        target_link_options(${target} PRIVATE ${list_file})
    else()
        set(list_file ${generated}/ogl.map)
        file(CONFIGURE OUTPUT ${list_file} CONTENT
             "{\n    global:\n@linux_list@    local:\n        *;\n};\n" @ONLY)
        target_link_options(${target} PRIVATE -Wl,--version-script=${list_file})
    endif()
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${list_file})
endfunction()
