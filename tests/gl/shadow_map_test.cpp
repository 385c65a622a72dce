// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Where shadows fall, and when they are drawn.
#include "fixed/textures/texture_image.h"
#include "gl/shadow_fixture.h"
#include "gpu/gl_objects.h"

#include <cmath>

namespace ogl::test {
namespace {

constexpr Vec3 kWhite{1, 1, 1};
constexpr Vec3 kUp{0, 0, 1};

class ShadowMapTest : public ShadowTest {
  protected:
    /// A floor of the given half side, which the sun sees from above.
    void addFloor(float side) {
        scene_->addObject();
        scene_->addFace(plate(-side, -side, side, side));
    }
    void addBoxObject(float height) {
        scene_->addObject();
        addBox(*scene_, {-1, -1, 0}, {1, 1, height});
    }
    void expectLit(const Picture& picture, float x, float y, double lit, const char* name) {
        EXPECT_TRUE(isNear(pixelAt(picture, x, y), shaded(kWhite, kUp, lit), 2))
            << name << ": " << pixelAt(picture, x, y).red << " instead of "
            << shaded(kWhite, kUp, lit).red;
    }
    /// The draw calls of one frame.
    uint64_t drawCalls() {
        const uint64_t before = glWork().drawCalls;
        drawFrame();
        return glWork().drawCalls - before;
    }
};

TEST_F(ShadowMapTest, BoxesThrowShadowsWhereGeometrySays) {
    // A box of height 2 under a sun of 45 degrees: its shadow is 2 long.
    const struct {
        const char* name;
        Vec3 sun;
        float dx, dy; ///< direction of the shadow
    } rows[] = {{"to the east", {1, 0, -1}, 1, 0},
                {"to the west", {-1, 0, -1}, -1, 0},
                {"to the north", {0, 1, -1}, 0, 1},
                {"to the south", {0, -1, -1}, 0, -1}};
    addFloor(9);
    addBoxObject(2);
    for (const auto& row : rows) {
        setSun(row.sun);
        selectShadow(kDrawFullQuality | kDrawShadows);
        const Picture picture = drawFrame();
        const auto along = [&](float distance, float aside) {
            return std::pair{distance * row.dx + aside * row.dy,
                             distance * row.dy + aside * row.dx};
        };
        const struct {
            float distance, aside;
            double lit;
        } points[] = {{1.7f, 0, 0}, {2.8f, 0.8f, 0}, {2.8f, -0.8f, 0}, {3.3f, 0, 1},
                      {2, 1.3f, 1}, {2, -1.3f, 1},   {-2, 0, 1},       {0, 0, 1}};
        for (const auto& point : points) {
            const auto [x, y] = along(point.distance, point.aside);
            expectLit(picture, x, y, point.lit, row.name);
        }
        ShadowRenderer& unshadowed = selectShadow(kDrawFullQuality);
        unshadowed.choices.drawFlags = kDrawFullQuality;
        const auto [x, y] = along(2.0f, 0.0f);
        expectLit(drawFrame(), x, y, 1, "without shadows");
    }
}

TEST_F(ShadowMapTest, ASunStraightAboveThrowsShadowsToo) {
    addFloor(9);
    scene_->addObject();
    scene_->addFace(quad({-2, -2, 9.8f}, {2, -2, 9.8f}, {2, 2, 9.8f}, {-2, 2, 9.8f}));
    setSun({0, 0, -1});
    selectShadow(kDrawFullQuality | kDrawShadows);
    const Picture picture = drawFrame(); // the plate is nearer than the camera sees
    for (const float x : {-1.8f, 0.0f, 1.8f})
        expectLit(picture, x, 1.8f, 0, "below");
    for (const float x : {-2.4f, 2.4f})
        expectLit(picture, x, 0, 1, "beside");
}

TEST_F(ShadowMapTest, PenumbrasRiseWithoutSteps) {
    // A wide floor makes the shadow map coarse, so that the penumbra is wider than pixels.
    addFloor(90);
    addBoxObject(4);
    setSun({1, 0, -1});
    selectShadow(kDrawFullQuality | kDrawShadows);
    const Picture picture = drawFrame();
    int last = shaded(kWhite, kUp, 0).red;
    expectLit(picture, 3.2f, 0, 0, "umbra");
    int steps = 0;
    for (float x = 3.2f; x < 7.0f; x += 0.1f) {
        const int red = pixelAt(picture, x, 0).red;
        EXPECT_GE(red, last - 1) << x;
        steps += red > last + 1 ? 1 : 0;
        last = red;
    }
    expectLit(picture, 7.0f, 0, 1, "lit");
    EXPECT_GE(steps, 4);
    // Half the light reaches the place where the box's edge would throw a sharp shadow.
    const int half = (shaded(kWhite, kUp, 0).red + shaded(kWhite, kUp, 1).red) / 2;
    EXPECT_LT(pixelAt(picture, 4.6f, 0).red, half);
    EXPECT_GT(pixelAt(picture, 5.4f, 0).red, half);
}

TEST_F(ShadowMapTest, LitFacesHaveNoSpots) {
    addFloor(9);
    addBoxObject(2);
    for (const float fall : {1.7f, 0.58f, 0.18f}) { // 60, 30 and 10 degrees high
        setSun({1, 0.2f, -fall});
        selectShadow(kDrawFullQuality | kDrawShadows);
        const Pixel floor = shaded(kWhite, kUp, 1);
        const Picture picture = drawFrame();
        const int left = pixelX(-8.8f), right = pixelX(-1.4f);
        EXPECT_EQ(picture.count(left, left, right, pixelY(8.8f),
                                [&](Pixel p) { return !isNear(p, floor, 2); }),
                  0)
            << fall;
        EXPECT_EQ(picture.count(pixelX(-0.9f), pixelY(-0.9f), pixelX(0.9f), pixelY(0.9f),
                                [&](Pixel p) { return !isNear(p, floor, 2); }),
                  0)
            << fall;
        // The wall that faces the sun fills the middle of this view.
        scene_->look({-10, 0, 1}, {0, 0, 1}, 0.2);
        const Pixel wall = shaded(kWhite, {-1, 0, 0}, 1);
        EXPECT_EQ(drawFrame().count(10, 10, kViewSize - 10, kViewSize - 10,
                                    [&](Pixel p) { return !isNear(p, wall, 2); }),
                  0)
            << fall;
        scene_->look({0, 0, 10}, {0, 0, 0}, 3.14159265358979 / 2);
    }
}

TEST_F(ShadowMapTest, ShadowsStartAtTheWall) {
    constexpr float kSide = 9.0f;
    constexpr float kHeight = 2.0f;
    addFloor(kSide);
    addBoxObject(kHeight);
    setSun({1, 0, -1});
    selectShadow(kDrawFullQuality | kDrawShadows);
    // What the filter's width, the texture matrix' bias and the casters' offset let through.
    const float range = std::hypot(2 * kSide, 2 * kSide, kHeight);
    const float texel = range / static_cast<float>(kShadowMapSize);
    const float gap = std::sqrt(2.0f) * (0.0005f * range + 0.8f * texel + 4.0f * texel);
    EXPECT_LT(gap, 0.15f);
    // Straight down on the place, from below the top of the box.
    scene_->look({2.0f, 0, 1.9f}, {2.0f, 0, 0}, 3.14159265358979 / 2);
    const Picture picture = drawFrame();
    const auto pixel = [](float x) {
        return static_cast<int>((x - 2.0f + 1.9f) * kViewSize / 3.8f);
    };
    const Pixel dark = shaded(kWhite, kUp, 0);
    for (float x = 1.0f + gap + 0.03f; x < 2.85f; x += 0.05f)
        EXPECT_TRUE(isNear(picture.at(pixel(x), kViewSize / 2), dark, 2)) << x;
    EXPECT_TRUE(isNear(picture.at(pixel(3.2f), kViewSize / 2), shaded(kWhite, kUp, 1), 2));
}

TEST_F(ShadowMapTest, OpacityMapsCutHolesIntoShadows) {
    constexpr int kSize = 64;
    Ptr32<TextureImage> leaf{};
    leaf = makeTextureImage(); // its left half is solid
    leaf.get()->width = leaf.get()->height = kSize;
    leaf.get()->pixelFormat = GL_LUMINANCE;
    leaf.get()->role = TextureRole::Opacity;
    std::vector<uint8_t> bytes;
    for (int i = 0; i < kSize * kSize; ++i)
        bytes.push_back(i % kSize < kSize / 2 ? 255 : 0);
    leaf.get()->setBytes(std::move(bytes));
    MATERIAL material = plainMaterial();
    material.inlineTexture.opacity = leaf.get();
    const auto cut = static_cast<int16_t>(scene_->addMaterial(material));
    addFloor(9);
    scene_->addObject();
    scene_->addFace(
        quad({-4, -4, 9.8f}, {4, -4, 9.8f}, {4, 4, 9.8f}, {-4, 4, 9.8f}, cut)); // faces down
    setSun({0.2f, 0, -1}); // moves the shadow by 1.96
    selectShadow(kDrawFullQuality | kDrawShadows);
    const Picture picture = drawFrame();
    expectLit(picture, -1.5f, 1, 0, "leaf");
    expectLit(picture, 1.5f, -3.5f, 0, "leaf");
    expectLit(picture, 2.5f, 1, 1, "hole");
    expectLit(picture, 5.5f, -3.5f, 1, "hole");
    expectLit(picture, -2.6f, 0, 1, "beside");
    expectLit(picture, 0, 4.5f, 1, "beside");
    releaseTextureImage(leaf);
}

TEST_F(ShadowMapTest, BitmapsKeepTheirShadowWithoutAChange) {
    addFloor(9);
    addBoxObject(2);
    setSun({1, 0, -1});
    ShadowRenderer& renderer = selectShadow(kDrawFullQuality | kDrawShadows);
    renderer.setSize(kViewSize, kViewSize);
    renderer.setupCamera(scene_->scene());
    Bitmap first(kViewSize, kViewSize, 24);
    Bitmap second(kViewSize, kViewSize, 24);
    renderer.drawToBitmap(first.handle());
    const float bottom = renderer.sceneBounds.min.z;
    renderer.drawToBitmap(second.handle());
    EXPECT_EQ(renderer.sceneBounds.min.z, bottom);
    EXPECT_EQ(renderer.sceneBounds.max.x, 9.0f);
    const Picture window = drawFrame();
    EXPECT_EQ(differences(first, second, kViewSize, kViewSize), 0);
    EXPECT_EQ(differences(first, window, kViewSize, kViewSize), 0);
    EXPECT_TRUE(isNear(first.at(pixelX(2), pixelY(0)), shaded(kWhite, kUp, 0), 2));

    // Tiles show the same shadow as a whole picture.
    renderer.setSize(kViewSize / 2, kViewSize / 2);
    renderer.setupCamera(scene_->scene());
    Bitmap tiled(kViewSize, kViewSize, 24);
    renderer.drawToBitmap(tiled.handle());
    for (const auto& [x, y] : {std::pair{2.0f, 0.0f}, {2.8f, 0.7f}, {3.4f, 0.0f}, {-2.0f, 0.0f}})
        EXPECT_TRUE(isNear(tiled.at(pixelX(x), pixelY(y)), first.at(pixelX(x), pixelY(y)), 2)) << x;
}

TEST_F(ShadowMapTest, ShadowsAreDrawnOnlyWhenMarked) {
    addFloor(9);
    addBoxObject(2);
    setSun({1, 0, -1});
    ShadowRenderer& renderer = selectShadow(kDrawFullQuality | kDrawShadows);
    const uint64_t first = drawCalls();
    const uint64_t still = drawCalls();
    EXPECT_LT(still, first);
    EXPECT_EQ(drawCalls(), still);

    scene_->geometry().flags = kGeometryShadowsChanged | 0x100;
    EXPECT_EQ(drawCalls(), first);
    EXPECT_EQ(scene_->geometry().flags, 0x100u);
    EXPECT_EQ(drawCalls(), still);

    renderer.choices.drawFlags = kDrawFullQuality; // the other program, and back
    EXPECT_EQ(drawCalls(), still);
    renderer.choices.drawFlags = kDrawFullQuality | kDrawShadows;
    EXPECT_EQ(drawCalls(), first);

    scene_->entry(1).changeFlags = 1;
    EXPECT_EQ(drawCalls(), first);
    EXPECT_EQ(drawCalls(), still);

    setSun({-1, 0, -1}); // without a mark: a map seen from elsewhere is of no use
    EXPECT_EQ(drawCalls(), first);
    expectLit(drawFrame(), -2, 0, 0, "turned sun");
}

TEST_F(ShadowMapTest, ScenesInTurnKeepTheirShadows) {
    addFloor(9);
    addBoxObject(2);
    setSun({1, 0, -1});
    ShadowRenderer& renderer = selectShadow(kDrawFullQuality | kDrawShadows);
    SceneFixture other; // its box stands elsewhere, under another sun
    other.addMaterial(plainMaterial());
    other.addLight(sun_);
    other.addObject();
    other.addFace(plate(-9, -9, 9, 9));
    addBox(other, {3, 3, 0}, {5, 5, 2});
    other.commit();
    other.light(0).target = {-1, 0, -1};
    other.geometry().lightAmbient = kAmbient;
    other.look({0, 0, 10}, {0, 0, 0}, 3.14159265358979 / 2);
    uint64_t calls[2] = {};
    for (int round = 0; round < 3; ++round)
        for (const int k : {0, 1}) {
            renderer.scene = k == 0 ? &scene_->scene() : &other.scene();
            const uint64_t before = glWork().drawCalls;
            const Picture picture = drawFrame();
            const uint64_t drawn = glWork().drawCalls - before;
            EXPECT_EQ(round == 0 || drawn < calls[k], true) << round << ", " << k;
            calls[k] = round == 0 ? drawn : calls[k];
            expectLit(picture, 2, 0, k == 0 ? 0 : 1, "east of the first box");
            expectLit(picture, 2, 4, k == 0 ? 1 : 0, "west of the second box");
        }
}

} // namespace
} // namespace ogl::test
