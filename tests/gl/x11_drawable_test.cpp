// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What only the X11 platform layer promises about drawing into windows.
#include "gl/window_fixture.h"
#include "gl/x11_client.h"
#include "platform/pixel_format.h"

#include <gtest/gtest.h>

using namespace ogl::test;

// The same without being current while the size changes, and with swaps in between.
TEST(X11Drawable, HiddenBackBufferFollowsWhileNotCurrent) {
    TestWindow window(200, 100);
    TestContext context(window.handle());
    const int sizes[][2] = {{640, 480}, {64, 48}, {800, 600}};
    for (const auto& size : sizes) {
        clearTo(0.0f, 0.0f, 0.0f);
        SwapBuffers(context.dc());
        wglMakeCurrent(nullptr, nullptr);
        window.resizeClient(size[0], size[1]);
        ASSERT_TRUE(context.makeCurrent());
        clearTo(0.0f, 1.0f, 1.0f);
        EXPECT_EQ(wrongPixels(readBackBuffer(size[0], size[1]), 0, 255, 255), 0u) << size[0];
    }
}

TEST(X11Drawable, SwapPutsTheFrameOnTheScreen) {
    X11Client client;
    TestWindow window(120, 90, true);
    TestContext context(window.handle());
    clearTo(1.0f, 0.5f, 0.0f);
    ASSERT_TRUE(SwapBuffers(context.dc()));
    glFinish();
    EXPECT_EQ(client.screenPixel(window.handle(), 60, 45), 0xff8000u);
    EXPECT_EQ(client.screenPixel(window.handle(), 119, 89), 0xff8000u);
    // The drawing covers all of the window after it has grown, too.
    window.resizeClient(300, 250);
    ASSERT_TRUE(context.makeCurrent());
    clearTo(0.0f, 0.0f, 1.0f);
    ASSERT_TRUE(SwapBuffers(context.dc()));
    EXPECT_EQ(client.screenPixel(window.handle(), 299, 249), 0x0000ffu);
}

// A window of another toolkit is one that another connection made; it comes, is resized and goes
// without a word to us.
TEST(X11Drawable, WindowOfAnotherToolkitIsDrawnIntoAndHandedBack) {
    X11Client client;
    const HWND window = client.createWindow(160, 120);
    {
        TestContext context(window);
        EXPECT_EQ(client.childCount(window), 1u);
        clearTo(0.0f, 1.0f, 0.0f);
        ASSERT_TRUE(SwapBuffers(context.dc()));
        EXPECT_EQ(client.screenPixel(window, 150, 110), 0x00ff00u);

        client.resize(window, 400, 300);
        RECT area{};
        ASSERT_TRUE(GetClientRect(window, &area));
        EXPECT_EQ(area.right, 400);
        EXPECT_EQ(area.bottom, 300);
        clearTo(1.0f, 0.0f, 0.0f);
        EXPECT_EQ(wrongPixels(readBackBuffer(400, 300), 255, 0, 0), 0u);
        ASSERT_TRUE(SwapBuffers(context.dc()));
        EXPECT_EQ(client.screenPixel(window, 399, 299), 0xff0000u);
    }
    EXPECT_EQ(client.childCount(window), 0u);
    {
        TestContext again(window); // with another pixel format, if it likes
        clearTo(0.0f, 0.0f, 1.0f);
        ASSERT_TRUE(SwapBuffers(again.dc()));
        EXPECT_EQ(client.screenPixel(window, 10, 10), 0x0000ffu);
    }
}

TEST(X11Drawable, ContextsThatGlxSwitchesBehindOurBackAreNoticed) {
    TestWindow window(64, 64);
    TestContext context(window.handle());
    X11Client().makeNoContextCurrent();
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    EXPECT_EQ(wglGetCurrentDC(), nullptr);
    ASSERT_TRUE(context.makeCurrent());
    clearTo(1.0f, 0.0f, 1.0f);
    EXPECT_EQ(wrongPixels(readBackBuffer(64, 64), 255, 0, 255), 0u);
}

TEST(X11Drawable, WindowThatVanishesWhileDrawnIntoDoesNotEndTheProcess) {
    X11Client client;
    const HWND window = client.createWindow(100, 100);
    TestWindow other(64, 64);
    TestContext survivor(other.handle());
    {
        TestContext context(window);
        clearTo(0.0f, 1.0f, 0.0f);
        client.destroy(window);
        clearTo(1.0f, 1.0f, 0.0f);
        SwapBuffers(context.dc());
        glFinish();
        RECT area{};
        EXPECT_FALSE(GetClientRect(window, &area));
        EXPECT_FALSE(IsWindow(window));
        EXPECT_FALSE(MoveWindow(window, 0, 0, 10, 10, TRUE));
        EXPECT_EQ(GetDC(window), nullptr);
    }
    ASSERT_TRUE(survivor.makeCurrent());
    clearTo(0.0f, 1.0f, 1.0f);
    EXPECT_EQ(wrongPixels(readBackBuffer(64, 64), 0, 255, 255), 0u);
}

// The drawing child takes its window's Expose events.
TEST(X11Drawable, UncoveredDrawingIsPaintedAgain) {
    X11Client client;
    TestWindow window(200, 150, true);
    TestContext context(window.handle());
    TestWindow::pumpUntil([&] { return window.seen(WM_PAINT) != nullptr; });
    const HWND cover = client.createWindow(400, 400);
    TestWindow::pumpUntil([&] { return false; });
    window.messages.clear();
    client.destroy(cover);
    EXPECT_TRUE(TestWindow::pumpUntil([&] { return window.seen(WM_PAINT) != nullptr; }));
}
