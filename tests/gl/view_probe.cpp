// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A program that makes one view and says how that went. Tests run it because a driver takes its
// overrides from the environment of a fresh process.
//   view_probe FOLDER      host window, settings and log in FOLDER; prints "ready 0" or "ready 1"
//   view_probe             the library's own window; prints "own window 0" or "own window 1"
#include "platform/own_window.h"
#include "render/render_context.h"

#include <cstdio>
#include <string>

namespace {

/// Null when there is no desktop.
HWND makeWindow() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "ViewProbe";
    RegisterClassA(&windowClass);
    return CreateWindowExA(0, "ViewProbe", "view", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr,
                           nullptr, GetModuleHandleA(nullptr), nullptr);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        const bool made = ogl::ensureOwnWindow(GetModuleHandleA(nullptr));
        std::printf("own window %d\n", made ? 1 : 0);
        ogl::tearDownOwnWindow();
        return 0;
    }
    const HWND window = makeWindow();
    ogl::RenderContext context(window, 0, (std::string(argv[1]) + "\\space.ini").c_str());
    const bool ready = context.initializeOpenGL();
    std::printf("ready %d\n", ready ? 1 : 0);
    return context.glReady == (ready ? 1 : 0) ? 0 : 1;
}
