# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})

option(OGL_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

add_library(ogl_options INTERFACE)
target_compile_options(ogl_options INTERFACE -Wall -Wextra -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 takes std::string's own copies for overlapping ones (its bug 105651).
    target_compile_options(ogl_options INTERFACE -Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 14
   AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 15 AND CMAKE_SIZEOF_VOID_P EQUAL 8)
    # GCC 14.2 dies in change_address_1 where a bit of a record is tested through a 4-byte address:
    # its peephole makes the test narrower and forgets that the address is zero-extended.
    target_compile_options(ogl_options INTERFACE -fno-peephole2)
endif()
# The same numbers on every build: no x87, no fused multiply-add.
target_compile_options(ogl_options INTERFACE -msse2 -mfpmath=sse -ffp-contract=off)
if(OGL_SANITIZE)
    target_compile_options(ogl_options INTERFACE -fsanitize=address,undefined
                                                 -fno-sanitize-recover=undefined
                                                 -fno-omit-frame-pointer)
    target_link_options(ogl_options INTERFACE -fsanitize=address,undefined)
endif()
if(WIN32)
    # 32-bit hosts promise a stack aligned to 4 bytes only.
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
        target_compile_options(ogl_options INTERFACE -mstackrealign)
    endif()
    target_compile_definitions(ogl_options INTERFACE WINVER=0x0601 _WIN32_WINNT=0x0601)
    target_link_options(ogl_options INTERFACE -static)
endif()
