// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/viewer_window.h"

#include "oglview/picked_objects.h"
#include "oglview/scene_style.h"
#include "oglview/style_keys.h"
#include "oglview/sun_moment.h"
#include "oglview/user_error.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

namespace oglview {
namespace {

constexpr const char* kWindowClass = "OglViewWindow";
constexpr DWORD kIdleMilliseconds = 5;
constexpr double kLongestStep = 0.1; // seconds that one frame may move the walker
constexpr int kClickTravel = 3;      // pixels that the pointer may move in a click
constexpr ogl::host::Color kPathColor{0, 110, 60};

constexpr const char* kKeys[] = {
    "left drag: turn around",
    "middle or right drag: move",
    "wheel: nearer, farther",
    "WASD or arrows: walk",
    "Q, E: down, up",
    "click: select (with Ctrl: more)",
    "F: frame rate and statistics",
    "P: paths",
    "Home: first view",
    "F1: these keys",
    "Esc: quit",
};

std::string keyText(const char* separator) {
    std::string text;
    const auto add = [&](const std::string& key) { text += (text.empty() ? "" : separator) + key; };
    for (const char* key : kKeys)
        add(key);
    for (const std::string& key : styleKeys())
        add(key);
    return text;
}

double sizeOf(const LoadedScene& scene) {
    const ogl::host::Box box = scene.builder.bounds();
    return box.empty() ? 1.0 : length(box.high - box.low);
}

} // namespace

std::string ViewerWindow::help() {
    return keyText("   ");
}

ViewerWindow::ViewerWindow(const ShowOptions& options, LoadedScene& scene,
                           const ogl::host::Camera& camera)
    : scene_(scene), style_(options.style), camera_(camera, sizeOf(scene)), marks_(scene.builder) {
    open(options.size);
    view_ = std::make_unique<DrawingView>(window_, options.library);
    view_->loadTextures(scene_.builder);
    scene_.builder.setMessage(keyText("\n"));
    scene_.builder.setOverlayColor(kPathColor);
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
        mouseDown(lParam);
        return 0;
    case WM_LBUTTONUP:
    case WM_MBUTTONUP:
    case WM_RBUTTONUP:
        mouseUp(message, wParam);
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
    case 'F':
        showStatistics_ = !showStatistics_;
        changed_ = true;
        break;
    case 'P':
        showPaths_ = !showPaths_;
        changed_ = true;
        break;
    case VK_F1:
        showKeys_ = !showKeys_;
        changed_ = true;
        break;
    default:
        restyle(key);
        break;
    }
}

void ViewerWindow::restyle(int key) {
    if (!changeStyle(key, style_))
        return;
    if (style_.sunMoment)
        style_.sun = sunInModel(*style_.sunMoment);
    changed_ = true;
    setTitle();
}

void ViewerWindow::mouseDown(LPARAM lParam) {
    pointer_ = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    pressed_ = pointer_;
    dragging_ = false;
    SetCapture(window_);
}

void ViewerWindow::mouseUp(UINT message, WPARAM wParam) {
    ReleaseCapture();
    if (message == WM_LBUTTONUP && !dragging_) {
        marks_.select((wParam & MK_CONTROL) != 0);
        setTitle();
    }
    dragging_ = false;
    pointDue_ = true;
    changed_ = true;
}

void ViewerWindow::mouseMove(WPARAM wParam, LPARAM lParam) {
    const POINT now = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    if ((wParam & (MK_LBUTTON | MK_MBUTTON | MK_RBUTTON)) == 0) {
        pointer_ = now;
        pointDue_ = true;
        return;
    }
    if (!dragging_ && std::abs(now.x - pressed_.x) <= kClickTravel &&
        std::abs(now.y - pressed_.y) <= kClickTravel)
        return;
    dragging_ = true;
    marks_.hideName();
    const double height = std::max(1, clientSize().height);
    const double right = (now.x - pointer_.x) / height;
    const double down = (now.y - pointer_.y) / height;
    pointer_ = now;
    if ((wParam & MK_LBUTTON) != 0)
        camera_.orbit(right, down);
    else
        camera_.pan(right, down);
    changed_ = true;
}

void ViewerWindow::setTitle() {
    std::string title = scene_.name + " - " + modeName(style_.mode) + " - oglview";
    if (!marks_.selected().empty()) {
        const int first = *marks_.selected().begin();
        const size_t more = marks_.selected().size() - 1;
        title = marks_.nameOf(first) + (more > 0 ? " and " + std::to_string(more) + " more" : "") +
                " - " + title;
    }
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

Size ViewerWindow::clientSize() const {
    RECT client = {};
    GetClientRect(window_, &client);
    return {static_cast<int>(client.right), static_cast<int>(client.bottom)};
}

/// Finds out what lies under the pointer, for the camera of now.
void ViewerWindow::pointAgain() {
    pointDue_ = false;
    const Size size = clientSize();
    if (dragging_ || size.width < 1 || size.height < 1)
        return;
    scene_.builder.setCamera(camera_.camera());
    const std::vector<int> objects = pickedObjects(
        *scene_.builder.scene(), size, static_cast<int>(pointer_.x), static_cast<int>(pointer_.y));
    if (marks_.pointAt(objects.empty() ? ogl::host::kNone : objects.front(),
                       static_cast<int>(pointer_.x), static_cast<int>(pointer_.y)))
        changed_ = true;
}

/// The pointer is outside the window, which no message tells.
bool ViewerWindow::pointerLeft() const {
    POINT at = {};
    RECT client = {};
    return GetCursorPos(&at) && ScreenToClient(window_, &at) && GetClientRect(window_, &client) &&
           (at.x < 0 || at.y < 0 || at.x >= client.right || at.y >= client.bottom);
}

uint32_t ViewerWindow::viewFlags() const {
    return showKeys_ ? ogl::kViewNoSelection | ogl::kViewMessage : 0;
}

void ViewerWindow::draw() {
    const Size size = clientSize();
    if (size.width < 1 || size.height < 1)
        return; // minimised
    ogl::host::SceneBuilder& builder = scene_.builder;
    builder.setCamera(camera_.camera());
    applyStyle(builder, style_);
    builder.setViewFlags(viewFlags());
    builder.setHud(static_cast<uint8_t>((showPaths_ ? ogl::kHudPaths : 0) |
                                        (showStatistics_ ? ogl::kHudStatistics : 0)));
    builder.placePaths(size.width, size.height);
    d3_DrawInWindow(view_->get(), scene_.builder.scene(), drawFlagsOf(style_), 1, nullptr, nullptr);
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
        if (marks_.pointedAt() != ogl::host::kNone && !dragging_ && pointerLeft()) {
            marks_.pointAt(ogl::host::kNone, 0, 0);
            changed_ = true;
        } else if (pointDue_ || walked) {
            pointAgain();
        }
        // A frame rate means something only while frames follow each other.
        if (walked || changed_ || showStatistics_) {
            changed_ = false;
            draw();
        } else {
            Sleep(kIdleMilliseconds);
        }
    }
}

} // namespace oglview
