// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Another client of the X server: a toolkit with a window of its own, a window manager, or a person
// at keyboard and mouse.
#pragma once

#include "platform/win32.h"

#include <memory>

namespace ogl::test {

class X11Client {
  public:
    X11Client();
    ~X11Client();
    X11Client(const X11Client&) = delete;
    X11Client& operator=(const X11Client&) = delete;

    /// A mapped window at the screen's top left corner.
    HWND createWindow(int width, int height);
    void resize(HWND window, int width, int height);
    void destroy(HWND window);
    /// As a host does that calls GLX itself.
    void makeNoContextCurrent();
    size_t childCount(HWND window);
    /// 0xrrggbb of what the screen shows at client coordinates.
    uint32_t screenPixel(HWND window, int x, int y);

    /// What a window manager sends when its close button is pressed.
    void pressCloseButton(HWND window);
    void focus(HWND window);
    /// Presses or releases the key that carries an X key symbol.
    void key(unsigned long symbol, bool down);
    void moveMouse(HWND window, int x, int y);
    void moveMouseBy(int x, int y);
    void button(unsigned number, bool down);

  private:
    struct Connection;
    std::unique_ptr<Connection> connection_;
};

} // namespace ogl::test
