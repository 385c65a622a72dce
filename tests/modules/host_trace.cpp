// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Stands in for a host's module with a trace function: it prints what it is told. Built twice under
// different names, and once without the function.
#include "platform/win32.h"

#include <cstdio>

#if defined(_WIN32)
#define TRACE_EXPORT extern "C" __declspec(dllexport)
#else
#define TRACE_EXPORT extern "C" __attribute__((visibility("default")))
#endif

#ifdef TRACE_NAME
TRACE_EXPORT int WINAPI D3DLL_DEBUG_WriteString(int first, const char* operation, const char* phase,
                                                int last) {
    std::printf("%s: %d|%s|%s|%d\n", TRACE_NAME, first, operation, phase, last);
    std::fflush(stdout);
    return 1;
}
#else
TRACE_EXPORT int unrelated() {
    return 0;
}
#endif
