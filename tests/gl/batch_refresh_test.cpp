// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/drawing/edge_renderer.h"
#include "fixed/drawing/fixed_renderer.h"
#include "gl/gl_fixture.h"
#include "platform/memory32.h"
#include "render/process_state.h"

#include <functional>

namespace ogl {
namespace {

using test::isNear;
using test::Picture;
using test::Pixel;
using test::plainMaterial;
using test::plate;

constexpr Pixel kWhite{255, 255, 255};

class BatchRefreshTest : public test::GLTest {
  protected:
    static constexpr int kObjects = 3;
    static constexpr int kMaterials = 2;

    void SetUp() override {
        GLTest::SetUp();
        for (int m = 0; m < kMaterials; ++m)
            scene_->addMaterial(plainMaterial());
        for (int k = 0; k < kObjects; ++k) {
            scene_->addObject();
            const float x = -9.0f + 6.0f * static_cast<float>(k);
            for (int16_t m = 0; m < kMaterials; ++m)
                scene_->addFace(plate(x, -4.0f + 4.0f * m, x + 5, 4.0f * m, 0, m));
        }
        scene_->commit();
        scene_->scene().drawingOptions = kOptionBackgroundColor;
    }
    FixedRenderer& selectDrawing() {
        auto& renderer = select<FixedRenderer>();
        renderer.choices.textureMode = TextureMode::SharedOnly;
        renderer.choices.drawFaces = true;
        renderer.choices.singleColorEdges = true;
        return renderer;
    }
    uint64_t uploadsOfAFrame() {
        const uint64_t before = glWork().uploads;
        drawFrame();
        return glWork().uploads - before;
    }
};

TEST_F(BatchRefreshTest, DrawsOneCallPerMaterialAndBuildsOnce) {
    selectDrawing();
    // Four arrays of all batches together, positions and colours of the edges.
    EXPECT_EQ(uploadsOfAFrame(), 4u + 2u);
    std::vector<MeshBatchList*> lists;
    for (int k = 0; k < kObjects; ++k) {
        lists.push_back(scene_->entry(k).meshBatches.get());
        EXPECT_EQ(scene_->entry(k).changeFlags, 0u);
        EXPECT_EQ(scene_->entry(k).edgeCount, 2u);
        EXPECT_TRUE(static_cast<bool>(scene_->entry(k).edgeRecord));
    }
    const uint64_t callsBefore = glWork().drawCalls;
    EXPECT_EQ(uploadsOfAFrame(), 0u);
    EXPECT_EQ(glWork().drawCalls - callsBefore, 1u * kMaterials + 1u);
    for (int k = 0; k < kObjects; ++k)
        EXPECT_EQ(scene_->entry(k).meshBatches.get(), lists[static_cast<size_t>(k)]);
    EXPECT_EQ(renderer_->objectCount, kObjects);
}

TEST_F(BatchRefreshTest, RebuildsWhenTheSceneSaysSo) {
    const struct {
        const char* name;
        std::function<void()> change;
        bool inWindow;
        bool inBitmap;
    } rows[] = {
        {"nothing", [] {}, false, false},
        {"mark 1", [&] { scene_->entry(1).changeFlags = 1; }, true, true},
        {"mark 2", [&] { scene_->entry(2).changeFlags = 2; }, true, false},
        {"mark 4", [&] { scene_->entry(0).changeFlags = 4; }, true, true},
        {"other marks", [&] { scene_->entry(0).changeFlags = 0xfffffff8u; }, false, false},
        {"the process", [] { processState().sceneChanged = 1; }, true, true},
        {"model stamp", [&] { scene_->geometry().lights.count = 7; }, true, false},
        {"two-sided", [&] { scene_->geometry().flags = kGeometryTwoSided; }, true, false},
    };
    for (const auto& row : rows) {
        selectDrawing();
        scene_->geometry().lights.count = 0;
        scene_->geometry().flags = 0;
        drawFrame();
        row.change();
        test::Bitmap bitmap(kViewSize, kViewSize, 24);
        const uint64_t before = glWork().uploads;
        renderer_->drawToBitmap(bitmap.handle());
        EXPECT_EQ(glWork().uploads != before, row.inBitmap) << row.name << ", bitmap";

        drawFrame();
        scene_->geometry().lights.count = 0;
        scene_->geometry().flags = 0;
        drawFrame();
        row.change();
        EXPECT_EQ(uploadsOfAFrame() != 0, row.inWindow) << row.name << ", window";
        EXPECT_EQ(uploadsOfAFrame(), 0u) << row.name << ", next frame";
        EXPECT_EQ(processState().sceneChanged, 0) << row.name;
    }
}

/// A scene of one plate, marked as changed or not.
std::unique_ptr<test::SceneFixture> plateScene(uint32_t marks) {
    auto scene = std::make_unique<test::SceneFixture>();
    scene->addMaterial(plainMaterial());
    scene->addObject();
    scene->addFace(plate(-9, 6, 9, 9));
    scene->commit();
    scene->entry(0).changeFlags = marks;
    scene->look({0, 0, 10}, {0, 0, 0}, 3.14159265358979 / 2);
    scene->scene().drawingOptions = kOptionBackgroundColor;
    return scene;
}

TEST_F(BatchRefreshTest, ScenesInTurnAreBuiltOnce) {
    const auto other = plateScene(0);
    for (const bool edgesOnly : {false, true}) {
        SCOPED_TRACE(edgesOnly);
        if (edgesOnly)
            select<EdgeRenderer>();
        else
            selectDrawing();
        processState().sceneChanged = 1;
        std::vector<Picture> pictures; // of the first frames
        const auto uploads = [&](SCENE& scene) {
            renderer_->scene = &scene;
            const uint64_t before = glWork().uploads;
            const Picture picture = drawFrame();
            if (pictures.size() < 2)
                pictures.push_back(picture);
            const Picture& first = pictures[&scene == &scene_->scene() ? 0 : 1];
            EXPECT_EQ(test::differences(picture, first, kViewSize, kViewSize), 0);
            return glWork().uploads - before;
        };
        SCENE& one = scene_->scene();
        SCENE& two = other->scene();
        EXPECT_NE(uploads(one), 0u);
        EXPECT_NE(uploads(two), 0u);
        EXPECT_NE(test::differences(pictures[0], pictures[1], kViewSize, kViewSize), 0);
        EXPECT_EQ(uploads(one) + uploads(two) + uploads(one), 0u);
        EXPECT_EQ(renderer_->objectCount, edgesOnly ? 1 : kObjects);
        other->entry(0).changeFlags = 1;
        EXPECT_EQ(uploads(one), 0u) << "the other one is marked";
        EXPECT_NE(uploads(two), 0u) << "marked";
        EXPECT_EQ(uploads(one) + uploads(two), 0u) << "the mark is taken";
        processState().sceneChanged = 1;
        EXPECT_NE(uploads(one), 0u) << "the process";
        EXPECT_NE(uploads(two), 0u) << "the process's mark speaks of all";
        EXPECT_EQ(uploads(one) + uploads(two), 0u);
    }
}

/// A record is known by its address, where the host may put another one.
TEST_F(BatchRefreshTest, RecordsAreNotTakenForOthers) {
    selectDrawing();
    const auto home = plateScene(1);
    const auto place = [&](const SCENE& scene) {
        home->scene() = scene;
        renderer_->scene = &home->scene();
    };
    const auto showsPlate = [&](const Picture& picture) {
        return isNear(pixelAt(picture, 0, 7), kWhite, 1) &&
               isNear(pixelAt(picture, -7, -2), {0, 0, 0}, 1);
    };
    const auto showsOwn = [&](const Picture& picture) {
        return isNear(pixelAt(picture, 0, 7), {0, 0, 0}, 1) &&
               isNear(pixelAt(picture, -7, -2), kWhite, 1);
    };
    EXPECT_TRUE(showsOwn(drawFrame()));
    const auto gone = plateScene(1);
    place(gone->scene());
    EXPECT_TRUE(showsPlate(drawFrame()));
    renderer_->scene = &scene_->scene();
    EXPECT_TRUE(showsOwn(drawFrame()));
    // Another scene where the first one was, without a mark; and a copy of a record, with which it
    // shares the cache.
    const auto unmarked = plateScene(0);
    place(unmarked->scene());
    EXPECT_TRUE(showsPlate(drawFrame()));
    EXPECT_TRUE(static_cast<bool>(unmarked->entry(0).meshBatches));
    renderer_->scene = &scene_->scene();
    EXPECT_TRUE(showsOwn(drawFrame()));
    place(scene_->scene());
    EXPECT_TRUE(showsOwn(drawFrame()));
    renderer_->scene = &scene_->scene();
    EXPECT_TRUE(showsOwn(drawFrame()));
    EXPECT_TRUE(showsOwn(drawFrame()));
}

TEST_F(BatchRefreshTest, ForgetsTheSceneDrawnLongestAgo) {
    selectDrawing();
    drawFrame();
    std::vector<std::unique_ptr<test::SceneFixture>> scenes;
    const int one = liveObjects(GLKind::Buffer);
    for (size_t k = 0; k < 2 * kMostKeptScenes; ++k) {
        scenes.push_back(plateScene(1));
        renderer_->scene = &scenes.back()->scene();
        drawFrame();
        releaseBatchesOf(scenes.back()->entry(0));
    }
    const int buffersOfEdges = 2;
    EXPECT_LE(liveObjects(GLKind::Buffer),
              one + static_cast<int>(kMostKeptScenes) * buffersOfEdges);
}

TEST_F(BatchRefreshTest, SurvivesBatchesReleasedWithoutAContext) {
    selectDrawing();
    drawFrame();
    const int before = liveObjects(GLKind::Buffer);
    wglMakeCurrent(nullptr, nullptr);
    for (int k = 0; k < kObjects; ++k)
        releaseBatchesOf(scene_->entry(k));
    processState().sceneChanged = 1;
    EXPECT_LT(liveObjects(GLKind::Buffer), before);
    makeCurrent();
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), -7, -2), kWhite, 1));
    EXPECT_EQ(liveObjects(GLKind::Buffer), before);
}

