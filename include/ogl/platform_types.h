// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
/// @file
/// The system handles in the library's interface, and its calling convention.
#pragma once

#if defined(_WIN32)
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#define OGL_CALL __cdecl
#else
#define OGL_CALL
/// A window: an X11 window id in a pointer's clothes.
typedef struct HWND__* HWND;
/// A bitmap made by CreateDIBSection.
typedef struct HBITMAP__* HBITMAP;
#endif
