// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The X server as this layer sees it. Xlib's own thread locks are on, so that every function here
// may be called from any thread.
#pragma once

#include "platform/win32.h"

#include <X11/Xlib.h>

namespace ogl::x11 {

/// The connection for everything but window events, opened by the first call that succeeds and kept
/// until the process ends. Null without an X server; the first time, standard error says so.
Display* display();

/// One more connection, for the events of one thread's windows; closeConnection closes it.
Display* openConnection();
void closeConnection(Display* connection);

/// Counts the X errors of a connection. They never end the process: a host may destroy its window
/// at any moment. With OGL_DEBUG=1 those outside every scope are written to standard error.
class ErrorScope {
  public:
    explicit ErrorScope(Display* connection);
    ~ErrorScope();
    ErrorScope(const ErrorScope&) = delete;
    ErrorScope& operator=(const ErrorScope&) = delete;
    /// True when a request of this scope failed. Waits for the server to answer them all.
    bool failed() const;

  private:
    Display* connection_;
    unsigned before_;
};

struct Size {
    int width;
    int height;
    bool operator==(const Size&) const = default;
};

/// The size of a window of any client; false when there is no such window.
bool windowSize(Window window, Size& size);

inline Window toWindow(HWND handle) {
    return reinterpret_cast<Window>(handle);
}
inline HWND toHandle(Window window) {
    return reinterpret_cast<HWND>(window);
}

/// Writes "ogl: text" to standard error, each text once per process.
void sayOnce(const char* text);

} // namespace ogl::x11
