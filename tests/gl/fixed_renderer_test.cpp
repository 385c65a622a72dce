// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/drawing/fixed_renderer.h"

#include "fixed/textures/texture_image.h"
#include "gl/gl_fixture.h"
#include "gl/ray_reference.h"
#include "gpu/texture.h"
#include "render/process_state.h"

#include <cmath>

namespace ogl::test {
namespace {

constexpr Pixel kWhite{255, 255, 255};
constexpr Pixel kBlue{32, 64, 128};
constexpr uint32_t kBlueRecord = 0x804020; // red in the lowest byte
constexpr Pixel kInk{26, 26, 26};          // 0.1 of white

/// A technical drawing on a blue background with edges of 3.1 pixels, so that they cover pixels
/// fully.
class FixedRendererTest : public GLTest {
  protected:
    void SetUp() override {
        GLTest::SetUp();
        SCENE& scene = scene_->scene();
        scene.drawingOptions = kOptionBackgroundColor;
        scene.drawingBackgroundColor = kBlueRecord;
        scene.lineWeight = 40;
        scene_->addMaterial(plainMaterial());
    }
    /// Selects the renderer with the per-call fields of render mode 10.
    FixedRenderer& selectDrawing() {
        scene_->commit();
        auto& renderer = select<FixedRenderer>();
        renderer.choices.drawFlags = kDrawFullQuality;
        renderer.choices.textureMode = TextureMode::SharedOnly;
        renderer.choices.colorMode = ColorMode::White;
        renderer.choices.drawFaces = true;
        renderer.choices.singleColorEdges = true;
        return renderer;
    }
    /// A loop that is not drawn: surfaces alone.
    static FaceShape withoutEdges(FaceShape face) {
        face.loops[0].style.flags = kLoopHidden;
        return face;
    }
    int addMaterialWithOpacity(float opacity) {
        MATERIAL material = plainMaterial();
        material.opacity = opacity;
        return scene_->addMaterial(material);
    }
};

/// An image of one colour per quarter: (0, 0), (1, 0), (0, 1), (1, 1) of texture space.
TextureImage* makeQuarters(unsigned format, const std::array<Pixel, 4>& quarters) {
    constexpr int kSize = 64;
    TextureImage* image = makeTextureImage();
    const int components = format == GL_LUMINANCE ? 1 : 3;
    std::vector<uint8_t> bytes;
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const Pixel& color =
                quarters[static_cast<size_t>((y >= kSize / 2 ? 2 : 0) + (x >= kSize / 2 ? 1 : 0))];
            const int channels[] = {color.red, color.green, color.blue};
            for (int i = 0; i < components; ++i)
                bytes.push_back(static_cast<uint8_t>(channels[i]));
        }
    image->width = image->height = kSize;
    image->pixelFormat = format;
    image->setTexture(createTexture2D(TextureKind::Repeating, format, kSize, kSize, bytes.data()));
    image->setBytes(std::move(bytes));
    return image;
}

TEST_F(FixedRendererTest, DrawsWhiteSurfacesOnTheBackground) {
    MATERIAL red = plainMaterial();
    red.color = {0, 0, 255};
    scene_->addMaterial(red);
    scene_->addObject();
    scene_->addFace(plate(-6, -6, 0, 6, 0, 0));
    scene_->addFace(plate(0, -6, 6, 6, 0, 1));
    FaceShape back = plate(7, -6, 9, 6);
    back.triangles = {back.triangles[0], back.triangles[2], back.triangles[1],
                      back.triangles[3], back.triangles[5], back.triangles[4]};
    scene_->addFace(withoutEdges(back));
    selectDrawing();
    const Picture picture = drawFrame();
    EXPECT_TRUE(isNear(pixelAt(picture, -3, 0), kWhite, 1));
    EXPECT_TRUE(isNear(pixelAt(picture, 3, 0), kWhite, 1)); // whatever its colour
    EXPECT_TRUE(isNear(pixelAt(picture, -9, 0), kBlue, 1));
    EXPECT_TRUE(isNear(pixelAt(picture, 8, 0), kBlue, 1)); // seen from behind
    EXPECT_NEAR(renderer_->clearColor[2], 128 / 255.0f, 1e-6f);

    scene_->scene().drawingOptions = 0;
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), -9, 0), kWhite, 0));
}

