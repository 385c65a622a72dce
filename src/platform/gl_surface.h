// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl {

/// The device context and OpenGL context of one window. Empty until createContext; createContext
/// and tearDown are the only ways to fill and empty it.
struct GLSurface {
    HDC dc = nullptr;
    HGLRC glContext = nullptr;
    char aaName[32] = {}; ///< for example "4x MSAA"; empty when no multisample format was found
    HWND window = nullptr;
    int isSecondary = -1;    ///< 0 first window of a view, 1 second window, -1 torn down
    int samples = -1;        ///< GL_SAMPLES of the window's pixel format, -1 torn down
    bool stateReset = false; ///< the context has had the state that renderers start from
};

/// Results of createContext. Faults are structured exceptions of the driver, which only Windows
/// has.
enum ContextResult : int {
    kContextCreated = 1,
    kChoosePixelFormatFaulted = -1,
    kGlewInitFailed = -2,
    kFormatSearchFaulted = -3,
    kVersionUnknown = -4,
    kSetPixelFormatFailed = -5,
    kSetPixelFormatFaulted = -6,
    kCreateContextFailed = -7,
    kCreateContextFaulted = -8,
    kMakeCurrentFailed = -9,
    kMakeCurrentFaulted = -10,
    kSharingFailed = -12, ///< with the contexts that there are; -11 is of what follows
};

/// Gives `dc` a double-buffered pixel format with as many samples per pixel as the driver offers,
/// at most `requestedSamples`, and `surface` an OpenGL context for it, which is current afterwards.
/// All contexts share textures, buffers and display lists: one renderer draws for every view.
/// A window whose pixel format is set already keeps it. Sets every field but `window`.
/// Returns a ContextResult.
int createContext(GLSurface& surface, int requestedSamples, int isSecondary, HDC dc);

/// Makes the surface's context current. False, with no context current, when the surface has none,
/// its window is gone or the system refuses.
bool makeCurrent(const GLSurface& surface);

/// Whether the surface's window was destroyed under it.
bool isLost(const GLSurface& surface);

/// Number of the current context: another one for every context that createContext made, also when
/// the system gives a handle out again; 0 when none of those is current.
unsigned currentContextNumber();
/// Whether that context is still there.
bool isContextOpen(unsigned number);

/// Number of the contexts that there are: another one once they have all gone, and with them every
/// object that they shared.
unsigned contextGeneration();

/// Deletes the context, releases the device context and empties the surface. The own window's
/// device context is not released: it belongs to that window. Harmless on an empty surface.
void tearDown(GLSurface& surface);

} // namespace ogl
