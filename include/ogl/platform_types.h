// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The system handles in the library's interface.
#pragma once

#if defined(_WIN32)
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
/// A window: an X11 window id in a pointer's clothes.
typedef struct HWND__* HWND;
/// A bitmap made by CreateDIBSection.
typedef struct HBITMAP__* HBITMAP;
#endif
