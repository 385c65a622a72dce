// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/own_window.h"

#include "platform/gl_surface.h"
#include "render/render_context.h"
#include "support/temp_folder.h"

#include <array>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace ogl::test {
namespace {

/// A view without a host window.
class OwnWindowView {
  public:
    OwnWindowView() {
        if (!ensureOwnWindow(GetModuleHandleA(nullptr)))
            return;
        context_ =
            std::make_unique<RenderContext>(ownWindow(), 0u, folder_.hostFile("space.ini").c_str());
        ready_ = context_->initializeOpenGL() &&
                 wglMakeCurrent(context_->primary.dc, context_->primary.glContext);
    }
    bool ready() const { return ready_; }
    RenderContext& context() { return *context_; }

  private:
    TempFolder folder_;
    std::unique_ptr<RenderContext> context_;
    bool ready_ = false;
};

/// Fills rectangles of the back buffer by colour; rows count from the bottom.
void fill(int x, int y, int width, int height, const std::array<GLubyte, 3>& color) {
    glEnable(GL_SCISSOR_TEST);
    glScissor(x, y, width, height);
    glClearColor(static_cast<float>(color[0]) / 255.0f, static_cast<float>(color[1]) / 255.0f,
                 static_cast<float>(color[2]) / 255.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    glDisable(GL_SCISSOR_TEST);
}

constexpr std::array<GLubyte, 3> kQuarters[] = {
    {255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}};

/// Draws four quarters in four colours, without any call that would make the driver look at the
/// window's size again, and counts the pixels that differ.
int wrongPixels(int width, int height) {
    glDrawBuffer(GL_BACK);
    glReadBuffer(GL_BACK);
    const int midX = width / 2;
    const int midY = height / 2;
    fill(0, 0, midX, midY, kQuarters[0]);
    fill(midX, 0, width - midX, midY, kQuarters[1]);
    fill(0, midY, midX, height - midY, kQuarters[2]);
    fill(midX, midY, width - midX, height - midY, kQuarters[3]);
    std::vector<GLubyte> pixels(static_cast<size_t>(width) * static_cast<size_t>(height) * 3, 77);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    int wrong = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const auto& expected = kQuarters[(x >= midX ? 1 : 0) + (y >= midY ? 2 : 0)];
            const size_t at =
                (static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)) * 3;
            if (pixels[at] != expected[0] || pixels[at + 1] != expected[1] ||
                pixels[at + 2] != expected[2])
                ++wrong;
        }
    return wrong;
}

struct Size {
    const char* name;
    int width;
    int height;
};

const Size kSizes[] = {
    {"growing both ways", 800, 600},
    {"shrinking both ways", 320, 240},
    {"growing to wide", 1000, 250},
    {"to tall", 250, 900},
    {"below a caption's width", 40, 30},
    {"a single pixel", 1, 1},
    {"back to large", 1024, 768},
    {"larger than the screen", 1500, 1300},
    {"odd width", 641, 481},
    {"one pixel more", 642, 482},
};

TEST(OwnWindow, AFrameRightAfterAResizeFillsTheWholeBitmap) {
    OwnWindowView view;
    ASSERT_TRUE(view.ready());
    for (const Size& size : kSizes) {
        SCOPED_TRACE(size.name);
        resizeOwnWindow(size.width, size.height);
        RECT client{};
        ASSERT_TRUE(GetClientRect(ownWindow(), &client));
        EXPECT_EQ(client.right, size.width);
        EXPECT_EQ(client.bottom, size.height);
        EXPECT_EQ(wrongPixels(size.width, size.height), 0);
    }
}

TEST(OwnWindow, AResizeKeepsTheRenderersState) {
    OwnWindowView view;
    ASSERT_TRUE(view.ready());
    glViewport(3, 4, 50, 60);
    glScissor(5, 6, 7, 8);
    glEnable(GL_SCISSOR_TEST);
    glColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_FALSE);
    glClearColor(0.25f, 0.5f, 0.75f, 1.0f);
    glPixelStorei(GL_PACK_ALIGNMENT, 2);
    resizeOwnWindow(300, 333);
    GLint box[4];
    glGetIntegerv(GL_VIEWPORT, box);
    EXPECT_EQ(std::vector<int>(box, box + 4), (std::vector<int>{3, 4, 50, 60}));
    glGetIntegerv(GL_SCISSOR_BOX, box);
    EXPECT_EQ(std::vector<int>(box, box + 4), (std::vector<int>{5, 6, 7, 8}));
    EXPECT_TRUE(glIsEnabled(GL_SCISSOR_TEST));
    GLboolean mask[4];
    glGetBooleanv(GL_COLOR_WRITEMASK, mask);
    EXPECT_EQ(std::vector<int>(mask, mask + 4), (std::vector<int>{1, 0, 1, 0}));
    GLfloat color[4];
    glGetFloatv(GL_COLOR_CLEAR_VALUE, color);
    EXPECT_EQ(color[1], 0.5f);
    GLint alignment = 0;
    glGetIntegerv(GL_PACK_ALIGNMENT, &alignment);
    EXPECT_EQ(alignment, 2);
}

TEST(OwnWindow, SizesThatNoWindowCanHaveAreIgnored) {
    OwnWindowView view;
    ASSERT_TRUE(view.ready());
    resizeOwnWindow(200, 100);
    for (const Size& size : {Size{"zero", 0, 50}, Size{"negative", 50, -1}}) {
        SCOPED_TRACE(size.name);
        resizeOwnWindow(size.width, size.height);
        RECT client{};
        ASSERT_TRUE(GetClientRect(ownWindow(), &client));
        EXPECT_EQ(client.right, 200);
        EXPECT_EQ(client.bottom, 100);
    }
}

TEST(OwnWindow, OutlivesItsViewsAndIsReused) {
    HWND window = nullptr;
    HDC dc = nullptr;
    {
        OwnWindowView first;
        ASSERT_TRUE(first.ready());
        window = ownWindow();
        dc = ownWindowDC();
        OwnWindowView second;
        ASSERT_TRUE(second.ready());
        EXPECT_EQ(second.context().primary.dc, dc);
        EXPECT_EQ(wrongPixels(64, 64), 0);
    }
    EXPECT_EQ(ownWindow(), window);
    EXPECT_EQ(ownWindowDC(), dc);
    OwnWindowView third;
    ASSERT_TRUE(third.ready());
    EXPECT_EQ(ownWindow(), window);
    resizeOwnWindow(500, 400);
    EXPECT_EQ(wrongPixels(500, 400), 0);
}

TEST(OwnWindow, ClosesOnRequestInBoundedTimeAndComesBack) {
    ASSERT_TRUE(ensureOwnWindow(GetModuleHandleA(nullptr)));
    const HWND first = ownWindow();
    const auto start = std::chrono::steady_clock::now();
    tearDownOwnWindow();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_EQ(ownWindow(), nullptr);
    EXPECT_EQ(ownWindowDC(), nullptr);
    EXPECT_FALSE(IsWindow(first));
    tearDownOwnWindow();

    OwnWindowView view;
    ASSERT_TRUE(view.ready());
    resizeOwnWindow(120, 90);
    EXPECT_EQ(wrongPixels(120, 90), 0);
}

TEST(OwnWindow, ClosesWhileAViewStillDrawsIntoIt) {
    OwnWindowView view;
    ASSERT_TRUE(view.ready());
    tearDownOwnWindow();
    EXPECT_EQ(ownWindow(), nullptr);
    resizeOwnWindow(50, 50);
}

} // namespace
} // namespace ogl::test
