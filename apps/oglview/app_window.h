// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/parse_values.h"
#include "platform/win32.h"

#include <functional>
#include <string>

namespace oglview {

/// A window that hands its input on.
class AppWindow {
  public:
    /// Hears the messages; those that it takes, returning true, go no further.
    using Listener = std::function<bool(UINT message, WPARAM wParam, LPARAM lParam)>;

    /// Opens the window, hidden; `size` is that of its client area. Throws UserError when there is
    /// no display.
    AppWindow(const Size& size, Listener listener);
    ~AppWindow();
    AppWindow(const AppWindow&) = delete;
    AppWindow& operator=(const AppWindow&) = delete;

    HWND get() const { return window_; }
    void show() const;
    void setTitle(const std::string& title) const;
    /// Handles the messages that wait. False when somebody has closed the window.
    bool handleMessages();
    /// The window stays until this object goes, after what draws in it.
    void close() { open_ = false; }

    /// Size of the client area; nothing when there is none.
    Size clientSize() const;
    /// The pointer is outside the window, which no message tells.
    bool pointerLeft() const;

  private:
    static LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);

    Listener listener_;
    HWND window_ = nullptr;
    bool open_ = true;
};

} // namespace oglview
