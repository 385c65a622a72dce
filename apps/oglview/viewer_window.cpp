// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/viewer_window.h"

#include "oglview/picked_objects.h"
#include "oglview/scene_style.h"
#include "oglview/style_keys.h"
#include "oglview/sun_moment.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

namespace oglview {
namespace {

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

ViewerWindow::ViewerWindow(const Size& size, const LibraryOptions& library,
                           const StyleOptions& style, LoadedScene& scene,
                           const ogl::host::Camera& camera)
    : scene_(scene), style_(style), camera_(camera, sizeOf(scene)), marks_(scene.builder),
      window_(size, [this](UINT message, WPARAM wParam,
                           LPARAM lParam) { return handle(message, wParam, lParam); }),
      view_(window_.get(), library) {
    view_.loadTextures(scene_.builder);
    scene_.builder.setMessage(keyText("\n"));
    scene_.builder.setOverlayColor(kPathColor);
    setTitle();
    window_.show();
}

ViewerWindow::~ViewerWindow() {
    view_.releaseScene(scene_.builder);
}

bool ViewerWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; // of the mouse's messages
    switch (message) {
    case WM_SIZE:
    case WM_PAINT:
        changed_ = true;
        return true;
    case WM_KEYDOWN:
        keyDown(static_cast<int>(wParam));
        return true;
    case WM_KEYUP:
        keysDown_.erase(static_cast<int>(wParam));
        return true;
    case WM_LBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_RBUTTONDOWN:
        mouseDown(at);
        return true;
    case WM_LBUTTONUP:
    case WM_MBUTTONUP:
    case WM_RBUTTONUP:
        mouseUp(message == WM_LBUTTONUP, (wParam & MK_CONTROL) != 0);
        return true;
    case WM_MOUSEMOVE:
        mouseMove(wParam, at);
        return true;
    case WM_MOUSEWHEEL:
        camera_.zoom(static_cast<double>(GET_WHEEL_DELTA_WPARAM(wParam)) / WHEEL_DELTA);
        changed_ = true;
        return true;
    default:
        return false;
    }
}

void ViewerWindow::keyDown(int key) {
    keysDown_.insert(key);
    switch (key) {
    case VK_ESCAPE:
        window_.close();
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

void ViewerWindow::mouseDown(POINT at) {
    pointer_ = at;
    pressed_ = at;
    dragging_ = false;
    SetCapture(window_.get());
}

void ViewerWindow::mouseUp(bool left, bool add) {
    ReleaseCapture();
    if (left && !dragging_) {
        marks_.select(add);
        setTitle();
    }
    dragging_ = false;
    pointDue_ = true;
    changed_ = true;
}

void ViewerWindow::mouseMove(WPARAM buttons, POINT at) {
    if ((buttons & (MK_LBUTTON | MK_MBUTTON | MK_RBUTTON)) == 0) {
        pointer_ = at;
        pointDue_ = true;
        return;
    }
    if (!dragging_ && std::abs(at.x - pressed_.x) <= kClickTravel &&
        std::abs(at.y - pressed_.y) <= kClickTravel)
        return;
    dragging_ = true;
    marks_.hideName();
    const double height = std::max(1, window_.clientSize().height);
    const double right = (at.x - pointer_.x) / height;
    const double down = (at.y - pointer_.y) / height;
    pointer_ = at;
    if ((buttons & MK_LBUTTON) != 0)
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
    window_.setTitle(title);
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

/// Keeps the marks on what lies under the pointer, once that may have changed.
void ViewerWindow::pointAgain(bool walked) {
    if (marks_.pointedAt() != ogl::host::kNone && !dragging_ && window_.pointerLeft()) {
        marks_.pointAt(ogl::host::kNone, 0, 0);
        changed_ = true;
        return;
    }
    if (!pointDue_ && !walked)
        return;
    pointDue_ = false;
    const Size size = window_.clientSize();
    if (dragging_ || size.width < 1 || size.height < 1)
        return;
    scene_.builder.setCamera(camera_.camera());
    const auto x = static_cast<int>(pointer_.x);
    const auto y = static_cast<int>(pointer_.y);
    const std::vector<int> objects = pickedObjects(*scene_.builder.scene(), size, x, y);
    if (marks_.pointAt(objects.empty() ? ogl::host::kNone : objects.front(), x, y))
        changed_ = true;
}

void ViewerWindow::draw() {
    const Size size = window_.clientSize();
    if (size.width < 1 || size.height < 1)
        return; // minimised
    ogl::host::SceneBuilder& builder = scene_.builder;
    builder.setCamera(camera_.camera());
    applyStyle(builder, style_);
    builder.setViewFlags(showKeys_ ? ogl::kViewNoSelection | ogl::kViewMessage : 0);
    builder.setHud(static_cast<uint8_t>((showPaths_ ? ogl::kHudPaths : 0) |
                                        (showStatistics_ ? ogl::kHudStatistics : 0)));
    builder.placePaths(size.width, size.height);
    d3_DrawInWindow(view_.get(), builder.scene(), drawFlagsOf(style_), 1, nullptr, nullptr);
}

void ViewerWindow::run() {
    using Clock = std::chrono::steady_clock;
    Clock::time_point last = Clock::now();
    while (window_.handleMessages()) {
        const Clock::time_point now = Clock::now();
        const bool walked = walk(std::chrono::duration<double>(now - last).count());
        last = now;
        pointAgain(walked);
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
