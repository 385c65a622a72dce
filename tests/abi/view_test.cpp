// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The library as a host meets it: views, frames and releases through the exported functions.
#include "abi/library.h"
#include "abi/wall_scene.h"
#include "support/captured_output.h"
#include "support/dib.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ogl::test {
namespace {

/// A view on the library's own window. Its end hands back what drawing parked in the scene.
class View {
  public:
    explicit View(WallScene& scene)
        : scene_(scene),
          context_(library().create(nullptr, 0, folder_.hostFile("space.ini").c_str())) {}
    ~View() {
        scene_.handBack();
        release();
    }
    void release() {
        library().release(context_);
        context_ = nullptr;
    }
    RenderContext* get() const { return context_; }
    std::string log() const { return readFile(folder_.file("ogl.log")); }

  private:
    WallScene& scene_;
    TempFolder folder_;
    RenderContext* context_;
};

class ViewTest : public testing::Test {
  protected:
    void draw(const View& view, const Dib& dib, uint32_t flags = kDrawFullQuality) {
        draw(view, dib, flags, scene);
    }
    static void draw(const View& view, const Dib& dib, uint32_t flags, const WallScene& shown) {
        EXPECT_EQ(library().drawInDibSection(view.get(), shown.record(), flags, dib.handle()), 1);
    }
    WallScene scene;
};

/// The wall is white, the paper around it has the drawing's background colour.
void expectWall(const Dib& dib, const char* what) {
    const int w = dib.width(), h = dib.height();
    const Pixel white{255, 255, 255};
    EXPECT_EQ(dib.at(w / 2, h / 2), white) << what;
    for (const auto& [x, y] : {std::pair{1, 1}, {w - 2, 1}, {1, h - 2}, {w - 2, h - 2}})
        EXPECT_EQ(dib.at(x, y), WallScene::kPaper) << what << " " << x << "," << y;
}

TEST_F(ViewTest, DrawsEverySizeGrowingAndShrinking) {
    const View view(scene);
    ASSERT_NE(view.get(), nullptr) << view.log();
    for (const auto& [width, height] :
         {std::pair{320, 240}, {1700, 1300}, {33001, 200}, {33, 777}, {16, 16}, {320, 240}})
        for (int bits : {24, 32}) {
            Dib dib(width, height, bits);
            draw(view, dib);
            expectWall(dib, std::to_string(width).c_str());
        }
}

TEST_F(ViewTest, ModesWithoutRendererShowTheCallsSceneAsItsFlagsSay) {
    const View view(scene);
    ASSERT_NE(view.get(), nullptr);
    scene.record()->geometry.edgeOpacity = 0; // faint edges remain where full quality is not asked
    std::vector<std::vector<uint8_t>> pictures;
    for (const uint32_t flags : {0u, kDrawFullQuality}) {
        scene.setMode(kRenderModeDrawing);
        const Dib own(64, 64);
        draw(view, own, flags);
        {
            WallScene gone;
            gone.raiseCamera();
            draw(view, Dib(64, 64), flags ^ kDrawFullQuality, gone);
            gone.handBack();
        }
        scene.setMode(9);
        const Dib kept(64, 64);
        draw(view, kept, flags);
        EXPECT_TRUE(kept.bytes() == own.bytes()) << flags;
        pictures.push_back(kept.bytes());
    }
    EXPECT_FALSE(pictures[0] == pictures[1]);
}

TEST_F(ViewTest, ReleasedPointersAreNullAndRebuilt) {
    const View view(scene);
    ASSERT_NE(view.get(), nullptr);
    Dib dib(64, 64);
    draw(view, dib);
    CACHEENTRY* entry = scene.cacheEntry();
    ASSERT_TRUE(entry->meshBatches);
    ASSERT_TRUE(entry->edgeRecord);
    void** meshSlot = reinterpret_cast<void**>(reinterpret_cast<uint8_t*>(entry) + 4);
    void** edgeSlot = reinterpret_cast<void**>(reinterpret_cast<uint8_t*>(entry) + 16);
    library().releasePointer(view.get(), meshSlot, kReleaseMeshBatches);
    library().releasePointer(nullptr, edgeSlot, kReleaseBatchSet);
    EXPECT_FALSE(entry->meshBatches);
    EXPECT_FALSE(entry->edgeRecord);
    library().releasePointer(nullptr, meshSlot, kReleaseMeshBatches); // null already
    draw(view, dib);
    EXPECT_TRUE(entry->meshBatches);
    EXPECT_TRUE(entry->edgeRecord);

    // What the library did not hand out is not freed, whatever the kind says.
    uint32_t foreign = scene.foreignAddress();
    for (int kind : {kReleaseTextureImage, kReleaseMeshBatches, kReleaseBatchSet, 5, -1}) {
        uint32_t slot = foreign;
        library().releasePointer(nullptr, reinterpret_cast<void**>(&slot), kind);
        EXPECT_EQ(slot, 0u) << kind;
    }
}

TEST_F(ViewTest, ViewsComeAndGoAndShareTheOwnWindow) {
    View first(scene);
    ASSERT_NE(first.get(), nullptr);
    View second(scene);
    ASSERT_NE(second.get(), nullptr);
    Dib dib(100, 80);
    draw(first, dib);
    expectWall(dib, "first");
    Dib other(120, 90);
    draw(second, other);
    expectWall(other, "second");
    first.release();
    Dib again(90, 70);
    draw(second, again);
    expectWall(again, "after the first view went");
    // A host that hands nothing back is told so, and later views do not use what died with a view.
    CapturedOutput errors(2);
    second.release();
    for (int round = 0; round < 5; ++round) {
        View view(scene);
        ASSERT_NE(view.get(), nullptr) << round;
        Dib fresh(64 + round, 64);
        draw(view, fresh);
        expectWall(fresh, "new view");
        view.release();
    }
    EXPECT_NE(errors.stop().find("left over: 4 buffers"), std::string::npos);
}

TEST_F(ViewTest, WhatIsHandedBackLeavesNothingBehind) {
    for (int mode : {kRenderModeDrawing, kRenderModeEdges}) {
        View view(scene);
        ASSERT_NE(view.get(), nullptr);
        scene.setMode(mode);
        Dib dib(64, 64);
        draw(view, dib);
        scene.handBack();
        CapturedOutput errors(2);
        view.release();
        EXPECT_EQ(errors.stop(), "") << mode;
    }
}

TEST_F(ViewTest, FilesOfSizesThatCannotBeDrawnAreNotMade) {
    const View view(scene);
    const TempFolder folder;
    const auto drawn = [&](int width, int height) {
        const std::string path = folder.hostFile("wall.bmp");
        EXPECT_EQ(library().drawInFile(view.get(), scene.record(), 1, width, height, path.c_str()),
                  1);
        return readFile(folder.file("wall.bmp")).size();
    };
    for (const auto& [width, height] : {std::pair{0, 240}, {320, -1}, {1 << 20, 8}, {16384, 8000}})
        EXPECT_EQ(drawn(width, height), 0u) << width;
    EXPECT_EQ(drawn(33, 20), 54u + 100 * 20);
}

TEST_F(ViewTest, NullArgumentsDrawNothing) {
    const View view(scene);
    ASSERT_NE(view.get(), nullptr);
    Dib dib(32, 32);
    EXPECT_EQ(library().drawInDibSection(nullptr, scene.record(), 1, dib.handle()), 1);
    EXPECT_EQ(library().drawInDibSection(view.get(), nullptr, 1, dib.handle()), 1);
    EXPECT_EQ(library().drawInDibSection(view.get(), scene.record(), 1, nullptr), 1);
    EXPECT_EQ(library().drawInWindow(nullptr, nullptr, 1, 1, nullptr, nullptr), 1);
    EXPECT_EQ(library().drawInFile(view.get(), nullptr, 1, 8, 8, "x.bmp"), 1);
    EXPECT_EQ(library().drawInFile(nullptr, scene.record(), 1, 8, 8, "x.bmp"), 1);
    EXPECT_EQ(library().drawInFile(view.get(), scene.record(), 1, 8, 8, nullptr), 1);
    EXPECT_EQ(dib.touchedBytes(), 0u);
    library().releasePointer(nullptr, nullptr, kReleaseMeshBatches);
    library().release(nullptr);
    uint8_t state[272] = {};
    EXPECT_EQ(library().inputState(nullptr, state), 0);
    EXPECT_EQ(library().inputState(view.get(), state), 0) << "a view without devices";
    EXPECT_EQ(library().createTextureFromFile(), 0);
}

} // namespace
} // namespace ogl::test
