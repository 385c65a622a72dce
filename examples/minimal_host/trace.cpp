// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The host's trace module, hx.dll: d3_Create tells it when it begins and when it has succeeded.
// Without such a module the library shows a message box once.
#include <windows.h>

#include <cstdio>

extern "C" int WINAPI D3DLL_DEBUG_WriteString(int, const char* operation, const char* phase, int) {
    return std::fprintf(stderr, "%s %s\n", operation, phase); // Latin-1
}
