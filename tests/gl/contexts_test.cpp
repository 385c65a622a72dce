// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/window_fixture.h"
#include "platform/pixel_format.h"

#include <gtest/gtest.h>

using namespace ogl::test;

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
