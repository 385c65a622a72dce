// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The library's only door to the system. On Windows this is the SDK; elsewhere it declares exactly
// the subset of it that the library and its host program call, with the same names, widths and
// values, implemented in platform/x11. OpenGL, GLU and the WGL extensions come along.
#pragma once

#if defined(_WIN32)

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef DIRECTINPUT_VERSION
#define DIRECTINPUT_VERSION 0x0800
#endif

#include <windows.h>

#include <GL/glew.h>

#include <GL/glu.h>
#include <GL/wglew.h>
#include <dinput.h>

// Old memory-model keywords, which are good names for planes and distances.
#undef near
#undef far
#undef NEAR
#undef FAR
#define NEAR
#define FAR

#else

#include "platform/x11/subset/base.h"
#include "platform/x11/subset/gdi.h"
#include "platform/x11/subset/input.h"
#include "platform/x11/subset/kernel.h"
#include "platform/x11/subset/keys.h"
#include "platform/x11/subset/user.h"
#include "platform/x11/subset/wgl.h"

#endif

// Signed client coordinates of a mouse message, and the part of windowsx.h that is needed.
#ifndef GET_X_LPARAM
#define GET_X_LPARAM(lParam) (static_cast<int>(static_cast<short>(LOWORD(lParam))))
#define GET_Y_LPARAM(lParam) (static_cast<int>(static_cast<short>(HIWORD(lParam))))
#endif
