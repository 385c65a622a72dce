// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/x11_client.h"

#include <GL/glx.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <stdexcept>

namespace ogl::test {

struct X11Client::Connection {
    Display* x;
};

namespace {

Window id(HWND window) {
    return reinterpret_cast<Window>(window);
}

void flush(Display* x) {
    XSync(x, False);
}

} // namespace

X11Client::X11Client() : connection_(std::make_unique<Connection>()) {
    connection_->x = XOpenDisplay(nullptr);
    if (!connection_->x)
        throw std::runtime_error("no X display");
}

X11Client::~X11Client() {
    XCloseDisplay(connection_->x);
}

HWND X11Client::createWindow(int width, int height) {
    Display* const x = connection_->x;
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    const Window window = XCreateWindow(x, DefaultRootWindow(x), 0, 0, static_cast<unsigned>(width),
                                        static_cast<unsigned>(height), 0, CopyFromParent,
                                        InputOutput, nullptr, CWOverrideRedirect, &attributes);
    XMapRaised(x, window);
    flush(x);
    return reinterpret_cast<HWND>(window);
}

void X11Client::resize(HWND window, int width, int height) {
    XResizeWindow(connection_->x, id(window), static_cast<unsigned>(width),
                  static_cast<unsigned>(height));
    flush(connection_->x);
}

void X11Client::makeNoContextCurrent() {
    glXMakeContextCurrent(connection_->x, None, None, nullptr);
}

void X11Client::destroy(HWND window) {
    XDestroyWindow(connection_->x, id(window));
    flush(connection_->x);
}

size_t X11Client::childCount(HWND window) {
    Window root, parent;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(connection_->x, id(window), &root, &parent, &children, &count);
    if (children)
        XFree(children);
    return count;
}

uint32_t X11Client::screenPixel(HWND window, int x, int y) {
    POINT point{x, y};
    ClientToScreen(window, &point);
    Display* const connection = connection_->x;
    XImage* const image = XGetImage(connection, DefaultRootWindow(connection), point.x, point.y, 1,
                                    1, AllPlanes, ZPixmap);
    if (!image)
        return UINT32_MAX;
    const auto pixel = static_cast<uint32_t>(XGetPixel(image, 0, 0) & 0xffffffu);
    XDestroyImage(image);
    return pixel;
}

void X11Client::pressCloseButton(HWND window) {
    Display* const x = connection_->x;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = id(window);
    event.xclient.message_type = XInternAtom(x, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(x, "WM_DELETE_WINDOW", False));
    XSendEvent(x, id(window), False, NoEventMask, &event);
    flush(x);
}

void X11Client::focus(HWND window) {
    XSetInputFocus(connection_->x, id(window), RevertToParent, CurrentTime);
    flush(connection_->x);
}

void X11Client::key(unsigned long symbol, bool down) {
    XTestFakeKeyEvent(connection_->x, XKeysymToKeycode(connection_->x, symbol), down, CurrentTime);
    flush(connection_->x);
}

void X11Client::moveMouse(HWND window, int x, int y) {
    POINT point{x, y};
    ClientToScreen(window, &point);
    XTestFakeMotionEvent(connection_->x, -1, point.x, point.y, CurrentTime);
    flush(connection_->x);
}

void X11Client::moveMouseBy(int x, int y) {
    XTestFakeRelativeMotionEvent(connection_->x, x, y, CurrentTime);
    flush(connection_->x);
}

void X11Client::button(unsigned number, bool down) {
    XTestFakeButtonEvent(connection_->x, number, down, CurrentTime);
    flush(connection_->x);
}

} // namespace ogl::test
