// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/host_window.h"

#include <stdexcept>

namespace ogl::test {

namespace {

constexpr const char* kClassName = "OglTestWindow";

void handleMessages() {
    // The window system answers in its own time.
    for (int round = 0; round < 20; ++round) {
        MSG message{};
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        Sleep(5);
    }
}

} // namespace

HostWindow::HostWindow(int clientWidth, int clientHeight) {
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = kClassName;
    RegisterClassExA(&windowClass);
    window_ = CreateWindowExA(0, kClassName, "test", WS_OVERLAPPEDWINDOW, 10, 10, clientWidth,
                              clientHeight, nullptr, nullptr, windowClass.hInstance, nullptr);
    if (window_ == nullptr)
        throw std::runtime_error("no window");
    ShowWindow(window_, SW_SHOW);
    resize(clientWidth, clientHeight);
}

HostWindow::~HostWindow() {
    DestroyWindow(window_);
    handleMessages();
}

void HostWindow::resize(int clientWidth, int clientHeight) {
    handleMessages();
    RECT window{}, client{};
    GetWindowRect(window_, &window);
    GetClientRect(window_, &client);
    const int frameWidth = (window.right - window.left) - (client.right - client.left);
    const int frameHeight = (window.bottom - window.top) - (client.bottom - client.top);
    MoveWindow(window_, window.left, window.top, clientWidth + frameWidth,
               clientHeight + frameHeight, TRUE);
    handleMessages();
}

} // namespace ogl::test
