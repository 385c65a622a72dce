// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Stands in for a host's module with a trace function: it prints what it is told. Built twice under
// different names, and once without the function.
#include "platform/win32.h"

#include <cstdio>

#ifdef TRACE_NAME
extern "C" int WINAPI D3DLL_DEBUG_WriteString(int first, const char* operation, const char* phase,
                                              int last) {
    std::printf("%s: %d|%s|%s|%d\n", TRACE_NAME, first, operation, phase, last);
    std::fflush(stdout);
    return 1;
}
#else
extern "C" int unrelated() {
    return 0;
}
#endif
