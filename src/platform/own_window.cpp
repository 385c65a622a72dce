// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/own_window.h"

#include "platform/drawable_size.h"

#include <atomic>

namespace ogl {

namespace {

constexpr const char* kClassName = "MyWindowClass";
constexpr int kCreateLimitMilliseconds = 10000;
constexpr int kCreatePollMilliseconds = 50;
constexpr DWORD kCloseLimitMilliseconds = 5000;

struct OwnWindow {
    std::atomic<HWND> window = nullptr; ///< written by the window's thread
    std::atomic<HDC> dc = nullptr;      ///< written by the window's thread
    std::atomic<bool> ended = false;    ///< the thread has nothing left to do
    HINSTANCE instance = nullptr;
    HANDLE thread = nullptr;
    DWORD threadId = 0;
    int drawableWidth = 0; ///< size that the drawable was last seen to cover
    int drawableHeight = 0;
};
OwnWindow own;

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_DESTROY:
        // The thread that took the device context gives it back.
        if (const HDC dc = own.dc.exchange(nullptr))
            ReleaseDC(window, dc);
        own.window = nullptr;
        PostQuitMessage(0);
        return 0;
#ifdef WM_GETMINMAXINFO
    case WM_GETMINMAXINFO: {
        // Bitmaps may be smaller than a window with a caption usually gets, and larger than the
        // screen.
        MINMAXINFO& info = *reinterpret_cast<MINMAXINFO*>(lParam);
        info.ptMinTrackSize = {1, 1};
        info.ptMaxTrackSize = {0x7fff, 0x7fff};
        return 0;
    }
#endif
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

ATOM registerWindowClass() {
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = windowProcedure;
    windowClass.hInstance = own.instance;
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_WINDOW + 1));
    windowClass.lpszClassName = kClassName;
    return RegisterClassExA(&windowClass);
}

void runMessageLoop() {
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
        Sleep(1);
    }
}

DWORD WINAPI windowThread(LPVOID) {
    registerWindowClass();
    const HWND window = CreateWindowExA(0, kClassName, "temp", WS_OVERLAPPEDWINDOW, 100, 100, 400,
                                        200, nullptr, nullptr, own.instance, nullptr);
    if (window != nullptr) {
        own.window = window;
        UpdateWindow(window);
        own.dc = GetDC(window);
        runMessageLoop();
    }
    // Without a window no message could ever come: the thread ends, so that nobody waits for it.
    UnregisterClassA(kClassName, own.instance);
    own.ended = true;
#ifdef _WIN32
    // From here on the library may be unmapped: the thread must not return into its code.
    ExitThread(1);
#endif
    return 1;
}

/// Waits for a thread that has nothing left to do, and forgets it.
void forgetThread() {
    if (own.thread == nullptr)
        return;
#ifdef _WIN32
    // While a library is being unloaded the thread cannot end: it waits in ExitThread, outside the
    // library's code, for the lock that the unloading holds. It gets there within this time.
    constexpr DWORD kEndLimitMilliseconds = 100;
    if (!own.ended && WaitForSingleObject(own.thread, 0) == WAIT_TIMEOUT)
        TerminateThread(own.thread, 1); // its code is about to go
#else
    constexpr DWORD kEndLimitMilliseconds = kCloseLimitMilliseconds;
#endif
    WaitForSingleObject(own.thread, kEndLimitMilliseconds);
    CloseHandle(own.thread);
    own.thread = nullptr;
    own.window = nullptr;
    own.dc = nullptr;
    own.drawableWidth = 0;
    own.drawableHeight = 0;
}

} // namespace

HWND ownWindow() {
    return own.window;
}

HDC ownWindowDC() {
    return own.dc;
}

bool ensureOwnWindow(HINSTANCE instance) {
    if (own.dc.load() != nullptr)
        return true;
    if (own.ended)
        forgetThread();
    if (own.thread == nullptr) {
        own.instance = instance;
        own.ended = false;
        static wchar_t title[] = L"Window Title";
        own.thread = CreateThread(nullptr, 0, windowThread, title, 0, &own.threadId);
        if (own.thread == nullptr)
            return false;
    }
    for (int waited = 0;
         own.dc.load() == nullptr && !own.ended && waited < kCreateLimitMilliseconds;
         waited += kCreatePollMilliseconds)
        Sleep(kCreatePollMilliseconds);
    return own.dc.load() != nullptr;
}

void resizeOwnWindow(int clientWidth, int clientHeight) {
    const HWND window = own.window;
    const HDC dc = own.dc;
    RECT client{};
    RECT frame{};
    if (clientWidth <= 0 || clientHeight <= 0 || window == nullptr ||
        !GetClientRect(window, &client) || !GetWindowRect(window, &frame))
        return;
    if (client.right != clientWidth || client.bottom != clientHeight) {
        own.drawableWidth = 0;
        MoveWindow(window, frame.left, frame.top,
                   clientWidth + (frame.right - frame.left) - client.right,
                   clientHeight + (frame.bottom - frame.top) - client.bottom, TRUE);
    }
    if (own.drawableWidth == clientWidth && own.drawableHeight == clientHeight)
        return;
    if (dc == nullptr || wglGetCurrentDC() != dc || wglGetCurrentContext() == nullptr)
        return;
    waitForDrawableSize(dc, clientWidth, clientHeight);
    // Also after a wait in vain: a size that the driver cannot give is waited for once.
    own.drawableWidth = clientWidth;
    own.drawableHeight = clientHeight;
}

void tearDownOwnWindow() {
    if (own.thread == nullptr)
        return;
    if (const HWND window = own.window)
        PostMessageA(window, WM_CLOSE, 0, 0);
    else
        PostThreadMessageA(own.threadId, WM_QUIT, 0, 0);
    // At the end of a process the thread is gone already; else it says that it is done.
    for (DWORD waited = 0; !own.ended && waited < kCloseLimitMilliseconds; waited += 5)
        if (WaitForSingleObject(own.thread, 5) == WAIT_OBJECT_0)
            break;
    forgetThread();
}

} // namespace ogl
