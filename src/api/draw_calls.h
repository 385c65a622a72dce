// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"
#include "platform/win32.h"

namespace ogl {

class RenderContext;

/// Where a window frame goes besides the view's own window.
struct WindowTargets {
    bool drawMain = true;        ///< draw into the view's window
    HWND secondWindow = nullptr; ///< draw into this window too, or null
    HBITMAP capture = nullptr;   ///< DIB section that receives the main window's frame, or null
};

/// One frame into the view's window and, when asked, a second window. Leaves the context of the
/// last surface current.
void drawInWindow(RenderContext& context, SCENE& scene, uint32_t drawFlags,
                  const WindowTargets& targets);

/// One frame into a DIB section. With a view on the library's own window that window takes the
/// bitmap's size, or that of a tile when the driver cannot draw the bitmap at once; of photos the
/// log then says so. With a host's window that has no size, being minimised, nothing is drawn and
/// the log says so. Leaves no context current.
void drawInDibSection(RenderContext& context, SCENE& scene, uint32_t drawFlags, HBITMAP dib);

/// One frame into a Windows bitmap file. With a view on the library's own window that window takes
/// the file's size; with a host's window the part of the frame that lies in it is defined. A size
/// without pixels, or beyond what the driver draws at once, makes no file and an entry in the log.
/// Leaves the primary context current, or the second one when the first window is gone.
void drawInFile(RenderContext& context, SCENE& scene, uint32_t drawFlags, int width, int height,
                const char* fileName);

} // namespace ogl
