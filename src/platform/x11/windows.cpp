// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Making, showing and asking about windows.
#include "platform/x11/device_context.h"
#include "platform/x11/window_record.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/cursorfont.h>

#include <algorithm>
#include <chrono>
#include <cstring>

using namespace ogl::x11;

namespace {

constexpr long kWindowEvents = StructureNotifyMask | SubstructureNotifyMask | ExposureMask |
                               KeyPressMask | KeyReleaseMask | ButtonPressMask | ButtonReleaseMask |
                               PointerMotionMask | FocusChangeMask;

struct Placement {
    int x;
    int y;
    Size size;
};

Placement placement(Display* x, int left, int top, int width, int height) {
    const int screen = DefaultScreen(x);
    const Size usual{DisplayWidth(x, screen) * 3 / 4, DisplayHeight(x, screen) * 3 / 4};
    Placement place{left, top, {width, height}};
    if (left == CW_USEDEFAULT)
        place.x = place.y = 0;
    if (width == CW_USEDEFAULT)
        place.size = usual;
    // X windows have at least one pixel.
    place.size = {std::max(place.size.width, 1), std::max(place.size.height, 1)};
    return place;
}

// Until it is shown a window is out of the window manager's hands, so that sizes that the program
// sets hold at once.
void setManaged(Display* x, Window window, bool managed) {
    XSetWindowAttributes attributes{};
    attributes.override_redirect = managed ? False : True;
    XChangeWindowAttributes(x, window, CWOverrideRedirect, &attributes);
}

Window makeWindow(Display* x, const WindowClass& windowClass, Window parent, const Placement& place,
                  bool isChild) {
    const int screen = DefaultScreen(x);
    XSetWindowAttributes attributes{};
    attributes.event_mask = kWindowEvents;
    attributes.background_pixel = WhitePixel(x, screen);
    attributes.override_redirect = isChild ? False : True;
    unsigned long mask = CWEventMask | CWOverrideRedirect;
    mask |= windowClass.background ? CWBackPixel : 0u;
    const ErrorScope scope(x);
    const Window window =
        XCreateWindow(x, parent, place.x, place.y, static_cast<unsigned>(place.size.width),
                      static_cast<unsigned>(place.size.height), 0, CopyFromParent, InputOutput,
                      static_cast<Visual*>(CopyFromParent), mask, &attributes);
    Atom closing = XInternAtom(x, "WM_DELETE_WINDOW", False);
    XSetWMProtocols(x, window, &closing, 1);
    return scope.failed() ? None : window;
}

/// A cursor belongs to the connection that makes it, so every window makes its own of the shape
/// that its class names. Without one (an X server without its cursor font) the window is as good.
void setCursor(Display* x, Window window, HCURSOR named) {
    const auto shape = static_cast<unsigned>(reinterpret_cast<uintptr_t>(named));
    if (shape == 0 || shape >= XC_num_glyphs)
        return;
    const ErrorScope scope(x);
    const Cursor cursor = XCreateFontCursor(x, shape);
    XDefineCursor(x, window, cursor);
    XFreeCursor(x, cursor);
    XSync(x, False);
}

void setPlacementHints(Display* x, Window window, const Placement& place, bool placed) {
    XSizeHints hints{};
    hints.flags = PSize | (placed ? PPosition | USPosition : 0);
    hints.x = place.x;
    hints.y = place.y;
    hints.width = place.size.width;
    hints.height = place.size.height;
    XSetWMNormalHints(x, window, &hints);
}

void setTitle(Display* x, Window window, LPCSTR text) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text);
    XChangeProperty(x, window, XA_WM_NAME, XA_STRING, 8, PropModeReplace, bytes,
                    static_cast<int>(std::strlen(text)));
}

// A window manager answers in its own time; Windows has moved a window when MoveWindow returns.
void waitForSize(Window window, Size wanted) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(250);
    Size now;
    while (windowSize(window, now) && now != wanted && std::chrono::steady_clock::now() < end)
        Sleep(1);
}

bool toRoot(HWND window, int& x, int& y) {
    Display* const connection = display();
    if (!connection || !window)
        return false;
    Window child;
    const Window root = DefaultRootWindow(connection);
    return XTranslateCoordinates(connection, toWindow(window), root, x, y, &x, &y, &child) != 0;
}

} // namespace

