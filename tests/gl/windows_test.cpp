// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/window_fixture.h"

#include <gtest/gtest.h>

#include <atomic>

using ogl::test::TestWindow;

namespace {

LRESULT CALLBACK refuseCreation(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return message == WM_CREATE ? -1 : DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

TEST(Windows, ClassesAndProceduresDecideWhatIsCreated) {
    EXPECT_EQ(CreateWindowExA(0, "OglNoSuchClass", "", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr,
                              nullptr, GetModuleHandleA(nullptr), nullptr),
              nullptr);

    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "OglRefusing";
    windowClass.lpfnWndProc = refuseCreation;
    ASSERT_NE(RegisterClassExA(&windowClass), 0);
    EXPECT_EQ(RegisterClassExA(&windowClass), 0); // the name is taken
    EXPECT_EQ(CreateWindowExA(0, "OglRefusing", "", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr,
                              nullptr, windowClass.hInstance, nullptr),
              nullptr);
    EXPECT_TRUE(UnregisterClassA("OglRefusing", windowClass.hInstance));
    EXPECT_FALSE(UnregisterClassA("OglRefusing", windowClass.hInstance));
}

TEST(Windows, WindowIsMadeWhateverItsClassHasForACursor) {
    for (const HCURSOR cursor : {reinterpret_cast<HCURSOR>(uintptr_t{0x54321}),
                                 LoadCursorA(nullptr, IDC_ARROW), HCURSOR{}}) {
        WNDCLASSEXA windowClass{};
        windowClass.cbSize = sizeof windowClass;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "OglCursor";
        windowClass.lpfnWndProc = DefWindowProcA;
        windowClass.hCursor = cursor;
        ASSERT_NE(RegisterClassExA(&windowClass), 0);
        const HWND window = CreateWindowExA(0, "OglCursor", "", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10,
                                            nullptr, nullptr, windowClass.hInstance, nullptr);
        EXPECT_NE(window, nullptr);
        EXPECT_TRUE(DestroyWindow(window));
        EXPECT_TRUE(UnregisterClassA("OglCursor", windowClass.hInstance));
    }
}

TEST(Windows, ShownWindowIsToldItsSizeAndAskedToPaint) {
    TestWindow window(300, 220, true);
    ASSERT_NE(window.handle(), nullptr);
    EXPECT_TRUE(IsWindowVisible(window.handle()));
    EXPECT_TRUE(TestWindow::pumpUntil([&] { return window.seen(WM_PAINT) != nullptr; }));
    window.resizeClient(420, 310);
    EXPECT_TRUE(TestWindow::pumpUntil([&] {
        const auto* size = window.seen(WM_SIZE);
        return size && LOWORD(size->lParam) == 420 && HIWORD(size->lParam) == 310;
    }));
    ShowWindow(window.handle(), SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(window.handle()));
}

TEST(Windows, PaintIsAskedForAgainAfterInvalidation) {
    TestWindow window(200, 150, true);
    TestWindow::pumpUntil([&] { return window.seen(WM_PAINT) != nullptr; });
    TestWindow::pumpUntil([&] { return false; }); // what the window manager still sends
    window.messages.clear();
    InvalidateRect(window.handle(), nullptr, FALSE);
    EXPECT_TRUE(TestWindow::pumpUntil([&] { return window.seen(WM_PAINT) != nullptr; }));
    // DefWindowProcA validates: painting doesn't go on for ever.
    window.messages.clear();
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE) && message.message == WM_PAINT);
}

TEST(Windows, ClientCoordinatesGoToTheScreenAndBack) {
    TestWindow window(200, 150);
    POINT point{7, 9};
    ASSERT_TRUE(ClientToScreen(window.handle(), &point));
    RECT frame{};
    GetWindowRect(window.handle(), &frame);
    EXPECT_GE(point.x, frame.left + 7);
    EXPECT_GE(point.y, frame.top + 9);
    ASSERT_TRUE(ScreenToClient(window.handle(), &point));
    EXPECT_EQ(point.x, 7);
    EXPECT_EQ(point.y, 9);
}

TEST(Windows, DestroyedWindowIsToldAndGone) {
    TestWindow window(100, 100);
    const HWND handle = window.handle();
    ASSERT_TRUE(PostMessageA(handle, WM_CLOSE, 0, 0));
    EXPECT_TRUE(TestWindow::pumpUntil([&] { return window.destroyed; }));
    EXPECT_FALSE(IsWindow(handle));
    RECT client{1, 2, 3, 4};
    EXPECT_FALSE(GetClientRect(handle, &client));
    EXPECT_EQ(GetDC(handle), nullptr);
    EXPECT_FALSE(DestroyWindow(handle));
    EXPECT_FALSE(PostMessageA(handle, WM_CLOSE, 0, 0));
}

namespace {

std::atomic<bool> loopIsReady = false;

DWORD WINAPI countMessages(LPVOID) {
    MSG message;
    PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE); // makes the queue
    loopIsReady = true;
    DWORD others = 0;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        ++others;
    return others;
}

} // namespace

TEST(Windows, QuitPostedToAThreadEndsItsLoop) {
    DWORD threadId = 0;
    const HANDLE thread = CreateThread(nullptr, 0, countMessages, nullptr, 0, &threadId);
    for (int waited = 0; !loopIsReady && waited < 1000; ++waited)
        Sleep(5);
    EXPECT_TRUE(PostThreadMessageA(threadId, WM_APP, 0, 0));
    EXPECT_TRUE(PostThreadMessageA(threadId, WM_QUIT, 0, 0));
    EXPECT_EQ(WaitForSingleObject(thread, 5000), static_cast<DWORD>(WAIT_OBJECT_0));
    DWORD others = 0;
    GetExitCodeThread(thread, &others);
    EXPECT_EQ(others, 1u);
    CloseHandle(thread);
    EXPECT_FALSE(PostThreadMessageA(threadId, WM_APP, 0, 0)); // nobody there any more
}
