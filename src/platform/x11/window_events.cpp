// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// From X events to window messages.
#include "platform/x11/virtual_keys.h"
#include "platform/x11/window_record.h"

#include <X11/Xutil.h>

namespace ogl::x11 {
namespace {

void postInput(MessageQueue& queue, Window window, UINT message, WPARAM wParam, LPARAM lParam,
               Time time, POINT root, const std::string& text = {}) {
    queue.post({toHandle(window), message, wParam, lParam, static_cast<DWORD>(time), root}, text);
}

LPARAM packPoint(int x, int y) {
    return MAKELPARAM(static_cast<unsigned>(x) & 0xffffu, static_cast<unsigned>(y) & 0xffffu);
}

WPARAM mouseState(unsigned state) {
    WPARAM keys = 0;
    keys |= state & Button1Mask ? MK_LBUTTON : 0;
    keys |= state & Button2Mask ? MK_MBUTTON : 0;
    keys |= state & Button3Mask ? MK_RBUTTON : 0;
    keys |= state & ShiftMask ? MK_SHIFT : 0;
    keys |= state & ControlMask ? MK_CONTROL : 0;
    return keys;
}

void onButton(MessageQueue& queue, const XButtonEvent& event, bool down) {
    struct ButtonRow {
        unsigned button;
        UINT down;
        UINT up;
        WPARAM key;
    };
    static constexpr ButtonRow kButtons[] = {
        {Button1, WM_LBUTTONDOWN, WM_LBUTTONUP, MK_LBUTTON},
        {Button2, WM_MBUTTONDOWN, WM_MBUTTONUP, MK_MBUTTON},
        {Button3, WM_RBUTTONDOWN, WM_RBUTTONUP, MK_RBUTTON},
    };
    const POINT root{event.x_root, event.y_root};
    if (event.button == Button4 || event.button == Button5) {
        if (!down)
            return;
        const int delta = event.button == Button4 ? WHEEL_DELTA : -WHEEL_DELTA;
        const WPARAM wParam = mouseState(event.state) |
                              (static_cast<WPARAM>(static_cast<unsigned>(delta) & 0xffffu) << 16);
        // Unlike all other mouse messages this one carries screen coordinates.
        postInput(queue, event.window, WM_MOUSEWHEEL, wParam, packPoint(root.x, root.y), event.time,
                  root);
        return;
    }
    for (const ButtonRow& row : kButtons) {
        if (row.button != event.button)
            continue;
        // X reports the state before the event, Windows after it.
        const WPARAM before = mouseState(event.state);
        const WPARAM after = down ? before | row.key : before & ~row.key;
        postInput(queue, event.window, down ? row.down : row.up, after, packPoint(event.x, event.y),
                  event.time, root);
    }
}

void onKey(MessageQueue& queue, XKeyEvent& event, bool down) {
    char typed[16];
    const int length = XLookupString(&event, typed, sizeof typed, nullptr, nullptr);
    // The keypad's digits depend on Num Lock, every other key on its unshifted symbol.
    KeySym symbol = XLookupKeysym(&event, 0);
    const KeySym second = XLookupKeysym(&event, 1);
    if ((event.state & Mod2Mask) && IsKeypadKey(second))
        symbol = second;
    const size_t code = event.keycode & 0xffu;
    LPARAM lParam = 1 | static_cast<LPARAM>((code - 8) & 0xffu) << 16;
    if (queue.pressedKeys[code])
        lParam |= LPARAM{1} << 30;
    if (!down)
        lParam |= LPARAM{1} << 31;
    queue.pressedKeys[code] = down;
    const unsigned key = virtualKey(symbol);
    const std::string text(typed, typed + (down ? length : 0));
    if (key || !text.empty())
        postInput(queue, event.window, down ? WM_KEYDOWN : WM_KEYUP, key, lParam, event.time,
                  {event.x_root, event.y_root}, text);
}

void onFocus(MessageQueue& queue, Window window, bool in) {
    if (in)
        queue.active = window;
    else if (queue.active == window)
        queue.active = None;
    queue.pressedKeys.reset();
}

// The drawing child covers its window and takes its Expose events; it may belong to another copy of
// this layer in the process, or even to another program.
void watchChild(MessageQueue& queue, const XCreateWindowEvent& event) {
    if (findWindow(event.window))
        return;
    if (const WindowPointer record = findWindow(event.parent))
        record->needsPaint = true;
    queue.drawingChildren[event.window] = event.parent;
    const ErrorScope scope(event.display);
    XSelectInput(event.display, event.window, ExposureMask);
    (void)scope.failed(); // the child may have gone since
}

void onExpose(MessageQueue& queue, Window window) {
    const auto child = queue.drawingChildren.find(window);
    if (const WindowPointer record =
            findWindow(child == queue.drawingChildren.end() ? window : child->second))
        record->needsPaint = true;
}

} // namespace

void translateEvent(MessageQueue& queue, XEvent& event) {
    const WindowPointer record = findWindow(event.xany.window);
    switch (event.type) {
    case Expose:
        onExpose(queue, event.xexpose.window);
        return;
    case MappingNotify:
        XRefreshKeyboardMapping(&event.xmapping);
        return;
    case DestroyNotify:
        queue.drawingChildren.erase(event.xdestroywindow.window);
        return;
    default:
        break;
    }
    if (!record)
        return;
    switch (event.type) {
    case CreateNotify:
        watchChild(queue, event.xcreatewindow);
        break;
    case ConfigureNotify:
        if (event.xconfigure.window == record->window)
            sendSize(*record, {event.xconfigure.width, event.xconfigure.height});
        break;
    case ClientMessage:
        if (static_cast<Atom>(event.xclient.data.l[0]) ==
            XInternAtom(event.xclient.display, "WM_DELETE_WINDOW", False))
            PostMessageA(toHandle(record->window), WM_CLOSE, 0, 0);
        break;
    case KeyPress:
    case KeyRelease:
        onKey(queue, event.xkey, event.type == KeyPress);
        break;
    case ButtonPress:
    case ButtonRelease:
        onButton(queue, event.xbutton, event.type == ButtonPress);
        break;
    case MotionNotify:
        postInput(queue, record->window, WM_MOUSEMOVE, mouseState(event.xmotion.state),
                  packPoint(event.xmotion.x, event.xmotion.y), event.xmotion.time,
                  {event.xmotion.x_root, event.xmotion.y_root});
        break;
    case FocusIn:
    case FocusOut:
        onFocus(queue, record->window, event.type == FocusIn);
        break;
    default:
        break;
    }
}

} // namespace ogl::x11
