// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/window_fixture.h"
#include "platform/pixel_format.h"

#include "support/system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

using namespace ogl::test;

TEST(PixelFormats, ChosenFormatHasWhatTheDescriptorAsksFor) {
    if (!ogl::test::platformLayerIsOurs())
        GTEST_SKIP() << "Wine chooses a format without alpha when it likes";
    TestWindow window(64, 64);
    const HDC dc = GetDC(window.handle());
    ASSERT_NE(dc, nullptr);
    PIXELFORMATDESCRIPTOR descriptor = ogl::test::usualDescriptor();
    const int chosen = ChoosePixelFormat(dc, &descriptor);
    ASSERT_GT(chosen, 0);
    PIXELFORMATDESCRIPTOR found{};
    const int total = DescribePixelFormat(dc, chosen, sizeof found, &found);
    EXPECT_GE(total, chosen);
    EXPECT_EQ(found.dwFlags & 0x25u, 0x25u);
    EXPECT_GE(found.cColorBits, 24);
    EXPECT_GE(found.cAlphaBits, 8);
    EXPECT_GE(found.cDepthBits, 24);
    EXPECT_GE(found.cStencilBits, 8);
    EXPECT_EQ(DescribePixelFormat(dc, total + 1000, sizeof found, &found), 0);

    descriptor.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL;
    descriptor.cDepthBits = 16;
    descriptor.cStencilBits = 0;
    const int single = ChoosePixelFormat(dc, &descriptor);
    ASSERT_GT(single, 0);
    ASSERT_GT(DescribePixelFormat(dc, single, sizeof found, &found), 0);
    EXPECT_GE(found.cDepthBits, 16);

    EXPECT_EQ(GetPixelFormat(dc), 0);
    EXPECT_FALSE(SetPixelFormat(dc, total + 1000, &descriptor));
    EXPECT_EQ(wglCreateContext(dc), nullptr); // no format, no context
    ASSERT_TRUE(SetPixelFormat(dc, chosen, &descriptor));
    EXPECT_EQ(GetPixelFormat(dc), chosen);
    ReleaseDC(window.handle(), dc);
}

// What the ladder of sample counts relies on: a count is refused or really given.
TEST(PixelFormats, MultisampleSearchGivesTheSamplesOrNothing) {
    TestWindow first(64, 64);
    TestContext bootstrap(first.handle());
    int offered = 0;
    for (const int samples : {1, 2, 4, 8, 16, 64}) {
        TestWindow window(64, 64);
        const HDC dc = GetDC(window.handle());
        const int format = ogl::multisampleFormat(dc, samples);
        ReleaseDC(window.handle(), dc);
        if (format == 0)
            continue;
        ++offered;
        TestContext context(window.handle(), format);
        GLint got = 0;
        glGetIntegerv(GL_SAMPLES, &got);
        EXPECT_GE(got, samples) << "format " << format;
        // A multisampled back buffer is read resolved.
        clearTo(0.0f, 0.0f, 1.0f);
        EXPECT_EQ(wrongPixels(readBackBuffer(64, 64), 0, 0, 255), 0u);
        EXPECT_TRUE(bootstrap.makeCurrent());
    }
    const HDC dc = GetDC(first.handle());
    EXPECT_EQ(ogl::multisampleFormat(dc, 4096), 0);
    ReleaseDC(first.handle(), dc);
    RecordProperty("offered", offered);
}

TEST(Contexts, MakeCurrentRefusesWhatCannotBeCurrent) {
    TestWindow window(64, 64);
    TestWindow bare(64, 64);
    TestContext context(window.handle());
    const HDC bareDC = GetDC(bare.handle());
    EXPECT_EQ(wglGetCurrentContext(), context.context());
    EXPECT_EQ(wglGetCurrentDC(), context.dc());
    EXPECT_FALSE(wglMakeCurrent(bareDC, context.context())); // no pixel format
    EXPECT_TRUE(wglMakeCurrent(nullptr, nullptr));
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    EXPECT_TRUE(context.makeCurrent());
    ReleaseDC(bare.handle(), bareDC);
    EXPECT_FALSE(wglDeleteContext(nullptr));
}

TEST(Contexts, SharedObjectsAreSeenInBoth) {
    if (!ogl::test::platformLayerIsOurs())
        GTEST_SKIP() << "Wine shares nothing once a context was current";
    TestWindow firstWindow(64, 64);
    TestWindow secondWindow(64, 64);
    TestContext first(firstWindow.handle());
    TestContext second(secondWindow.handle());
    ASSERT_TRUE(wglShareLists(first.context(), second.context()));
    EXPECT_FALSE(wglShareLists(first.context(), nullptr));

    ASSERT_TRUE(first.makeCurrent());
    const uint8_t texel[4] = {12, 34, 56, 78};
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, texel);
    const GLuint list = glGenLists(1);
    glNewList(list, GL_COMPILE);
    glClearColor(1.0f, 0.0f, 1.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    glEndList();
    glFinish();

    ASSERT_TRUE(second.makeCurrent());
    uint8_t read[4] = {};
    glBindTexture(GL_TEXTURE_2D, texture);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, read);
    EXPECT_TRUE(std::equal(texel, texel + 4, read));
    glCallList(list);
    EXPECT_EQ(wrongPixels(readBackBuffer(64, 64), 255, 0, 255), 0u);
}

