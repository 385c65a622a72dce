// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Loads the library and lets go of it again, in one of the ways that hosts do. Tests run it, since
// what goes wrong there takes the process along.
//   unload_probe MODE FOLDER   settings and log in FOLDER; prints "done" and the milliseconds that
//                              it spent on anything but unloading
//   unload_probe "no window" FOLDER    d3_Create gives null, twice, where no window can be made
//   unload_probe "window refused" FOLDER    the same on Windows, where this program takes the
//                              window's class; then a view, where windows can be made again
#include "modules/message_boxes.h"
#include "ogl/ogl.h"
#include "platform/win32.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace {

struct Library {
    HMODULE module = LoadLibraryA("ogl.dll");
    decltype(&d3_Create) create = function<decltype(&d3_Create)>("d3_Create");
    decltype(&d3_Release) release = function<decltype(&d3_Release)>("d3_Release");

  private:
    template <class Function> Function function(const char* name) {
        void* address = reinterpret_cast<void*>(GetProcAddress(module, name));
        return reinterpret_cast<Function>(address);
    }
};

LRESULT CALLBACK refuse(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return message == WM_CREATE ? -1 : DefWindowProcA(window, message, wParam, lParam);
}

/// Takes the name of the library's window class, for the library's next window.
bool refuseOwnWindow(HMODULE module) {
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = refuse;
    windowClass.hInstance = module;
    windowClass.lpszClassName = "MyWindowClass";
    return RegisterClassExA(&windowClass) != 0;
}

using Clock = std::chrono::steady_clock;

bool logSaysNoWindow(const std::string& folder) {
    std::ifstream log(folder + "/ogl.log");
    const std::string text{std::istreambuf_iterator<char>(log), {}};
    return text.find("No own window") != std::string::npos;
}

/// Two views that cannot be, and one that can when `refused`; the number of the step that fails.
int tryWithoutWindow(const Library& library, const std::string& folder, bool refused) {
    const std::string iniPath = folder + "\\space.ini";
    const Clock::time_point start = Clock::now();
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (refused && !refuseOwnWindow(library.module))
            return 6;
        if (library.create(nullptr, 0, iniPath.c_str()) != nullptr)
            return 7;
    }
    // A wait for a window that never comes takes ten.
    if (Clock::now() - start > std::chrono::seconds(9))
        return 8;
    if (!logSaysNoWindow(folder))
        return 9;
    if (!refused)
        return 0;
    ogl::RenderContext* const view = library.create(nullptr, 0, iniPath.c_str());
    library.release(view);
    return view != nullptr && !logSaysNoWindow(folder) ? 0 : 10;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    const std::string mode = argv[1];
    const std::string iniPath = std::string(argv[2]) + "\\space.ini";
    ogl::test::answerMessageBoxes();

    const Clock::time_point start = Clock::now();
    Clock::duration unloading{};
    const int rounds = mode == "unload often" ? 3 : 1;
    for (int round = 0; round < rounds; ++round) {
        const Library library;
        if (library.create == nullptr || library.release == nullptr)
            return 3;
        if (mode == "no window" || mode == "window refused")
            return tryWithoutWindow(library, argv[2], mode == "window refused");
        ogl::RenderContext* const view = library.create(nullptr, 0, iniPath.c_str());
        ogl::RenderContext* const second = library.create(nullptr, 0, iniPath.c_str());
        if (view == nullptr || second == nullptr)
            return 4;
        if (mode != "exit with views")
            library.release(second);
        if (mode == "unload often" || mode == "exit")
            library.release(view);
        const Clock::time_point before = Clock::now();
        if (mode.starts_with("unload") && !FreeLibrary(library.module))
            return 5;
        unloading += Clock::now() - before;
    }
    const auto spent =
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start - unloading);
    std::printf("done %d\n", static_cast<int>(spent.count()));
    std::fflush(stdout);
    return 0;
}
