// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/viewer_window.h"

#include "oglview/scene_style.h"
#include "oglview/user_error.h"

#include <algorithm>
#include <chrono>

namespace oglview {
namespace {

constexpr const char* kWindowClass = "OglViewWindow";
constexpr DWORD kIdleMilliseconds = 5;
constexpr double kLongestStep = 0.1; // seconds that one frame may move the walker

double sizeOf(const LoadedScene& scene) {
    const ogl::host::Box box = scene.builder.bounds();
    return box.empty() ? 1.0 : length(box.high - box.low);
}

const char* nameOf(int32_t mode) {
    return mode == ogl::kRenderModeEdges ? "edges" : "drawing";
}

} // namespace

const char* ViewerWindow::help() {
    return "left drag: turn around   middle or right drag: move   wheel: nearer, farther   "
           "WASD or arrows: walk   Q, E: down, up   1: drawing   2: edges   H: hidden edges   "
           "Home: first view   Esc: quit";
}

ViewerWindow::ViewerWindow(const ShowOptions& options, LoadedScene& scene,
                           const ogl::host::Camera& camera)
    : scene_(scene), style_(options.style), camera_(camera, sizeOf(scene)) {
    open(options.size);
    view_ = std::make_unique<DrawingView>(window_, options.library);
    view_->loadTextures(scene_.builder);
    setTitle();
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
}

ViewerWindow::~ViewerWindow() {
    if (view_)
        view_->releaseScene(scene_.builder);
    view_.reset();
    if (IsWindow(window_))
        DestroyWindow(window_);
}

void ViewerWindow::open(const Size& size) {
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

LRESULT CALLBACK ViewerWindow::windowProcedure(HWND window, UINT message, WPARAM wParam,
                                               LPARAM lParam) {
    auto* self = reinterpret_cast<ViewerWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    return self != nullptr ? self->handle(message, wParam, lParam)
                           : DefWindowProcA(window, message, wParam, lParam);
}

LRESULT ViewerWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CLOSE:
        open_ = false; // the window goes after the view that draws in it
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_SIZE:
        changed_ = true;
        return 0;
    case WM_PAINT:
        ValidateRect(window_, nullptr);
        changed_ = true;
        return 0;
    case WM_KEYDOWN:
        keyDown(static_cast<int>(wParam));
        return 0;
    case WM_KEYUP:
        keysDown_.erase(static_cast<int>(wParam));
        return 0;
    case WM_LBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_RBUTTONDOWN:
        mouseDown(message, lParam);
        return 0;
    case WM_LBUTTONUP:
    case WM_MBUTTONUP:
    case WM_RBUTTONUP:
        ReleaseCapture();
        return 0;
    case WM_MOUSEMOVE:
        mouseMove(wParam, lParam);
        return 0;
    case WM_MOUSEWHEEL:
        camera_.zoom(static_cast<double>(GET_WHEEL_DELTA_WPARAM(wParam)) / WHEEL_DELTA);
        changed_ = true;
        return 0;
    default:
        return DefWindowProcA(window_, message, wParam, lParam);
    }
}

void ViewerWindow::keyDown(int key) {
    keysDown_.insert(key);
    switch (key) {
    case VK_ESCAPE:
        open_ = false;
        break;
    case VK_HOME:
        camera_.reset();
        changed_ = true;
        break;
    case '1':
        setMode(ogl::kRenderModeDrawing);
        break;
    case '2':
        setMode(ogl::kRenderModeEdges);
        break;
    case 'H':
        style_.hiddenEdges = !style_.hiddenEdges;
        changed_ = true;
        break;
    default:
        break;
    }
}

void ViewerWindow::mouseDown(UINT, LPARAM lParam) {
    pointer_ = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    SetCapture(window_);
}

void ViewerWindow::mouseMove(WPARAM wParam, LPARAM lParam) {
    const POINT now = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    RECT client = {};
    GetClientRect(window_, &client);
    const double height = std::max<double>(1.0, client.bottom);
    const double right = (now.x - pointer_.x) / height;
    const double down = (now.y - pointer_.y) / height;
    pointer_ = now;
    if ((wParam & MK_LBUTTON) != 0)
        camera_.orbit(right, down);
    else if ((wParam & (MK_MBUTTON | MK_RBUTTON)) != 0)
        camera_.pan(right, down);
    else
        return;
    changed_ = true;
}

void ViewerWindow::setMode(int32_t mode) {
    style_.mode = mode;
    changed_ = true;
    setTitle();
}

void ViewerWindow::setTitle() {
    const std::string title = scene_.name + " - " + nameOf(style_.mode) + " - oglview";
    SetWindowTextA(window_, title.c_str());
}

/// Moves along for the keys that are held. Whether it moved.
bool ViewerWindow::walk(double seconds) {
    const auto held = [this](int key, int other) {
        return keysDown_.contains(key) || keysDown_.contains(other) ? 1.0 : 0.0;
    };
    const double forward = held('W', VK_UP) - held('S', VK_DOWN);
    const double right = held('D', VK_RIGHT) - held('A', VK_LEFT);
    const double upward = held('E', VK_PRIOR) - held('Q', VK_NEXT);
    if (forward == 0.0 && right == 0.0 && upward == 0.0)
        return false;
    const double step = camera_.walkingSpeed() * std::min(seconds, kLongestStep);
    camera_.walk(forward * step, right * step, upward * step);
    return true;
}

void ViewerWindow::draw() {
    RECT client = {};
    if (!GetClientRect(window_, &client) || client.right < 1 || client.bottom < 1)
        return; // minimised
    scene_.builder.setCamera(camera_.camera());
    applyStyle(scene_.builder, style_);
    d3_DrawInWindow(view_->get(), scene_.builder.scene(), ogl::kDrawFullQuality, 1, nullptr,
                    nullptr);
}

void ViewerWindow::run() {
    using Clock = std::chrono::steady_clock;
    Clock::time_point last = Clock::now();
    while (open_ && IsWindow(window_)) {
        MSG message = {};
        while (open_ && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT)
                open_ = false;
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        const Clock::time_point now = Clock::now();
        const bool walked = walk(std::chrono::duration<double>(now - last).count());
        last = now;
        if (!open_)
            break;
        if (walked || changed_) {
            changed_ = false;
            draw();
        } else {
            Sleep(kIdleMilliseconds);
        }
    }
}

} // namespace oglview
