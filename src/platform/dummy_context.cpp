// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/dummy_context.h"

#include "platform/fault_guard.h"

namespace ogl {

namespace {
constexpr const char* kClassName = "DummyClass";
}

HDC DummyContext::dc_ = nullptr;
HGLRC DummyContext::context_ = nullptr;

void DummyContext::open() {
    WNDCLASSA windowClass{};
    windowClass.style = CS_OWNDC;
    windowClass.lpfnWndProc = windowProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = kClassName;
    RegisterClassA(&windowClass);
    window_ = CreateWindowExA(0, kClassName, "", WS_OVERLAPPEDWINDOW, 0, 0, 0, 0, nullptr, nullptr,
                              GetModuleHandleA(nullptr), nullptr);
    if (window_ != nullptr)
        makeContext();
}

DummyContext::~DummyContext() {
    if (window_ != nullptr)
        DestroyWindow(window_);
    UnregisterClassA(kClassName, GetModuleHandleA(nullptr));
}

void DummyContext::makeContext() {
    PIXELFORMATDESCRIPTOR descriptor{};
    descriptor.nSize = sizeof descriptor;
    descriptor.nVersion = 1;
    descriptor.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL;
    descriptor.iPixelType = PFD_TYPE_RGBA;
    descriptor.cColorBits = 24;
    descriptor.cDepthBits = 16;
    descriptor.iLayerType = PFD_MAIN_PLANE;
    if (!SetPixelFormat(dc_, ChoosePixelFormat(dc_, &descriptor), &descriptor))
        return;
    context_ = wglCreateContext(dc_);
    if (context_ != nullptr)
        wglMakeCurrent(dc_, context_);
}

LRESULT CALLBACK DummyContext::windowProcedure(HWND window, UINT message, WPARAM wParam,
                                               LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        dc_ = GetDC(window);
        return dc_ != nullptr ? 0 : -1;
    case WM_DESTROY:
        if (context_ != nullptr)
            runGuarded([] {
                wglMakeCurrent(nullptr, nullptr);
                wglDeleteContext(context_);
            });
        context_ = nullptr;
        if (dc_ != nullptr)
            ReleaseDC(window, dc_);
        dc_ = nullptr;
        return 0;
    case WM_CLOSE:
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace ogl
