// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The Linux layer's message box. The test plays the window manager and the person who answers.
#include "platform/win32.h"
#include "support/captured_output.h"

#include <gtest/gtest.h>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/keysym.h>

#include <chrono>
#include <string>
#include <thread>

namespace ogl::test {
namespace {

Window windowNamed(Display* connection, const std::string& name) {
    Window root = None, parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(connection, DefaultRootWindow(connection), &root, &parent, &children, &count);
    Window found = None;
    for (unsigned i = 0; i < count; ++i) {
        char* title = nullptr;
        if (XFetchName(connection, children[i], &title) && title != nullptr) {
            if (name == title)
                found = children[i];
            XFree(title);
        }
    }
    if (children != nullptr)
        XFree(children);
    return found;
}

/// Waits for the box and presses Return in it.
void answer(const char* caption, bool& seen) {
    Display* const connection = XOpenDisplay(nullptr);
    for (int tries = 0; tries < 200 && !seen; ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        const Window box = windowNamed(connection, caption);
        if (box == None)
            continue;
        seen = true;
        XEvent event{};
        event.xkey.type = KeyPress;
        event.xkey.window = box;
        event.xkey.root = DefaultRootWindow(connection);
        event.xkey.keycode = XKeysymToKeycode(connection, XK_Return);
        XSendEvent(connection, box, False, KeyPressMask, &event);
        XFlush(connection);
    }
    XCloseDisplay(connection);
}

TEST(MessageBoxOnX11, WaitsForAnAnswerUnderAWindowManagerOnly) {
    {
        CapturedOutput errors(2);
        EXPECT_EQ(MessageBoxA(nullptr, "nobody is here", "Alone", MB_OK), IDOK);
        EXPECT_EQ(errors.stop(), "Alone: nobody is here\n");
    }
    Display* const connection = XOpenDisplay(nullptr);
    ASSERT_NE(connection, nullptr);
    const Atom check = XInternAtom(connection, "_NET_SUPPORTING_WM_CHECK", False);
    const Window root = DefaultRootWindow(connection);
    XChangeProperty(connection, root, check, XA_WINDOW, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(&root), 1);
    XSync(connection, False);

    CapturedOutput errors(2);
    bool seen = false;
    std::thread person(answer, "Asked", std::ref(seen));
    EXPECT_EQ(MessageBoxA(nullptr, "press Return", "Asked", MB_OK), IDOK);
    person.join();
    EXPECT_TRUE(seen);
    EXPECT_EQ(errors.stop(), "");

    XDeleteProperty(connection, root, check);
    XCloseDisplay(connection);
}

} // namespace
} // namespace ogl::test