TEST(Contexts, DebugContextsReportErrors) {
    TestWindow window(64, 64);
    TestContext plain(window.handle());
    if (!wglCreateContextAttribsARB || !GLEW_KHR_debug)
        GTEST_SKIP() << "no debug contexts here";
    const int attributes[] = {WGL_CONTEXT_FLAGS_ARB, WGL_CONTEXT_DEBUG_BIT_ARB, 0};
    const HGLRC debug = wglCreateContextAttribsARB(plain.dc(), nullptr, attributes);
    ASSERT_NE(debug, nullptr);
    ASSERT_TRUE(wglMakeCurrent(plain.dc(), debug));
    GLint flags = 0;
    glGetIntegerv(GL_CONTEXT_FLAGS, &flags);
    EXPECT_TRUE(flags & GL_CONTEXT_FLAG_DEBUG_BIT);
    const int impossible[] = {WGL_CONTEXT_MAJOR_VERSION_ARB, 97, 0};
    EXPECT_EQ(wglCreateContextAttribsARB(plain.dc(), nullptr, impossible), nullptr);
    wglMakeCurrent(nullptr, nullptr);
    EXPECT_TRUE(wglDeleteContext(debug));
}

TEST(BitmapFonts, GlyphsAreDrawnWithTheFontsWeightAndWidth) {
    if (!ogl::test::platformLayerIsOurs())
        GTEST_SKIP() << "Wine picks a face whose bold glyphs are as wide as the others";
    TestWindow window(200, 60);
    TestContext context(window.handle());
    window.resizeClient(200, 60);
    if (!context.makeCurrent())
        FAIL();
    const auto inkOf = [&](int weight, const char* text) {
        const HFONT font =
            CreateFontA(16, 0, 0, 0, weight, 0, 0, 0, ANSI_CHARSET, OUT_TT_PRECIS,
                        CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH, "Helvetica");
        const HGDIOBJ before = SelectObject(context.dc(), font);
        EXPECT_NE(before, nullptr);
        const GLuint lists = glGenLists(96);
        EXPECT_TRUE(wglUseFontBitmapsA(context.dc(), 32, 96, lists));
        SelectObject(context.dc(), before);
        EXPECT_TRUE(DeleteObject(font));
        glViewport(0, 0, 200, 60);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(0, 200, 0, 60, -1, 1);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        clearTo(0.0f, 0.0f, 0.0f);
        glColor3f(1.0f, 1.0f, 1.0f);
        glRasterPos2i(20, 20);
        glListBase(lists - 32);
        glCallLists(static_cast<GLsizei>(std::char_traits<char>::length(text)), GL_UNSIGNED_BYTE,
                    text);
        glListBase(0);
        glDeleteLists(lists, 96);
        struct Ink {
            int pixels, left, right, bottom, top;
        } ink{0, 200, -1, 60, -1};
        const auto pixels = readBackBuffer(200, 60);
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < 200; ++x)
                if (pixels[static_cast<size_t>((y * 200 + x) * 4)] > 127) {
                    ++ink.pixels;
                    ink.left = std::min(ink.left, x);
                    ink.right = std::max(ink.right, x);
                    ink.bottom = std::min(ink.bottom, y);
                    ink.top = std::max(ink.top, y);
                }
        return ink;
    };
    const auto bold = inkOf(FW_BOLD, "H");
    ASSERT_GT(bold.pixels, 20);
    EXPECT_GE(bold.left, 20); // starts at the raster position
    EXPECT_LE(bold.left, 23);
    EXPECT_EQ(bold.bottom, 20); // stands on the base line, right way up
    EXPECT_GE(bold.top, 28);    // a capital of a line of 16 pixels
    EXPECT_LE(bold.top, 33);
    EXPECT_GT(bold.pixels, inkOf(FW_NORMAL, "H").pixels);
    // A letter moves on by its width, the space too.
    const auto pair = inkOf(FW_BOLD, "HH");
    EXPECT_EQ(pair.pixels, 2 * bold.pixels);
    EXPECT_GT(inkOf(FW_BOLD, "H H").right, pair.right + 2);
    // "L" has its ink at the bottom, "'" at the top: rows are not upside down.
    EXPECT_EQ(inkOf(FW_BOLD, "L").bottom, 20);
    EXPECT_GT(inkOf(FW_BOLD, "'").bottom, 24);
    EXPECT_EQ(inkOf(FW_BOLD, " ").pixels, 0);
}
