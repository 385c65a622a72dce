// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/drawing/edge_renderer.h"
#include "fixed/drawing/fixed_renderer.h"
#include "gl/photo_fixture.h"
#include "gpu/gl_objects.h"
#include "support/system.h"

#include <algorithm>
#include <cstdint>

namespace ogl {
namespace {

using Counts = std::array<int, kGLKindCount>;

Counts counts() {
    Counts all{};
    for (int kind = 0; kind < kGLKindCount; ++kind)
        all[static_cast<size_t>(kind)] = liveObjects(static_cast<GLKind>(kind));
    return all;
}

class RendererLoopTest : public test::PhotoTest {
  protected:
    static constexpr int kSide = 24;

    void SetUp() override {
        PhotoTest::SetUp();
        MATERIAL glass = test::plainMaterial();
        glass.opacity = 0.5f;
        const auto wall = static_cast<int16_t>(addColored({180, 90, 60}));
        const auto pane = static_cast<int16_t>(scene_->addMaterial(glass));
        scene_->addObject();
        scene_->addFace(test::plate(-5, -5, 5, 5, 0, wall));
        scene_->addFace(test::plate(-3, -3, 3, 3, 2, pane));
        addLamps({test::spotLamp({0, 0, 4}, {0, 0, 0}, {1, 1, 1}, 40)});
        setSun(30, -50);
        SCENE& scene = scene_->scene();
        scene.lightFlags = scene.lightFlags | kLightSketchEdges;
        scene.aoStrength = 50;
        scene_->commit();
    }
    /// Makes a renderer, draws a small frame and takes it down.
    template <class T> void round(int side) {
        T& renderer = select<T>();
        renderer.choices.drawFlags = kDrawFullQuality | kDrawShadows;
        renderer.choices.textureMode = TextureMode::All;
        renderer.choices.drawFaces = true;
        renderer.setSize(side, side);
        renderer.setupCamera(scene_->scene());
        renderer.drawToWindow(context_->primary);
        renderer_.reset();
        glFinish(); // or frames wait in a queue, with what they were drawn into
    }
    /// Rounds of each mode; the least memory that was resident after one. Drivers give a shadow
    /// map's 16 MiB back late, now and then, so that single sizes swing.
    size_t leastResident(int rounds) {
        size_t least = SIZE_MAX;
        for (int i = 0; i < rounds; ++i) {
            round<FixedRenderer>(kSide);
            round<EdgeRenderer>(kSide);
            round<ShadowRenderer>(kSide);
            round<DeferredRenderer>(kSide + i % 3);
            least = std::min(least, test::residentBytes());
        }
        return least;
    }
};

TEST_F(RendererLoopTest, NothingIsLeftBehind) {
    constexpr int kBlock = 17; // of four modes
    leastResident(2 * kBlock); // until the driver's own stores are filled
    const Counts before = counts();
    const auto first = static_cast<double>(leastResident(kBlock));
    const auto second = static_cast<double>(leastResident(kBlock));
    const auto third = static_cast<double>(leastResident(kBlock));
    EXPECT_EQ(counts(), before);
    // What is left behind adds up in every block, a driver's swing only in one. A shadow map left
    // behind in each round would be half a gigabyte a block.
    EXPECT_LT(std::min(second - first, third - second), 20.0 * 1024 * 1024);
}

} // namespace
} // namespace ogl
