// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/app_window.h"

#include "oglview/user_error.h"

#include <utility>

namespace oglview {
namespace {

constexpr const char* kWindowClass = "OglViewWindow";

} // namespace

AppWindow::AppWindow(const Size& size, Listener listener) : listener_(std::move(listener)) {
    WNDCLASSA windowClass = {};
    windowClass.style = CS_HREDRAW | CS_VREDRAW | CS_OWNDC;
    windowClass.lpfnWndProc = windowProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassA(&windowClass);

    RECT area = {0, 0, size.width, size.height};
    AdjustWindowRect(&area, WS_OVERLAPPEDWINDOW, 0);
    window_ = CreateWindowExA(0, kWindowClass, "oglview", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                              CW_USEDEFAULT, area.right - area.left, area.bottom - area.top,
                              nullptr, nullptr, windowClass.hInstance, nullptr);
    if (window_ == nullptr)
        throw UserError("cannot open a window");
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

AppWindow::~AppWindow() {
    if (!IsWindow(window_))
        return;
    SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

LRESULT CALLBACK AppWindow::windowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
    auto* self = reinterpret_cast<AppWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (self == nullptr)
        return DefWindowProcA(window, message, wParam, lParam);
    if (message == WM_CLOSE) {
        self->close();
        return 0;
    }
    if (message == WM_ERASEBKGND)
        return 1;
    if (message == WM_PAINT)
        ValidateRect(window, nullptr);
    if (self->listener_(message, wParam, lParam))
        return 0;
    return DefWindowProcA(window, message, wParam, lParam);
}

void AppWindow::show() const {
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
}

void AppWindow::setTitle(const std::string& title) const {
    SetWindowTextA(window_, title.c_str());
}

bool AppWindow::handleMessages() {
    MSG message = {};
    while (open_ && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT)
            open_ = false;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return open_ && IsWindow(window_);
}

Size AppWindow::clientSize() const {
    RECT client = {};
    GetClientRect(window_, &client);
    return {static_cast<int>(client.right), static_cast<int>(client.bottom)};
}

bool AppWindow::pointerLeft() const {
    POINT at = {};
    RECT client = {};
    return GetCursorPos(&at) && ScreenToClient(window_, &at) && GetClientRect(window_, &client) &&
           (at.x < 0 || at.y < 0 || at.x >= client.right || at.y >= client.bottom);
}

} // namespace oglview