HWND CreateWindowExA(DWORD extendedStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                     LPVOID parameter) {
    WindowClass windowClass;
    if (!className || IS_INTRESOURCE(className) || !findClass(className, windowClass))
        return nullptr;
    if (extendedStyle || menu)
        sayOnce("CreateWindowExA: extended styles and menus are not supported");
    MessageQueue& queue = MessageQueue::current();
    Display* const connection = queue.connection();
    if (!connection)
        return nullptr;
    const bool isChild = (style & WS_CHILD) != 0;
    const Window parentWindow =
        isChild && parent ? toWindow(parent) : DefaultRootWindow(connection);
    const Placement place = placement(connection, x, y, width, height);
    const Window window = makeWindow(connection, windowClass, parentWindow, place, isChild);
    if (!window)
        return nullptr;
    setCursor(connection, window, windowClass.cursor);
    setPlacementHints(connection, window, place, x != CW_USEDEFAULT);
    setTitle(connection, window, title ? title : "");
    XSync(connection, False);

    const auto record = std::make_shared<WindowRecord>();
    record->window = window;
    record->className = className;
    record->procedure = windowClass.procedure;
    record->owner = &queue;
    record->queue = MessageQueue::currentShared();
    record->isChild = isChild;
    addWindow(record);

    CREATESTRUCTA create{parameter, instance,          menu,
                         parent,    place.size.height, place.size.width,
                         place.y,   place.x,           static_cast<LONG>(style),
                         title,     className,         extendedStyle};
    if (sendMessage(*record, WM_CREATE, 0, reinterpret_cast<LPARAM>(&create)) == -1) {
        DestroyWindow(toHandle(window));
        return nullptr;
    }
    if (style & WS_VISIBLE)
        ShowWindow(toHandle(window), SW_SHOW);
    return findWindow(window) ? toHandle(window) : nullptr;
}

BOOL DestroyWindow(HWND window) {
    const WindowPointer record = findWindow(toWindow(window));
    if (!record || record->owner != &MessageQueue::current())
        return FALSE;
    sendMessage(*record, WM_DESTROY, 0, 0);
    removeWindow(record->window);
    Display* const connection = MessageQueue::current().connection();
    XDestroyWindow(connection, record->window);
    XSync(connection, False);
    return TRUE;
}

BOOL ShowWindow(HWND window, int command) {
    Display* const x = display();
    const WindowPointer record = findWindow(toWindow(window));
    if (!x || !record)
        return FALSE;
    const BOOL wasVisible = IsWindowVisible(window);
    record->isShown = command != SW_HIDE;
    if (command == SW_HIDE) {
        XWithdrawWindow(x, record->window, DefaultScreen(x));
        XSync(x, False);
        return wasVisible;
    }
    if (!record->isChild)
        setManaged(x, record->window, true);
    XMapRaised(x, record->window);
    XSync(x, False);
    record->needsPaint = true;
    Size size;
    if (!record->wasShown && record->owner == &MessageQueue::current() &&
        windowSize(record->window, size))
        sendSize(*record, size);
    record->wasShown = true;
    return wasVisible;
}

BOOL UpdateWindow(HWND window) {
    const WindowPointer record = findWindow(toWindow(window));
    if (!record)
        return FALSE;
    if (record->needsPaint && record->owner == &MessageQueue::current())
        sendMessage(*record, WM_PAINT, 0, 0);
    return TRUE;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) {
    Display* const connection = display();
    Size before;
    if (!connection || !windowSize(toWindow(window), before))
        return FALSE;
    const Size size{std::max(width, 1), std::max(height, 1)};
    const ErrorScope scope(connection);
    XMoveResizeWindow(connection, toWindow(window), x, y, static_cast<unsigned>(size.width),
                      static_cast<unsigned>(size.height));
    if (scope.failed())
        return FALSE;
    waitForSize(toWindow(window), size);
    fitDrawingChild(window);
    if (repaint)
        InvalidateRect(window, nullptr, FALSE);
    return TRUE;
}

BOOL AdjustWindowRect(RECT* area, DWORD, BOOL menu) {
    return area && !menu ? TRUE : FALSE;
}

