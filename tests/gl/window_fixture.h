// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Windows and contexts for tests, in plain Win32 calls.
#pragma once

#include "platform/win32.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace ogl::test {

struct SeenMessage {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

/// A top-level window of the calling thread that notes the messages of its procedure.
class TestWindow {
  public:
    TestWindow(int width, int height, bool visible = false);
    ~TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    HWND handle() const { return window_; }
    /// Gives the client area a size.
    void resizeClient(int width, int height);
    /// Runs the message loop until `done`, at most two seconds. Returns whether `done` came true.
    static bool pumpUntil(const std::function<bool()>& done);
    /// The last message of this kind that the procedure got, null when none.
    const SeenMessage* seen(UINT message) const;

    std::vector<SeenMessage> messages;
    bool destroyed = false;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    HWND window_ = nullptr;
};

/// The double-buffered RGBA descriptor that the library uses.
PIXELFORMATDESCRIPTOR usualDescriptor();

/// A device context with pixel format and OpenGL context on a window; current while it lives.
class TestContext {
  public:
    explicit TestContext(HWND window, int format = 0);
    ~TestContext();
    TestContext(const TestContext&) = delete;
    TestContext& operator=(const TestContext&) = delete;

    HDC dc() const { return dc_; }
    HGLRC context() const { return context_; }
    bool makeCurrent() const { return wglMakeCurrent(dc_, context_) != FALSE; }

  private:
    HWND window_;
    HDC dc_ = nullptr;
    HGLRC context_ = nullptr;
};

/// Clears the whole back buffer.
void clearTo(float red, float green, float blue);

/// The number of pixels whose colour is not (red, green, blue).
size_t wrongPixels(const std::vector<uint8_t>& pixels, uint8_t red, uint8_t green, uint8_t blue);

/// The back buffer's pixels, 4 bytes each, bottom row first.
std::vector<uint8_t> readBackBuffer(int width, int height);

} // namespace ogl::test