TEST_F(BatchRefreshTest, IgnoresAddressesThatItDidNotHandOut) {
    CACHEENTRY& entry = scene_->entry(0);
    entry.meshBatches = reinterpret_cast<MeshBatchList*>(uintptr_t{0x10});
    entry.otherBatches = reinterpret_cast<BatchSet*>(uintptr_t{0xfffffff0});
    entry.edgeRecord = reinterpret_cast<BatchSet*>(uintptr_t{0x7fff0000});
    selectDrawing();
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), -7, -2), kWhite, 1));
    EXPECT_FALSE(static_cast<bool>(entry.otherBatches));
}

TEST_F(BatchRefreshTest, DrawsThePreviewRecordInsteadOfTheScene) {
    scene_->view().previewMode = 1;
    scene_->view().preview.changeFlags = 1;
    scene_->object(1).flags = 0x2000;
    selectDrawing();
    const uint64_t callsBefore = glWork().drawCalls;
    const Picture picture = drawFrame();
    EXPECT_EQ(glWork().drawCalls - callsBefore, 1u * kMaterials); // all objects together, no edges
    EXPECT_TRUE(isNear(pixelAt(picture, -7, -2), kWhite, 1));
    EXPECT_TRUE(isNear(pixelAt(picture, -1, -2), {0, 0, 0}, 1));
    EXPECT_EQ(scene_->view().preview.changeFlags, 2u);
    EXPECT_EQ(scene_->view().preview.edgeCount, 0u);
    EXPECT_FALSE(static_cast<bool>(scene_->entry(0).meshBatches));
    EXPECT_EQ(uploadsOfAFrame(), 0u);

    scene_->view().previewMode = 0;
    EXPECT_NE(uploadsOfAFrame(), 0u);
    EXPECT_TRUE(static_cast<bool>(scene_->entry(0).meshBatches));
}