BOOL GetClientRect(HWND window, RECT* area) {
    Size size;
    if (!area || !windowSize(toWindow(window), size))
        return FALSE;
    fitDrawingChild(window);
    *area = {0, 0, size.width, size.height};
    return TRUE;
}

BOOL GetWindowRect(HWND window, RECT* area) {
    Size size;
    int x = 0;
    int y = 0;
    if (!area || !windowSize(toWindow(window), size) || !toRoot(window, x, y))
        return FALSE;
    *area = {x, y, x + size.width, y + size.height};
    return TRUE;
}

BOOL ClientToScreen(HWND window, POINT* point) {
    return point && toRoot(window, point->x, point->y) ? TRUE : FALSE;
}

BOOL ScreenToClient(HWND window, POINT* point) {
    int x = 0;
    int y = 0;
    if (!point || !toRoot(window, x, y))
        return FALSE;
    *point = {point->x - x, point->y - y};
    return TRUE;
}

BOOL SetWindowTextA(HWND window, LPCSTR text) {
    Display* const x = display();
    if (!x || !IsWindow(window) || !text)
        return FALSE;
    const ErrorScope scope(x);
    setTitle(x, toWindow(window), text);
    return scope.failed() ? FALSE : TRUE;
}

BOOL IsWindow(HWND window) {
    Size size;
    return windowSize(toWindow(window), size) ? TRUE : FALSE;
}

BOOL IsWindowVisible(HWND window) {
    Display* const x = display();
    XWindowAttributes attributes;
    if (!x || !window || !XGetWindowAttributes(x, toWindow(window), &attributes))
        return FALSE;
    return attributes.map_state == IsUnmapped ? FALSE : TRUE;
}

HWND GetActiveWindow() {
    return toHandle(MessageQueue::current().active);
}

LONG_PTR GetWindowLongPtrA(HWND window, int index) {
    const WindowPointer record = findWindow(toWindow(window));
    if (!record)
        return 0;
    if (index == GWLP_USERDATA)
        return record->userData;
    if (index == GWLP_WNDPROC)
        return reinterpret_cast<LONG_PTR>(record->procedure);
    sayOnce("GetWindowLongPtrA: only GWLP_USERDATA and GWLP_WNDPROC are supported");
    return 0;
}

LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value) {
    const LONG_PTR before = GetWindowLongPtrA(window, index);
    const WindowPointer record = findWindow(toWindow(window));
    if (!record)
        return 0;
    if (index == GWLP_USERDATA)
        record->userData = value;
    else if (index == GWLP_WNDPROC)
        record->procedure = reinterpret_cast<WNDPROC>(value);
    return before;
}

HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name) {
    if (instance || name != IDC_ARROW) {
        sayOnce("LoadCursorA: only the arrow is supported");
        return nullptr;
    }
    return reinterpret_cast<HCURSOR>(static_cast<uintptr_t>(XC_left_ptr));
}

HWND SetCapture(HWND window) {
    MessageQueue& queue = MessageQueue::current();
    const Window before = queue.capture;
    const WindowPointer record = findWindow(toWindow(window));
    if (!record || record->owner != &queue)
        return toHandle(before);
    constexpr unsigned events = ButtonPressMask | ButtonReleaseMask | PointerMotionMask;
    if (XGrabPointer(queue.connection(), record->window, False, events, GrabModeAsync,
                     GrabModeAsync, None, None, CurrentTime) == GrabSuccess)
        queue.capture = record->window;
    return toHandle(before);
}

BOOL ReleaseCapture() {
    MessageQueue& queue = MessageQueue::current();
    if (queue.capture) {
        queue.capture = None;
        XUngrabPointer(queue.connection(), CurrentTime);
        XFlush(queue.connection());
    }
    return TRUE;
}

BOOL GetCursorPos(POINT* point) {
    Display* const x = display();
    Window root, child;
    int windowX, windowY;
    unsigned state;
    if (!x || !point)
        return FALSE;
    int rootX, rootY;
    if (!XQueryPointer(x, DefaultRootWindow(x), &root, &child, &rootX, &rootY, &windowX, &windowY,
                       &state))
        return FALSE;
    *point = {rootX, rootY};
    return TRUE;
}
