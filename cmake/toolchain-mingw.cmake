# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# What both Windows toolchains share: the posix-threads variant of MinGW-w64 (std::thread needs
# it), GLEW as compiled by scripts/glew_mingw.sh, and Wine to run what was built.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${OGL_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${OGL_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${OGL_MINGW}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${OGL_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

get_filename_component(OGL_CHECKOUT ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)
set(OGL_GLEW_DIR ${OGL_CHECKOUT}/build/glew-${OGL_WINDOWS_NAME}
    CACHE PATH "folder with include/GL/glew.h and lib/libglew32.a")
set(CMAKE_CROSSCOMPILING_EMULATOR "${OGL_CHECKOUT}/scripts/wine.sh;run;--timeout;1200")
