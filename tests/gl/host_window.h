// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl::test {

/// A window such as a host hands over, made by the calling thread and destroyed with the object.
/// Null when there is no desktop.
class HostWindow {
  public:
    HostWindow(int clientWidth, int clientHeight, bool visible = false);
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND handle() const { return handle_; }

    /// Handles the messages that wait for this thread's windows.
    static void pumpMessages();

  private:
    HWND handle_ = nullptr;
};

} // namespace ogl::test
