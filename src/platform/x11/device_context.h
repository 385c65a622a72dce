// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/display.h"
#include "platform/x11/gdi_object.h"

#include <GL/glx.h>

#include <memory>

namespace ogl::x11 {

/// How a window is drawn into. Setting the pixel format puts a child with the matching visual into
/// the window; the child always covers it.
struct DeviceContext {
    HDC handle = nullptr; // never given out twice, so that a stale one is told from a new one
    Window window = None;
    int references = 0;
    int format = 0; // pixel format, 0 before SetPixelFormat
    Window child = None;
    GLXWindow drawable = None;
    Size childSize{0, 0};
    HGDIOBJ font = nullptr; // selected, null for the system font
};

/// The live record behind a handle; null for anything else.
DeviceContext* findDeviceContext(HDC dc);

/// Makes the child as large as its window. Where it is the calling thread's drawable, the driver
/// learns of the new size at once: back buffers of windows that are not on the screen have it too.
void fitDrawingChild(HWND window);

/// The window is going: its record and child go with it.
void forgetDeviceContext(HWND window);

/// The calling thread's current drawable, null when none.
DeviceContext* currentDeviceContext();
/// Binds the current context and drawable anew, so that the driver asks for the drawable's size.
void rebindCurrent();
/// Makes no context current when `dc` is the calling thread's drawable.
void unbind(const DeviceContext& dc);

} // namespace ogl::x11
