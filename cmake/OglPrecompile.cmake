# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# Off where people work and where the sources are checked, so that a file that lacks an include is
# found out; on where a build from nothing should be quick.
option(OGL_PRECOMPILE "Compile the headers that most files include once" OFF)

set(OGL_STANDARD_HEADERS
    <algorithm> <array> <cmath> <cstdint> <cstring> <filesystem> <functional> <memory> <span>
    <string> <vector>)

# ogl_precompile(NAME headers...)
# The headers, for a target with so many files that it pays.
function(ogl_precompile name)
    get_target_property(sources ${name} SOURCES)
    list(LENGTH sources count)
    if(OGL_PRECOMPILE AND count GREATER 7)
        target_precompile_headers(${name} PRIVATE ${ARGN})
    endif()
endfunction()
