# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# Off where people work, so that a file that lacks an include is found out; on where a build from
# nothing should be quick.
option(OGL_PRECOMPILE "Compile the headers that most tests include once" OFF)

# ogl_precompile(NAME headers...)
# For a test program with so many files that it pays. Its files are compiled one by one, since each
# names its own figures and helpers as it likes.
function(ogl_precompile name)
    get_target_property(sources ${name} SOURCES)
    list(LENGTH sources count)
    if(OGL_PRECOMPILE AND count GREATER 7)
        target_precompile_headers(${name} PRIVATE ${ARGN})
        set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
    endif()
endfunction()