TEST_F(FixedRendererTest, DrawsEdgesInInk) {
    scene_->addObject();
    scene_->addFace(plate(-6, -6, 6, 6));
    const struct {
        const char* name;
        int opacity;
        uint32_t drawFlags;
        EdgeMode edgeMode;
        float alpha; ///< of the edge
    } rows[] = {
        {"full", 100, kDrawFullQuality, EdgeMode::Visible, 1.0f},
        {"half", 50, kDrawFullQuality, EdgeMode::Visible, 0.5f},
        {"none", 0, kDrawFullQuality, EdgeMode::Visible, 0.0f},
        {"none, but a draft", 0, 0, EdgeMode::Visible, 0.05f},
        {"off", 100, kDrawFullQuality, EdgeMode::None, 0.0f},
    };
    FixedRenderer& renderer = selectDrawing();
    scene_->scene().drawingBackgroundColor = 0xffffff;
    for (const auto& row : rows) {
        scene_->geometry().edgeOpacity = row.opacity;
        renderer.choices.drawFlags = row.drawFlags;
        renderer.choices.edgeMode = row.edgeMode;
        const Picture picture = drawFrame();
        const int value = static_cast<int>(std::lround(255 * (1 - 0.9f * row.alpha)));
        const Pixel expected{value, value, value};
        EXPECT_TRUE(isFoundNear(picture, pixelX(-6), pixelY(1), expected, 2)) << row.name;
        EXPECT_TRUE(isFoundNear(picture, pixelX(2), pixelY(6), expected, 2)) << row.name;
        EXPECT_TRUE(isNear(pixelAt(picture, -5, 5), kWhite, 1)) << row.name;
        EXPECT_TRUE(isNear(pixelAt(picture, -7, 1), kWhite, 1)) << row.name;
    }
}

TEST_F(FixedRendererTest, ColorsEdgesByTheirStylesWhenAsked) {
    scene_->addObject();
    FaceShape face = plate(-6, -6, 6, 6);
    face.loops[0].style.color = {200, 100, 50};
    scene_->addFace(face);
    FixedRenderer& renderer = selectDrawing();
    renderer.choices.singleColorEdges = false;
    EXPECT_TRUE(isFoundNear(drawFrame(), pixelX(-6), pixelY(1), {50, 100, 200}, 2));
    renderer.choices.singleColorEdges = true;
    EXPECT_TRUE(isFoundNear(drawFrame(), pixelX(-6), pixelY(1), kInk, 2));
}

TEST_F(FixedRendererTest, DashesHiddenEdges) {
    scene_->addObject();
    scene_->addFace(plate(-4, -4, 4, 4, -1)); // its edges are at 10 / 11 of that
    scene_->addFace(withoutEdges(plate(-8, -8, 8, 8)));
    scene_->geometry().edgeOpacity = 64;
    FixedRenderer& renderer = selectDrawing();
    const int column = pixelX(-4 * 10.0f / 11.0f);
    const auto darkRows = [&](const Picture& picture) {
        int dark = 0;
        for (int y = 80; y < 120; ++y)
            dark += picture.count(column - 1, y, column + 2, y + 1,
                                  [](Pixel p) { return p.red < 245; }) > 0
                        ? 1
                        : 0;
        return dark;
    };
    renderer.choices.edgeMode = EdgeMode::HiddenToo;
    const Picture dashed = drawFrame();
    // The pattern is eight pixels long, half of them drawn; the sample grid blurs its ends.
    EXPECT_NEAR(darkRows(dashed), 20, 6);
    // A line of half a pixel covers a part of its pixels: never darker than the formula.
    const int darkest = static_cast<int>(255 * (1 - 0.9f * std::sqrt(0.64f) * 0.5f));
    EXPECT_EQ(
        dashed.count(column - 1, 80, column + 2, 120, [&](Pixel p) { return p.red < darkest - 3; }),
        0);
    renderer.choices.edgeMode = EdgeMode::Visible;
    EXPECT_EQ(darkRows(drawFrame()), 0);
}

