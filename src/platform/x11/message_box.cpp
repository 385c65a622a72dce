// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/win32.h"

#include <cstdio>

// A box that waits for a click would stop a render server for ever, and this layer has no toolkit
// for text: the message goes to standard error.
int MessageBoxA(HWND, LPCSTR text, LPCSTR caption, UINT) {
    std::fprintf(stderr, "%s: %s\n", caption ? caption : "Error", text ? text : "");
    std::fflush(stderr);
    return IDOK;
}
