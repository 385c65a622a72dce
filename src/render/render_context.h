// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"
#include "platform/gl_surface.h"
#include "platform/input_devices.h"
#include "platform/win32.h"
#include "render/error_log.h"
#include "render/settings.h"

#include <string>

namespace ogl {

/// Graphics vendors, by the prefix of the driver's vendor string.
inline constexpr int kVendorOther = 0;
inline constexpr int kVendorNvidia = 1;
inline constexpr int kVendorAti = 2;
inline constexpr int kVendorIntel = 3;

/// The log's file for a configuration file: beside it, or in the root directory without a name.
std::string logPathFor(const std::string& iniPath);

/// One view of a host: its window surfaces, settings, log and input devices. Renderers keep
/// pointers into it; they stay valid for its lifetime.
class RenderContext {
  public:
    /// Reads the configuration, opens the log next to it and, when `createFlags` has
    /// kCreateInputDevices, the input devices. `iniPath` is not null; an empty one reads
    /// "space.ini" of the current directory and logs into the root directory. What goes wrong is
    /// logged; construction goes on.
    RenderContext(HWND viewWindow, unsigned createFlags, const char* iniPath);

    /// Deletes the font lists and tears both surfaces down. No renderer that draws through this
    /// view may exist any more.
    ~RenderContext();
    RenderContext(const RenderContext&) = delete;
    RenderContext& operator=(const RenderContext&) = delete;

    /// Makes the primary surface's context, checks that the driver offers what the renderers need,
    /// logs driver facts and problems, and builds the bitmap font. No context is current
    /// afterwards when it returns true. On false the view is of no use.
    bool initializeOpenGL();

    /// Opens the second surface on this window, unless it is open; closes it for null. What goes
    /// wrong is logged.
    void setSecondWindow(HWND secondWindow);

    /// Makes the first window's context current or, where that is gone, the second's, and returns
    /// that surface; null with none current. A surface whose window is gone is torn down, and the
    /// log says so.
    GLSurface* makeCurrent();

    InputDevices input;
    unsigned fontListBase = 0; ///< first of kFontListCount display lists
    ErrorLog errorLog;
    Settings settings;
    std::string directory; ///< of the configuration file, with its last backslash
    GLSurface primary;
    GLSurface secondary; ///< optional second window; shares objects with `primary`
    HWND window = nullptr;
    unsigned flags = 0;  ///< of d3_Create
    int glVersion = 0;   ///< 100 x major + 10 x minor
    int vendor = 0;      ///< kVendor...
    int constructed = 0; ///< 1 once the constructor has finished
    int glReady = 0;     ///< 1 once initializeOpenGL has succeeded

  private:
    bool makePrimaryContext();
    bool checkVersions();
    bool checkCapabilities();
    void buildFont(HDC dc);
    void releaseGLObjects();
    void dropLostSurfaces();
    void dropIfLost(GLSurface& surface, const char* message);
    void logError(const std::string& message, const std::string& value = {});

    GLFontLists fontLists_;
    bool opened_ = false; ///< counted among the views whose GL objects are watched
};

} // namespace ogl
