// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Loads the library and lets go of it again, in one of the ways that hosts do. Tests run it, since
// what goes wrong there takes the process along.
//   unload_probe MODE FOLDER   settings and log in FOLDER; prints "done" and the milliseconds that
//                              it spent on anything but unloading
//   unload_probe "no window" FOLDER    where no window can be made: d3_Create gives null, twice
#include "modules/message_boxes.h"
#include "ogl/ogl.h"
#include "platform/win32.h"

#include <chrono>
#include <cstdio>
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

} // namespace

using Clock = std::chrono::steady_clock;

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
        ogl::RenderContext* const view = library.create(nullptr, 0, iniPath.c_str());
        if (mode == "no window")
            return view == nullptr && library.create(nullptr, 0, iniPath.c_str()) == nullptr ? 0
                                                                                             : 6;
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
