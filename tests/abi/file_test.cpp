// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Pictures that the library writes into files, and render mode 7 as a host asks for it.
#include "abi/library.h"
#include "abi/wall_scene.h"
#include "support/dib.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace ogl::test {
namespace {

constexpr uint32_t kPaperRecord = 0x785028; // WallScene::kPaper, red in the lowest byte
constexpr int kHeaderBytes = 54;

class FileTest : public testing::Test {
  protected:
    void SetUp() override {
        context_ = library().create(nullptr, 0, folder_.hostFile("space.ini").c_str());
        ASSERT_NE(context_, nullptr);
        scene_.record()->geometry.backgroundColor = kPaperRecord;
    }
    void TearDown() override {
        scene_.handBack();
        library().release(context_);
    }
    /// The bytes of the file that was drawn; empty when there is none.
    std::string draw(int width, int height, const std::string& name = "wall.bmp") {
        EXPECT_EQ(library().drawInFile(context_, scene_.record(), 1, width, height,
                                       folder_.hostFile(name).c_str()),
                  1);
        return readFile(folder_.file(name));
    }
    static Pixel pixel(const std::string& file, int width, int x, int row) {
        const int rowBytes = (width * 3 + 3) / 4 * 4;
        const auto at = static_cast<size_t>(kHeaderBytes + row * rowBytes + x * 3);
        const auto byte = [&](size_t i) { return static_cast<uint8_t>(file[at + i]); };
        return {byte(2), byte(1), byte(0)};
    }

    TempFolder folder_;
    RenderContext* context_ = nullptr;
    WallScene scene_;
};

TEST_F(FileTest, FilesOfAnySizeAreDefinedToTheirLastPixel) {
    scene_.raiseCamera(); // the wall moves to the lower half of the picture
    for (const auto& [width, height] : {std::pair{640, 480}, {1501, 1100}, {33, 77}, {640, 480}}) {
        const std::string file = draw(width, height);
        const int rowBytes = (width * 3 + 3) / 4 * 4;
        ASSERT_EQ(file.size(), static_cast<size_t>(kHeaderBytes + rowBytes * height)) << width;
        // The frame's top row comes first.
        for (const int x : {1, width / 2, width - 2})
            EXPECT_EQ(pixel(file, width, x, 1), WallScene::kPaper) << width << " " << x;
        EXPECT_EQ(pixel(file, width, width - 1, height - 1), WallScene::kPaper) << width;
        EXPECT_NE(pixel(file, width, width / 2, height * 3 / 4), WallScene::kPaper) << width;
    }
}

TEST_F(FileTest, DrawWhateverContextIsCurrent) {
    const std::string first = draw(320, 240);
    Dib dib(100, 80);
    library().drawInDibSection(context_, scene_.record(), 1, dib.handle()); // leaves none
    EXPECT_EQ(draw(320, 240), first);
    scene_.setMode(kRenderModeShadow);
    library().drawInDibSection(context_, scene_.record(), 1, dib.handle());
    EXPECT_EQ(draw(320, 240), first);
}

TEST_F(FileTest, WhatCannotBeWrittenLeavesNoFile) {
    EXPECT_TRUE(draw(320, 240, "missing\\wall.bmp").empty());
    EXPECT_FALSE(std::filesystem::exists(folder_.file("missing")));
    for (const auto& [width, height] :
         {std::pair{0, 240}, {320, -1}, {1 << 20, 8}, {16384, 8000}}) {
        EXPECT_TRUE(draw(width, height, "none.bmp").empty());
        EXPECT_FALSE(std::filesystem::exists(folder_.file("none.bmp"))) << width;
    }
    EXPECT_EQ(library().drawInFile(context_, nullptr, 1, 8, 8, "x.bmp"), 1);
    EXPECT_EQ(library().drawInFile(nullptr, scene_.record(), 1, 8, 8, "x.bmp"), 1);
    EXPECT_EQ(library().drawInFile(context_, scene_.record(), 1, 8, 8, nullptr), 1);
}

TEST_F(FileTest, ModeSevenFollowsTheDrawingFlags) {
    scene_.setMode(kRenderModeShadow);
    MATERIAL& plaster = *static_cast<MATERIAL*>(scene_.record()->geometry.materials.data.get());
    plaster.color = {60, 120, 200};
    plaster.brightness = 0.4f;
    const auto middle = [&](unsigned flags) {
        Dib dib(101, 101);
        EXPECT_EQ(library().drawInDibSection(context_, scene_.record(), flags, dib.handle()), 1);
        return dib.at(50, 50);
    };
    const auto isGrey = [](Pixel p) { return p.red == p.green && p.green == p.blue; };
    // Without a light of its own colour the wall's colour decides.
    LIGHT& sun = *static_cast<LIGHT*>(scene_.record()->geometry.lights.data.get());
    sun.color = {0.2f, 0.2f, 0.2f};
    const Pixel white = middle(0);
    const Pixel colored = middle(kDrawFullQuality);
    const Pixel grey = middle(kDrawFullQuality | kDrawGrey);
    EXPECT_TRUE(isGrey(white));
    EXPECT_GT(colored.red, colored.green);
    EXPECT_GT(colored.green, colored.blue);
    EXPECT_TRUE(isGrey(grey));
    EXPECT_LT(grey.red, white.red);
    EXPECT_EQ(middle(kDrawGrey), white); // without full quality nothing else counts
    EXPECT_EQ(middle(kDrawFullQuality | kDrawShadows), colored);
}

} // namespace
} // namespace ogl::test
