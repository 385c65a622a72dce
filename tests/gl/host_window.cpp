// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/host_window.h"

namespace ogl::test {

namespace {

constexpr const char* kClassName = "OglTestHostWindow";

void registerClassOnce() {
    static bool registered = false;
    if (registered)
        return;
    WNDCLASSA windowClass{};
    windowClass.style = CS_OWNDC;
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = kClassName;
    registered = RegisterClassA(&windowClass) != 0;
}

} // namespace

HostWindow::HostWindow(int clientWidth, int clientHeight, bool visible) {
    registerClassOnce();
    RECT area{0, 0, clientWidth, clientHeight};
    AdjustWindowRect(&area, WS_OVERLAPPEDWINDOW, FALSE);
    handle_ = CreateWindowExA(0, kClassName, "host", WS_OVERLAPPEDWINDOW, 0, 0,
                              area.right - area.left, area.bottom - area.top, nullptr, nullptr,
                              GetModuleHandleA(nullptr), nullptr);
    if (handle_ != nullptr && visible)
        ShowWindow(handle_, SW_SHOW);
    pumpMessages();
}

HostWindow::~HostWindow() {
    if (handle_ != nullptr)
        DestroyWindow(handle_);
}

void HostWindow::pumpMessages() {
    MSG message{};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

} // namespace ogl::test