TEST_F(FixedRendererTest, OutlinesSmoothSurfaces) {
    scene_->addObject();
    scene_->addFace(ball({0, 0, -4}, 4, 24, 0));
    FixedRenderer& renderer = selectDrawing();
    const Picture picture = drawFrame();
    // The sphere's centre is 14 units away: its outline lies in the cone of sine 4 / 14.
    const float radius = 10.0f * std::tan(std::asin(4.0f / 14.0f));
    for (const float angle : {0.3f, 1.1f, 2.5f, 4.0f, 5.5f}) {
        const float x = radius * std::cos(angle), y = radius * std::sin(angle);
        EXPECT_TRUE(isFoundNear(picture, pixelX(x), pixelY(y), kInk, 40)) << angle;
        EXPECT_TRUE(isNear(pixelAt(picture, 0.7f * x, 0.7f * y), kWhite, 1)) << angle;
        EXPECT_TRUE(isNear(pixelAt(picture, 1.4f * x, 1.4f * y), kBlue, 1)) << angle;
    }
    renderer.choices.drawFaces = false;
    EXPECT_FALSE(isFoundNear(drawFrame(), pixelX(radius), pixelY(0), kInk, 40));
}

TEST_F(FixedRendererTest, TurnsOpacityIntoCoverage) {
    const struct {
        const char* name;
        float opacity;
        double expected; ///< share of white
    } rows[] = {{"half", 0.5f, 0.5},
                {"faint becomes 0.2", 0.05f, 0.25},
                {"invisible", 0.0f, 0.0},
                {"opaque", 1.0f, 1.0}};
    scene_->scene().drawingBackgroundColor = 0;
    const int material = addMaterialWithOpacity(1.0f);
    scene_->addObject();
    scene_->addFace(withoutEdges(plate(-6, -6, 6, 6, 0, static_cast<int16_t>(material))));
    for (const auto& row : rows) {
        selectDrawing();
        scene_->material(material).opacity = row.opacity;
        const Picture picture = drawFrame();
        // Four samples per pixel: coverage comes in quarters.
        EXPECT_NEAR(picture.mean(60, 60, 140, 140)[0] / 255.0, row.expected, 0.13) << row.name;
    }
}

TEST_F(FixedRendererTest, ShowsSurfacesBehindTranslucentOnes) {
    const int glass = addMaterialWithOpacity(0.5f);
    scene_->addObject();
    scene_->addFace(withoutEdges(plate(-6, -6, 6, 6, 1, static_cast<int16_t>(glass))));
    scene_->addFace(withoutEdges(plate(-3, -3, 3, 3, 0, 0)));
    selectDrawing();
    const Picture picture = drawFrame();
    EXPECT_TRUE(isNear(pixelAt(picture, 0, 0), kWhite, 1)); // behind glass
    EXPECT_NEAR(picture.mean(50, 80, 60, 120)[2], (255 + kBlue.blue) / 2, 20);
}

TEST_F(FixedRendererTest, ReadsMaterialsAndObjectsAtDrawTime) {
    scene_->addObject();
    scene_->addFace(withoutEdges(plate(-6, -6, 0, 6)));
    scene_->addObject();
    scene_->addFace(withoutEdges(plate(0, -6, 6, 6)));
    selectDrawing();
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 3, 0), kWhite, 1));
    scene_->object(1).flags = 0x8;
    const Picture hidden = drawFrame();
    EXPECT_TRUE(isNear(pixelAt(hidden, 3, 0), kBlue, 1));
    EXPECT_TRUE(isNear(pixelAt(hidden, -3, 0), kWhite, 1));
    scene_->material(0).useCount = 0;
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), -3, 0), kBlue, 1));
}