TEST_F(BatchRefreshTest, DrawsLessOfBadScenes) {
    const struct {
        const char* name;
        std::function<void(SCENE&, VIEW&)> spoil;
        bool drawn; ///< object 0 still shows
    } rows[] = {
        {"null view", [](SCENE& s, VIEW&) { s.geometry.view = nullptr; }, false},
        {"null objects", [](SCENE& s, VIEW&) { s.geometry.objects = nullptr; }, false},
        {"empty cache", [](SCENE&, VIEW& v) { v.objectCache.count = 0; }, false},
        {"negative cache", [](SCENE&, VIEW& v) { v.objectCache.count = -3; }, false},
        {"null cache", [](SCENE&, VIEW& v) { v.objectCache.data = nullptr; }, false},
        {"one cache entry", [](SCENE&, VIEW& v) { v.objectCache.count = 1; }, true},
        {"cache entries of 8 bytes", [](SCENE&, VIEW& v) { v.objectCache.elementSize = 8; }, false},
        {"fewer objects than entries", [](SCENE& s, VIEW&) { s.geometry.objects.get()->count = 1; },
         true},
        {"no materials", [](SCENE& s, VIEW&) { s.geometry.materials.data = nullptr; }, false},
        {"no unit", [](SCENE& s, VIEW&) { s.geometry.unitScale = 0.0; }, true},
        {"negative edges",
         [](SCENE& s, VIEW&) {
             s.geometry.edgeOpacity = -20;
             s.lineWeight = -1000;
         },
         true},
        {"no field of view", [](SCENE& s, VIEW&) { s.geometry.fieldOfView = 0.0; }, false},
    };
    for (const auto& row : rows)
        for (const bool edgesOnly : {false, true}) {
            test::SceneFixture fresh;
            fresh.addMaterial(plainMaterial());
            for (int k = 0; k < 2; ++k) {
                fresh.addObject();
                fresh.addFace(plate(-8, -4, -1, 4));
            }
            fresh.commit();
            fresh.look({0, 0, 10}, {0, 0, 0}, 3.14159265358979 / 2);
            fresh.scene().drawingOptions = kOptionBackgroundColor;
            const LIST cache = fresh.view().objectCache;
            row.spoil(fresh.scene(), fresh.view());
            if (edgesOnly)
                select<EdgeRenderer>();
            else
                selectDrawing();
            renderer_->scene = &fresh.scene();
            renderer_->setSize(kViewSize, kViewSize);
            renderer_->setupCamera(fresh.scene());
            glClearColor(0, 0, 0, 1);
            glClear(GL_COLOR_BUFFER_BIT);
            EXPECT_EQ(renderer_->drawToWindow(context_->primary), 1) << row.name;
            const Picture picture = Picture::read(kViewSize, kViewSize);
            if (!edgesOnly) {
                EXPECT_EQ(isNear(pixelAt(picture, -4, 0), kWhite, 1), row.drawn) << row.name;
            }
            renderer_.reset();
            fresh.scene().geometry.view = &fresh.view();
            fresh.view().objectCache = cache;
        }
}

} // namespace
} // namespace ogl
