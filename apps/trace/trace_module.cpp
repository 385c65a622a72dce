// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The trace function of the host program, which the library looks for in the host's modules. It
// writes what it is told to standard error when OGL_TRACE=1 is set.
#include "platform/win32.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" int WINAPI D3DLL_DEBUG_WriteString(int, const char* operation, const char* phase, int) {
    const char* wanted = std::getenv("OGL_TRACE");
    if (wanted != nullptr && std::strcmp(wanted, "1") == 0)
        std::fprintf(stderr, "%s %s\n", operation, phase);
    return 1;
}
