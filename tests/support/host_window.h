// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl::test {

/// A shown window of the test's own, with a client area of the given size.
class HostWindow {
  public:
    HostWindow(int clientWidth, int clientHeight);
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND handle() const { return window_; }
    void resize(int clientWidth, int clientHeight);

  private:
    HWND window_;
};

} // namespace ogl::test
