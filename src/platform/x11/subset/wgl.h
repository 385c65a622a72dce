// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// OpenGL contexts of the Win32 subset, over GLX.
#pragma once

#include "platform/x11/subset/base.h"

using PROC = INT_PTR(WINAPI*)();

/// Contexts need a device context whose pixel format is set. All share one set of GL objects.
HGLRC wglCreateContext(HDC dc);
BOOL wglDeleteContext(HGLRC handle);
BOOL wglMakeCurrent(HDC handle, HGLRC context);
HGLRC wglGetCurrentContext();
HDC wglGetCurrentDC();
/// TRUE for two live contexts: sharing is there from the start.
BOOL wglShareLists(HGLRC first, HGLRC second);
/// Display lists from `listBase` on, one bitmap glyph each, of the font selected into `dc`.
BOOL wglUseFontBitmapsA(HDC handle, DWORD first, DWORD count, DWORD listBase);
PROC wglGetProcAddress(LPCSTR name);

inline constexpr int WGL_DRAW_TO_WINDOW_ARB = 0x2001;
inline constexpr int WGL_ACCELERATION_ARB = 0x2003;
inline constexpr int WGL_SUPPORT_OPENGL_ARB = 0x2010;
inline constexpr int WGL_DOUBLE_BUFFER_ARB = 0x2011;
inline constexpr int WGL_PIXEL_TYPE_ARB = 0x2013;
inline constexpr int WGL_COLOR_BITS_ARB = 0x2014;
inline constexpr int WGL_ALPHA_BITS_ARB = 0x201b;
inline constexpr int WGL_DEPTH_BITS_ARB = 0x2022;
inline constexpr int WGL_STENCIL_BITS_ARB = 0x2023;
inline constexpr int WGL_NO_ACCELERATION_ARB = 0x2025;
inline constexpr int WGL_FULL_ACCELERATION_ARB = 0x2027;
inline constexpr int WGL_TYPE_RGBA_ARB = 0x202b;
inline constexpr int WGL_SAMPLE_BUFFERS_ARB = 0x2041;
inline constexpr int WGL_SAMPLES_ARB = 0x2042;
inline constexpr int WGL_CONTEXT_MAJOR_VERSION_ARB = 0x2091;
inline constexpr int WGL_CONTEXT_MINOR_VERSION_ARB = 0x2092;
inline constexpr int WGL_CONTEXT_FLAGS_ARB = 0x2094;
inline constexpr int WGL_CONTEXT_PROFILE_MASK_ARB = 0x9126;
inline constexpr int WGL_CONTEXT_DEBUG_BIT_ARB = 0x1;
inline constexpr int WGL_CONTEXT_CORE_PROFILE_BIT_ARB = 0x1;
inline constexpr int WGL_CONTEXT_COMPATIBILITY_PROFILE_BIT_ARB = 0x2;

using PFNWGLCHOOSEPIXELFORMATARBPROC = BOOL(WINAPI*)(HDC dc, const int* integers,
                                                     const float* floats, UINT maximum,
                                                     int* formats, UINT* count);
using PFNWGLCREATECONTEXTATTRIBSARBPROC = HGLRC(WINAPI*)(HDC dc, HGLRC share,
                                                         const int* attributes);
using PFNWGLSWAPINTERVALEXTPROC = BOOL(WINAPI*)(int interval);

// Pointers, as extension functions are on Windows, so that code may test them; never null here.
extern const PFNWGLCHOOSEPIXELFORMATARBPROC wglChoosePixelFormatARB;
extern const PFNWGLCREATECONTEXTATTRIBSARBPROC wglCreateContextAttribsARB;
/// FALSE when the driver has no swap control.
extern const PFNWGLSWAPINTERVALEXTPROC wglSwapIntervalEXT;
