// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/display.h"

#include <GL/glx.h>
#include <X11/Xutil.h>

namespace ogl::x11 {

/// A frame-buffer configuration that windows can have.
struct PixelFormat {
    GLXFBConfig config;
    XVisualInfo visual;
    int configId;
    int doubleBuffered;
    int red, green, blue, alpha, depth, stencil;
    int samples; // 0 without multisampling
    bool slow;
};

/// The format with this number (1, 2, ...), null when there is none.
const PixelFormat* pixelFormat(int number);

} // namespace ogl::x11
