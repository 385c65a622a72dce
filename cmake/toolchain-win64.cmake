# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
set(OGL_MINGW x86_64-w64-mingw32)
set(OGL_WINDOWS_NAME win64)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw.cmake)
