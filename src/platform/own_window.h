// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The hidden window that carries the OpenGL context of views without a host window. There is one
// per process, made and run by a thread of its own; it is never shown.
#pragma once

#include "platform/win32.h"

namespace ogl {

/// The window, or null when it does not exist.
HWND ownWindow();

/// The window's device context, or null. It belongs to the window: nobody else releases it.
HDC ownWindowDC();

/// Starts the window's thread unless the window exists already, and waits at most 10 seconds for
/// it. `instance` registers the window class. Returns false when there is no window.
bool ensureOwnWindow(HINSTANCE instance);

/// Gives the client area the size in pixels (both > 0; anything else is ignored). When a context
/// is current on the window, returns only when the drawable has that size too, or after a second;
/// the back buffer's contents and no other OpenGL state are lost.
void resizeOwnWindow(int clientWidth, int clientHeight);

/// Asks the window's thread to close the window and waits, for a bounded time, until it has ended.
/// Safe while the library is being unloaded. Harmless when there is no window.
void tearDownOwnWindow();

} // namespace ogl
