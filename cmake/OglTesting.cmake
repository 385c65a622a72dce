# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# GTest::gtest and GTest::gtest_main: Debian's library, or for the Windows builds the same sources
# compiled with the cross compiler.
if(CMAKE_CROSSCOMPILING)
    set(OGL_GOOGLETEST_DIR /usr/src/googletest CACHE PATH "GoogleTest's sources")
    set(INSTALL_GTEST OFF)
    set(BUILD_GMOCK OFF)
    add_subdirectory(${OGL_GOOGLETEST_DIR} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    set_target_properties(gtest gtest_main PROPERTIES COMPILE_WARNING_AS_ERROR OFF)
    if(NOT TARGET GTest::gtest)
        add_library(GTest::gtest ALIAS gtest)
        add_library(GTest::gtest_main ALIAS gtest_main)
    endif()
else()
    find_package(GTest REQUIRED)
endif()
