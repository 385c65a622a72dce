// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "modules/message_boxes.h"

#include <cstdio>
#include <windows.h>

namespace ogl::test {

namespace {

constexpr const char* kDialogClass = "#32770";

/// Copies the first text that a static control of the box shows; its number differs by system.
void readText(HWND box, char (&text)[512]) {
    text[0] = '\0';
    for (HWND control = nullptr; text[0] == '\0';) {
        control = FindWindowExA(box, control, "Static", nullptr);
        if (control == nullptr)
            return;
        GetWindowTextA(control, text, sizeof text);
    }
}

DWORD WINAPI answer(LPVOID) {
    for (;; Sleep(10)) {
        const HWND box = FindWindowA(kDialogClass, "Error"); // the caption that no caption gives
        DWORD process = 0;
        if (box == nullptr || GetWindowThreadProcessId(box, &process) == 0 ||
            process != GetCurrentProcessId())
            continue;
        char text[512];
        readText(box, text);
        if (text[0] == '\0')
            continue; // not filled yet
        std::printf("%s\n", text);
        std::fflush(stdout);
        PostMessageA(box, WM_COMMAND, IDOK, 0);
        while (IsWindow(box))
            Sleep(10);
    }
}

} // namespace

void answerMessageBoxes() {
    CloseHandle(CreateThread(nullptr, 0, answer, nullptr, 0, nullptr));
}

} // namespace ogl::test
