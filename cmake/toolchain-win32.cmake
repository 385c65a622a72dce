# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT
set(OGL_MINGW i686-w64-mingw32)
set(OGL_WINDOWS_NAME win32)
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw.cmake)
