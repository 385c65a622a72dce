// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/system.h"

#include <algorithm>
#include <windows.h>

namespace oglview {

bool errorOutputIsTerminal() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

Size largestPicture() {
    // Windows keeps windows with a frame to about the size of the desktop.
    RECT frame = {};
    AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
    const int width = GetSystemMetrics(SM_CXMAXTRACK) - (frame.right - frame.left);
    const int height = GetSystemMetrics(SM_CYMAXTRACK) - (frame.bottom - frame.top);
    return {std::clamp(width, 1, kLargestSide), std::clamp(height, 1, kLargestSide)};
}

} // namespace oglview
