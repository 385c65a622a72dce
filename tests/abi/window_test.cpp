// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Frames into windows of a host, and what they leave in its capture bitmap.
#include "abi/library.h"
#include "abi/wall_scene.h"
#include "support/dib.h"
#include "support/host_window.h"
#include "support/system.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace ogl::test {
namespace {

class WindowTest : public testing::Test {
  protected:
    void SetUp() override {
        context = library().create(window.handle(), 0, folder.hostFile("space.ini").c_str());
        ASSERT_NE(context, nullptr) << readFile(folder.file("ogl.log"));
    }
    void TearDown() override {
        scene.handBack();
        library().release(context);
    }
    void draw(HWND second = nullptr, HBITMAP capture = nullptr, int drawMain = 1) {
        EXPECT_EQ(library().drawInWindow(context, scene.record(), 1, drawMain, second, capture), 1);
    }

    TempFolder folder;
    HostWindow window{300, 200};
    WallScene scene;
    RenderContext* context = nullptr;
};

/// The wall's half size in pixels of a picture of this height.
int wallHalf(int height) {
    return static_cast<int>(std::lround(WallScene::kHalfSize * height / 2));
}

void expectWall(const Dib& dib, int viewWidth, int viewHeight, const char* what) {
    const int top = dib.height() - viewHeight; // of the view, in rows of the bitmap
    const int half = wallHalf(viewHeight);
    const int x = viewWidth / 2, y = top + viewHeight / 2;
    const Pixel white{255, 255, 255};
    EXPECT_EQ(dib.at(x, y), white) << what;
    EXPECT_EQ(dib.at(x + half - 4, y), white) << what;
    EXPECT_EQ(dib.at(x + half + 4, y), WallScene::kPaper) << what;
    EXPECT_EQ(dib.at(x, y + half + 4), WallScene::kPaper) << what;
}

TEST_F(WindowTest, CaptureHoldsTheFrameInEitherDepthAndIsClipped) {
    for (int bits : {24, 32}) {
        Dib same(300, 200, bits);
        draw(nullptr, same.handle());
        expectWall(same, 300, 200, "same size");

        // Larger: the frame fills the lower left corner, the rest keeps its bytes.
        Dib larger(320, 230, bits);
        draw(nullptr, larger.handle());
        expectWall(larger, 300, 200, "larger");
        EXPECT_EQ(larger.at(310, 100), (Pixel{0x5A, 0x5A, 0x5A}));
        EXPECT_EQ(larger.at(100, 10), (Pixel{0x5A, 0x5A, 0x5A}));

        // Smaller: the frame's lower left part, and nothing written past the bitmap.
        Dib smaller(151, 99, bits);
        draw(nullptr, smaller.handle());
        EXPECT_EQ(smaller.at(3, 95), WallScene::kPaper);
        EXPECT_EQ(smaller.at(148, 2), (Pixel{255, 255, 255}));
    }
}

TEST_F(WindowTest, BitmapsOfAnySizeAreDrawnAndLeaveTheWindowAsItIs) {
    for (const auto& [width, height] :
         {std::pair{300, 200}, {301, 200}, {1000, 700}, {400, 900}, {900, 64}, {1, 1}})
        for (const int bits : {24, 32}) {
            Dib dib(width, height, bits);
            EXPECT_EQ(library().drawInDibSection(context, scene.record(), 1, dib.handle()), 1);
            if (width > 1)
                expectWall(dib, width, height, "bitmap");
            RECT client{};
            GetClientRect(window.handle(), &client);
            EXPECT_EQ(client.right, 300);
            EXPECT_EQ(client.bottom, 200);
        }
}

TEST_F(WindowTest, BitmapsOfAMinimisedWindowAreMissedInTheLog) {
    if (platformLayerIsOurs())
        GTEST_SKIP() << "windows of X11 always have a size";
    constexpr int kMinimise = 6; // SW_MINIMIZE
    constexpr const char* kEntry = "No bitmap while the window has no size";
    Dib dib(100, 80);
    library().drawInDibSection(context, scene.record(), 1, dib.handle());
    EXPECT_EQ(readFile(folder.file("ogl.log")).find(kEntry), std::string::npos);
    ShowWindow(window.handle(), kMinimise);
    const Dib none(100, 80);
    library().drawInDibSection(context, scene.record(), 1, none.handle());
    EXPECT_EQ(none.touchedBytes(), 0u);
    EXPECT_NE(readFile(folder.file("ogl.log")).find(kEntry), std::string::npos);
    ShowWindow(window.handle(), SW_SHOWNORMAL);
    library().drawInDibSection(context, scene.record(), 1, dib.handle());
    expectWall(dib, 100, 80, "after the window came back");
}

TEST_F(WindowTest, SecondWindowSharesTheScene) {
    HostWindow second(180, 160);
    draw(second.handle());
    draw(second.handle(), nullptr, 0);
    // The main window still draws while the second one exists and after it went.
    Dib dib(300, 200);
    draw(second.handle(), dib.handle());
    expectWall(dib, 300, 200, "with a second window");
    draw();
    Dib after(300, 200);
    draw(nullptr, after.handle());
    expectWall(after, 300, 200, "after the second window");
    // And once more from the start.
    draw(second.handle());
    EXPECT_EQ(readFile(folder.file("ogl.log")).find("Secondary GL Context"), std::string::npos);
}

/// The pixel in the middle of the window that was drawn last, whose context is still current.
Pixel middleOfCurrentWindow(int width, int height) {
    uint8_t p[4] = {};
    glReadBuffer(GL_BACK);
    glReadPixels(width / 2, height / 2, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, p);
    return {p[0], p[1], p[2]};
}

TEST_F(WindowTest, SecondWindowsThatVanishLeaveTheRestDrawn) {
    for (const int mode : {kRenderModeDrawing, kRenderModePhoto}) {
        SCOPED_TRACE(mode);
        scene.setMode(mode);
        Dib expected(300, 200);
        draw(nullptr, expected.handle());
        auto second = std::make_unique<HostWindow>(180, 160);
        draw(second->handle());
        const HWND gone = second->handle();
        second.reset();
        for (int frame = 0; frame < 2; ++frame) {
            Dib dib(300, 200);
            draw(gone, dib.handle());
            EXPECT_EQ(dib.bytes(), expected.bytes()) << "the window that is gone, " << frame;
        }
        second = std::make_unique<HostWindow>(180, 160);
        draw(second->handle());
        const HostWindow third(120, 100);
        second.reset();
        draw(third.handle(), nullptr, 0);
        EXPECT_EQ(middleOfCurrentWindow(120, 100), expected.at(150, 100)) << "a new one at once";
        Dib dib(300, 200);
        draw(third.handle(), dib.handle());
        EXPECT_EQ(dib.bytes(), expected.bytes()) << "beside a new window";
        draw();
    }
    const std::string log = readFile(folder.file("ogl.log"));
    EXPECT_NE(log.find("Secondary window is gone"), std::string::npos) << log;
}

TEST_F(WindowTest, AViewWhoseWindowVanishedDrawsItsSecondOneOnly) {
    const TempFolder logs;
    const Pixel white{255, 255, 255};
    for (const bool opened : {false, true}) {
        SCOPED_TRACE(opened);
        auto main = std::make_unique<HostWindow>(200, 150);
        const HostWindow second(120, 100);
        RenderContext* const other =
            library().create(main->handle(), 0, logs.hostFile("space.ini").c_str());
        const auto drawOther = [&](HWND secondWindow, HBITMAP capture) {
            library().drawInWindow(other, scene.record(), 1, 1, secondWindow, capture);
        };
        const auto logHas = [&](const char* entry) {
            return readFile(logs.file("ogl.log")).find(entry) != std::string::npos;
        };
        if (opened)
            drawOther(second.handle(), nullptr);
        main.reset();
        for (int frame = 0; frame < 2; ++frame) {
            const Dib none(200, 150);
            drawOther(second.handle(), none.handle());
            EXPECT_EQ(none.touchedBytes(), 0u);
            EXPECT_EQ(middleOfCurrentWindow(120, 100), white);
            library().drawInDibSection(other, scene.record(), 1, none.handle());
            EXPECT_EQ(none.touchedBytes(), 0u);
            library().drawInFile(other, scene.record(), 1, 64, 48,
                                 logs.hostFile("none.bmp").c_str());
            EXPECT_EQ(readFile(logs.file("none.bmp")), "");
            // Nobody else's frames suffer.
            const Dib dib(300, 200);
            draw(nullptr, dib.handle());
            expectWall(dib, 300, 200, "another view");
        }
        EXPECT_TRUE(logHas("Primary window is gone"));
        EXPECT_FALSE(logHas("No window to draw into"));
        drawOther(nullptr, nullptr);
        EXPECT_TRUE(logHas("No window to draw into"));
        scene.handBack();
        library().release(other);
        const Dib dib(300, 200);
        draw(nullptr, dib.handle());
        expectWall(dib, 300, 200, "after the view went");
    }
}

/// Everything in the window that was drawn last.
std::vector<uint8_t> pixelsOfCurrentWindow(int width, int height) {
    std::vector<uint8_t> pixels(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    return pixels;
}

// With the last window go all programs, textures, buffers and letters; a new window has none.
TEST_F(WindowTest, TheFirstWindowAfterTheLastOneShowsTheWholeFrame) {
    library().release(std::exchange(context, nullptr)); // its window would keep them alive
    scene.setViewFlags(0);                              // overlays, too
    enum class Next { SecondWindow, ThirdWindow, AnotherView, AnotherViewThen };
    for (const int mode : {kRenderModeDrawing, kRenderModePhoto})
        for (const Next next :
             {Next::SecondWindow, Next::ThirdWindow, Next::AnotherView, Next::AnotherViewThen}) {
            if (mode == kRenderModePhoto && next != Next::SecondWindow)
                continue; // slow
            SCOPED_TRACE(testing::Message() << "mode " << mode << ", " << static_cast<int>(next));
            const auto create = [&](const HostWindow& of) {
                return library().create(of.handle(), 0, folder.hostFile("space.ini").c_str());
            };
            const auto drawView = [&](RenderContext* view, HWND second) {
                library().drawInWindow(view, scene.record(), 1, 1, second, nullptr);
            };
            const bool isOther = next == Next::AnotherView || next == Next::AnotherViewThen;
            scene.setMode(mode);
            scene.setTooltip(isOther ? "text" : ""); // second windows show none
            auto main = std::make_unique<HostWindow>(120, 100);
            auto second = std::make_unique<HostWindow>(80, 60);
            RenderContext* const earlier = create(*second); // has the letters' lowest numbers
            RenderContext* const view = create(*main);
            library().release(earlier);
            drawView(view, nullptr);
            const std::vector<uint8_t> expected = pixelsOfCurrentWindow(120, 100);
            if (next == Next::ThirdWindow)
                drawView(view, second->handle());
            main.reset();
            second.reset();
            const HostWindow fresh(120, 100);
            const HostWindow between(80, 60);
            RenderContext* other = nullptr;
            if (isOther) {
                drawView(view, next == Next::AnotherViewThen ? between.handle() : nullptr);
                other = create(fresh);
                drawView(other, nullptr);
            } else {
                drawView(view, fresh.handle());
            }
            EXPECT_TRUE(pixelsOfCurrentWindow(120, 100) == expected);
            scene.handBack();
            library().release(view);
            library().release(other);
        }
}

TEST_F(WindowTest, CaptureIsIgnoredWithoutTheMainWindow) {
    Dib dib(300, 200);
    draw(nullptr, dib.handle(), 0);
    EXPECT_EQ(dib.touchedBytes(), 0u);
}

TEST_F(WindowTest, PacedFramesAreFortyMillisecondsApart) {
    struct Row {
        const char* name;
        uint32_t viewFlags;
        bool paced;
    };
    for (const Row& row : {Row{"no overlays", kViewNoOverlays, true}, Row{"paced", 0x200, true},
                           Row{"free", 0, false}}) {
        scene.setViewFlags(row.viewFlags);
        draw();
        LARGE_INTEGER frequency{}, begin{}, end{};
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&begin);
        constexpr int kFrames = 6;
        for (int frame = 0; frame < kFrames; ++frame)
            draw();
        QueryPerformanceCounter(&end);
        // The first of them counts from before the clock was read.
        const double milliseconds = static_cast<double>(end.QuadPart - begin.QuadPart) * 1000.0 /
                                    static_cast<double>(frequency.QuadPart) / (kFrames - 1);
        if (row.paced) {
            EXPECT_GE(milliseconds, 39.0) << row.name;
        } else {
            EXPECT_LT(milliseconds, 39.0) << row.name;
        }
    }
}

TEST_F(WindowTest, EmptyWindowDrawsNothingAndSurvives) {
    HostWindow small(1, 1);
    RenderContext* other =
        library().create(small.handle(), 0, folder.hostFile("space.ini").c_str());
    ASSERT_NE(other, nullptr);
    ShowWindow(small.handle(), SW_HIDE);
    EXPECT_EQ(library().drawInWindow(other, scene.record(), 1, 1, nullptr, nullptr), 1);
    library().release(other);
}

} // namespace
} // namespace ogl::test
