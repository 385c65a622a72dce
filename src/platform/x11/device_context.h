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
    DWORD currentOn = 0;    // the thread whose drawable it is, 0 for none
    HGDIOBJ font = nullptr; // selected, null for the system font
};

/// The live record behind a handle; null for anything else.
DeviceContext* findDeviceContext(HDC handle);

/// Makes the child as large as its window, and gives it a new GLX drawable then: drivers ask for a
/// drawable's size only now and then (Mesa after a swap), but always for a new one. So the back
/// buffer, whether the window is on the screen or not, has the window's size when this returns.
/// Nothing is done to a drawable that is current on another thread but to resize its window.
void fitDrawingChild(HWND window);

/// The window is going: its record and child go with it.
void forgetDeviceContext(HWND window);

/// The calling thread's current drawable, null when none.
DeviceContext* currentDeviceContext();
/// Replaces the drawable by a new one of the same window; contexts that are current on it stay so.
bool renewDrawable(DeviceContext& dc);
/// Makes no context current when `dc` is the calling thread's drawable.
void unbind(const DeviceContext& dc);

} // namespace ogl::x11
