// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/heads_up_display.h"

#include "fixed/drawing/edge_renderer.h"
#include "gl/overlay_fixture.h"

namespace ogl::test {
namespace {

constexpr Pixel kBlack{0, 0, 0};
constexpr Pixel kNavy{0, 0, 127};

class HeadsUpDisplay : public OverlayTest {
  protected:
    struct Line {
        const char* text;
        int y;
        Pixel color;
    };
    /// The frame has these lines, their glyphs pixel by pixel, and nothing else.
    void expectLines(const char* what, const std::vector<Line>& lines) {
        const Picture drawn = frame();
        const Picture expected = expectedFrame([&] {
            for (const Line& line : lines)
                drawGlyphs(line.text, 10, line.y, line.color);
        });
        EXPECT_EQ(differingPixels(drawn, expected), 0) << what;
        const int ink =
            drawn.count(0, 0, kViewSize, kViewSize, [](Pixel p) { return p.red < 100; });
        EXPECT_EQ(ink > 0, !lines.empty()) << what;
    }
};

TEST_F(HeadsUpDisplay, WritesTheLinesThatTheRecordAsksFor) {
    scene_->addMaterial(plainMaterial());
    scene_->addMaterial(plainMaterial());
    for (const float x : {-9.0f, -7.0f}) { // two objects with surfaces, one without
        scene_->addObject();
        scene_->addFace(plate(x, -9, x + 1, -8));
    }
    // An object whose surfaces show nowhere, since nothing uses their material, counts too.
    scene_->addObject();
    scene_->addFace(plate(1, -9, 2, -8, 0, static_cast<int16_t>(scene_->addMaterial({}))));
    scene_->geometry().edgeOpacity = 0;
    scene_->commit();
    selectDrawing();
    renderer_->frequency = 1000000;
    renderer_->previousCounter = 5000000;
    renderer_->counter = 5020000; // 20 ms
    view().messageText = hostText("Pick a wall\nor a roof");
    struct Row {
        const char* what;
        uint32_t viewFlags;
        uint8_t hudFlags;
        std::vector<Line> lines;
    };
    const std::vector<Line> statistics = {{"FPS = 50.0", 20, kBlack},
                                          {"200 x 200", 35, kBlack},
                                          {"Nb meshes = 3", 50, kBlack},
                                          {"Nb materials = 3", 65, kBlack}};
    const std::vector<Line> message = {{"Pick a wall", 20, kNavy},
                                       {"or a roof", 35, kNavy},
                                       {"FPS = 50.0", 65, kBlack},
                                       {"200 x 200", 80, kBlack}};
    std::vector<Line> both = message;
    both.push_back({"Nb meshes = 3", 95, kBlack});
    both.push_back({"Nb materials = 3", 110, kBlack});
    for (const Row& row :
         {Row{"nothing", 0, 0x7f, {}}, Row{"half of the message's flags", 0x10, 0, {}},
          Row{"the other half", 0x20, 0, {}}, Row{"statistics", 0, 0x80, statistics},
          Row{"message", 0x30, 0, message}, Row{"both", 0x30, 0x80, both},
          Row{"switched off", 0x830, 0x80, {}}}) {
        view().flags = row.viewFlags;
        scene().hudFlags = row.hudFlags;
        expectLines(row.what, row.lines);
    }
}

TEST_F(HeadsUpDisplay, TellsThePreviewApart) {
    scene().hudFlags = 0x80;
    view().previewMode = 1;
    view().preview.changeFlags = 1;
    selectDrawing();
    renderer_->frequency = 1000;
    renderer_->counter = renderer_->previousCounter = 7;
    expectLines("preview", {{"FPS = 100000.0", 20, kBlack},
                            {"200 x 200", 35, kBlack},
                            {"Nb meshes = 1 (Global)", 50, kBlack},
                            {"Nb materials = 0", 65, kBlack}});
}

TEST_F(HeadsUpDisplay, StaysOffTheSecondWindow) {
    scene().hudFlags = 0x80;
    selectDrawing();
    GLSurface second = context_->primary;
    second.isSecondary = 1;
    frame();
    renderer_->drawToWindow(second);
    const Picture drawn = Picture::read(kViewSize, kViewSize);
    EXPECT_EQ(differingPixels(drawn, expectedFrame([] {})), 0);
}

TEST_F(HeadsUpDisplay, RoundsTheFrameRateToOneDecimal) {
    struct Row {
        const char* what;
        int64_t previous;
        int64_t now;
        int64_t frequency;
        const char* text;
    };
    for (const Row& row :
         {Row{"20 ms", 0, 20, 1000, "FPS = 50.0"},
          Row{"16.667 ms", 0, 16667, 1000000, "FPS = 60.0"},
          Row{"40 ms", 100, 140, 1000, "FPS = 25.0"}, Row{"no time", 9, 9, 1000, "FPS = 100000.0"},
          Row{"backwards", 9, 0, 1000, "FPS = 100000.0"},
          Row{"an hour", 0, 3600000, 1000, "FPS = 0.0"}})
        EXPECT_EQ(frameRateText(row.previous, row.now, row.frequency), row.text) << row.what;
}

TEST_F(HeadsUpDisplay, CutsMessagesAtTheView) {
    view().flags = 0x30;
    selectDrawing();
    view().messageText = nullptr;
    EXPECT_EQ(hudLines(*renderer_, view()).front().y, 35);
    view().messageText = hostText(std::string(100000, '\n'));
    EXPECT_LT(hudLines(*renderer_, view()).size(), 20u);
    view().messageText = hostText(std::string(100000, 'x') + "\ny\n\xff\x01\x1fz");
    const std::vector<HudLine> lines = hudLines(*renderer_, view());
    EXPECT_LT(lines[0].text.size(), 5000u);
    frame(); // and draws bytes that the font has no glyphs for
}

} // namespace
} // namespace ogl::test
