// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/window_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ogl::test {
namespace {

constexpr char kClass[] = "OglTestWindow";

void registerTestClass(WNDPROC procedure) {
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_OWNDC;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = kClass;
    RegisterClassExA(&windowClass); // fails from the second window on: the class is there
}

} // namespace

TestWindow::TestWindow(int width, int height, bool visible) {
    registerTestClass(procedure);
    const DWORD style = visible ? WS_OVERLAPPEDWINDOW | WS_VISIBLE : WS_OVERLAPPEDWINDOW;
    window_ = CreateWindowExA(0, kClass, "ogl test", style, 40, 30, width, height, nullptr, nullptr,
                              GetModuleHandleA(nullptr), this);
    if (window_)
        resizeClient(width, height);
}

TestWindow::~TestWindow() {
    if (window_ && !destroyed)
        DestroyWindow(window_);
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&message);
}

void TestWindow::resizeClient(int width, int height) {
    RECT client{};
    RECT frame{};
    ASSERT_TRUE(GetClientRect(window_, &client));
    ASSERT_TRUE(GetWindowRect(window_, &frame));
    MoveWindow(window_, frame.left, frame.top, width + (frame.right - frame.left) - client.right,
               height + (frame.bottom - frame.top) - client.bottom, TRUE);
}

bool TestWindow::pumpUntil(const std::function<bool()>& done) {
    for (int waited = 0; waited < 400; ++waited) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        if (done())
            return true;
        Sleep(5);
    }
    return false;
}

const SeenMessage* TestWindow::seen(UINT message) const {
    const auto found = std::find_if(messages.rbegin(), messages.rend(),
                                    [&](const SeenMessage& m) { return m.message == message; });
    return found == messages.rend() ? nullptr : &*found;
}

LRESULT CALLBACK TestWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) {
        const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<TestWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (self) {
        self->messages.push_back({message, wParam, lParam});
        self->destroyed = self->destroyed || message == WM_DESTROY;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

PIXELFORMATDESCRIPTOR usualDescriptor() {
    PIXELFORMATDESCRIPTOR descriptor{};
    descriptor.nSize = sizeof descriptor;
    descriptor.nVersion = 1;
    descriptor.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
    descriptor.iPixelType = PFD_TYPE_RGBA;
    descriptor.cColorBits = 24;
    descriptor.cAlphaBits = 8;
    descriptor.cDepthBits = 32;
    descriptor.cStencilBits = 8;
    return descriptor;
}

TestContext::TestContext(HWND window, int format) : window_(window), dc_(GetDC(window)) {
    const PIXELFORMATDESCRIPTOR descriptor = usualDescriptor();
    if (format == 0)
        format = ChoosePixelFormat(dc_, &descriptor);
    EXPECT_TRUE(SetPixelFormat(dc_, format, &descriptor));
    context_ = wglCreateContext(dc_);
    EXPECT_NE(context_, nullptr);
    EXPECT_TRUE(makeCurrent());
    EXPECT_EQ(glewInit(), static_cast<GLenum>(GLEW_OK));
}

TestContext::~TestContext() {
    wglMakeCurrent(nullptr, nullptr);
    wglDeleteContext(context_);
    ReleaseDC(window_, dc_);
}

void clearTo(float red, float green, float blue) {
    glDisable(GL_SCISSOR_TEST);
    glClearColor(red, green, blue, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
}

size_t wrongPixels(const std::vector<uint8_t>& pixels, uint8_t red, uint8_t green, uint8_t blue) {
    size_t wrong = 0;
    for (size_t i = 0; i < pixels.size(); i += 4)
        wrong += pixels[i] != red || pixels[i + 1] != green || pixels[i + 2] != blue ? 1u : 0u;
    return wrong;
}

std::vector<uint8_t> readBackBuffer(int width, int height) {
    std::vector<uint8_t> pixels(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    return pixels;
}

} // namespace ogl::test