TEST_F(FixedRendererTest, ShowsTexturesOfSharedSlotsOnly) {
    TextureImage* image = makeQuarters(
        GL_RGB, {Pixel{200, 0, 0}, Pixel{0, 150, 0}, Pixel{0, 0, 100}, Pixel{90, 90, 0}});
    TEXTURESLOT slot{};
    slot.alternativeColor = image; // used when there is no colour image
    MATERIAL shared = plainMaterial();
    shared.textureIndex = static_cast<int16_t>(scene_->addTexture(slot));
    MATERIAL inlined = plainMaterial();
    inlined.inlineTexture.color = image;
    scene_->addMaterial(shared);
    scene_->addMaterial(inlined);
    scene_->addObject();
    scene_->addFace(withoutEdges(plate(-8, -4, 0, 4, 0, 1)));
    scene_->addFace(withoutEdges(plate(0, -4, 8, 4, 0, 2)));
    FixedRenderer& renderer = selectDrawing();
    const Picture picture = drawFrame();
    // quad() runs u along the first side, upwards here, and v across; v is flipped.
    EXPECT_TRUE(isNear(pixelAt(picture, -6, -2), {0, 0, 100}, 2));
    EXPECT_TRUE(isNear(pixelAt(picture, -6, 2), {90, 90, 0}, 2));
    EXPECT_TRUE(isNear(pixelAt(picture, -2, -2), {200, 0, 0}, 2));
    EXPECT_TRUE(isNear(pixelAt(picture, -2, 2), {0, 150, 0}, 2));
    EXPECT_TRUE(isNear(pixelAt(picture, 4, 0), kWhite, 1));

    renderer.choices.textureMode =
        TextureMode::All; // textures at half strength, by the current colour
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 6, -2), {100, 0, 0}, 2));
    renderer.choices.textureMode = TextureMode::None;
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), -6, -2), kWhite, 1));

    Ptr32<TextureImage> owner = image;
    releaseTextureImage(owner);
    renderer.choices.textureMode = TextureMode::SharedOnly; // the slots now hold a stale address
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), -6, -2), kWhite, 1));
}

TEST_F(FixedRendererTest, CutsOutByAlphaMapsOnBothSides) {
    constexpr Pixel kClear{0, 0, 0};
    Ptr32<TextureImage> alpha{};
    alpha = makeQuarters(GL_LUMINANCE, {kWhite, kWhite, kClear, kClear});
    TEXTURESLOT slot{};
    slot.opacity = alpha.get();
    MATERIAL leaf = plainMaterial();
    leaf.opacity = 0.5f;
    leaf.textureIndex = static_cast<int16_t>(scene_->addTexture(slot));
    scene_->addMaterial(leaf);
    scene_->addObject();
    FaceShape face = withoutEdges(plate(-6, -4, 2, 4, 0, 1));
    std::swap(face.triangles[1], face.triangles[2]); // one triangle shows its back
    std::swap(face.texCoords[1], face.texCoords[2]);
    scene_->addFace(face);
    selectDrawing();
    // An object that is not translucent is drawn in the opaque layer: the slot has no colour image,
    // so the batch is marked as translucent and left out there.
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), kBlue, 1));

    scene_->material(1).opacity = 1.0f;
    processState().sceneChanged = 1;
    const Picture picture = drawFrame();
    EXPECT_TRUE(isNear(pixelAt(picture, 0.5f, -2), kWhite, 1));
    EXPECT_TRUE(isNear(pixelAt(picture, 0.5f, 2), kWhite, 1));
    EXPECT_TRUE(isNear(pixelAt(picture, -4.5f, -2), kBlue, 1));
    EXPECT_TRUE(isNear(pixelAt(picture, -4.5f, 2), kBlue, 1));
    releaseTextureImage(alpha);
}

TEST_F(FixedRendererTest, MarksTheEndsOfEdges) {
    scene_->addObject();
    scene_->addFace(plate(-6, -6, 6, 6));
    scene_->scene().lineWeight = 0;
    FixedRenderer& renderer = selectDrawing();
    const auto inkNearCorner = [&](const Picture& picture) {
        const int x = pixelX(-6), y = pixelY(-6);
        return picture.count(x - 4, y - 4, x + 5, y + 5, [](Pixel p) {
            return isNear(p, {18, 18, 18}, 40);
        });
    };
    const int without = inkNearCorner(drawFrame());
    renderer.choices.roundEdgeEnds = true;
    const Picture picture = drawFrame();
    EXPECT_GT(inkNearCorner(picture), without);
    EXPECT_TRUE(isNear(pixelAt(picture, 0, 0), kWhite, 1));
}

} // namespace
} // namespace ogl::test
