# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# ogl_low_static_memory(TARGET)
# Keeps a program's static memory below 4 GiB, where the 4-byte addresses of host records reach, on
# 64-bit systems too.
function(ogl_low_static_memory target)
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE OFF)
    if(NOT CMAKE_SIZEOF_VOID_P EQUAL 8)
        return()
    elseif(MSVC)
        target_link_options(${target} PRIVATE /BASE:0x10000000 /DYNAMICBASE:NO)
    elseif(WIN32)
        target_link_options(${target} PRIVATE -Wl,--image-base,0x10000000
                                              -Wl,--disable-dynamicbase)
    else()
        target_link_options(${target} PRIVATE -no-pie)
    endif()
endfunction()
