// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What only the X11 platform layer promises about drawing into windows.
#include "gl/window_fixture.h"
#include "gl/x11_client.h"
#include "platform/pixel_format.h"

#include <gtest/gtest.h>

#include <string>

using namespace ogl::test;

// Mesa's software renderer, which the tests run on here, has 4 samples and not more.
TEST(X11Drawable, SoftwareRendererOffersFourSamples) {
    TestWindow window(64, 64);
    TestContext context(window.handle());
    const std::string renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    if (renderer.find("llvmpipe") == std::string::npos)
        GTEST_SKIP() << renderer;
    EXPECT_GT(ogl::multisampleFormat(context.dc(), 4), 0);
    EXPECT_EQ(ogl::multisampleFormat(context.dc(), 8), 0);
    EXPECT_EQ(ogl::multisampleFormat(context.dc(), 16), 0);
}

// Under Wine the back buffer follows only after a swap, which is the library's own business; here
// the platform layer promises the new size as soon as MoveWindow or GetClientRect has returned.
TEST(X11Drawable, HiddenBackBufferHasTheWindowsSizeAtOnce) {
    for (const int samples : {0, 4}) {
        TestWindow window(320, 200);
        int format = 0;
        if (samples) {
            const HDC dc = GetDC(window.handle());
            format = ogl::multisampleFormat(dc, samples);
            ReleaseDC(window.handle(), dc);
        }
        TestContext context(window.handle(), format);
        const int sizes[][2] = {{320, 200}, {900, 700}, {100, 80}, {101, 500}, {1400, 1100}};
        int frame = 0;
        for (const auto& size : sizes) {
            window.resizeClient(size[0], size[1]);
            const float green = ++frame % 2 ? 1.0f : 0.0f;
            glViewport(0, 0, size[0], size[1]);
            clearTo(1.0f, green, 0.0f);
            const auto pixels = readBackBuffer(size[0], size[1]);
            EXPECT_EQ(wrongPixels(pixels, 255, green > 0.0f ? 255 : 0, 0), 0u)
                << size[0] << " x " << size[1] << ", " << samples << " samples";
            // A mark in the last column and row: the corner is where a stale size shows.
            glEnable(GL_SCISSOR_TEST);
            glScissor(size[0] - 1, size[1] - 1, 1, 1);
            glClearColor(0.0f, 0.0f, 1.0f, 1.0f);
            glClear(GL_COLOR_BUFFER_BIT);
            const auto marked = readBackBuffer(size[0], size[1]);
            EXPECT_EQ(marked[marked.size() - 2], 255);
            EXPECT_EQ(marked[marked.size() - 6], 0);
        }
    }
}

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
