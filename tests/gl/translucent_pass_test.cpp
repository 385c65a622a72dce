// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/textures/texture_image.h"
#include "gl/photo_fixture.h"
#include "gl/shading_formulas.h"

#include <cmath>

namespace ogl {
namespace {

using test::isNear;
using test::Picture;
using test::Pixel;
using test::plate;

constexpr Pixel kWall{180, 90, 60};

void expectPixel(Pixel actual, Pixel expected, const std::string& what) {
    EXPECT_TRUE(isNear(actual, expected, 2))
        << what << ": " << actual.red << ' ' << actual.green << ' ' << actual.blue << ", not "
        << expected.red << ' ' << expected.green << ' ' << expected.blue;
}

/// An opacity map of one grey.
TextureImage* halfOpaque() {
    TextureImage* image = makeTextureImage();
    image->width = image->height = 4;
    image->role = TextureRole::Opacity;
    image->pixelFormat = GL_RGB;
    image->setBytes(std::vector<uint8_t>(4 * 4 * 3, 128));
    return image;
}

/// Glass between a wall and the eye at (0, 0, 10).
class TranslucentPassTest : public test::PhotoTest {
  protected:
    void SetUp() override {
        PhotoTest::SetUp();
        scene_->addObject();
        scene_->addFace(plate(-9, -9, 9, 9, 0, static_cast<int16_t>(addColored(kWall))));
    }
    static MATERIAL glass(Pixel color, float opacity) {
        MATERIAL material = test::plainMaterial();
        material.color = {static_cast<uint8_t>(color.blue), static_cast<uint8_t>(color.green),
                          static_cast<uint8_t>(color.red)};
        material.opacity = opacity;
        return material;
    }
    /// A pane in the plane z with its reference point in the middle.
    void addPane(const MATERIAL& material, float z, float size = 4) {
        const auto number = static_cast<int16_t>(scene_->addMaterial(material));
        const int object = scene_->addObject();
        scene_->addFace(plate(-size, -size, size, size, z, number));
        heights_.push_back({object, z});
    }
    void select(uint32_t drawFlags = kDrawFullQuality) {
        selectPhoto(drawFlags);
        auto* objects = static_cast<OBJECT*>(scene_->objects().data.get());
        for (const auto& [object, z] : heights_)
            objects[object].referencePoint = {0, 0, static_cast<int32_t>(std::lround(z * 1000))};
    }

    /// Of a pane that faces up, as seen at `place`: colour and opacity.
    struct Look {
        Vec3 color;
        float alpha;
    };
    Look lookOf(const MATERIAL& m, Vec3 place, Vec3 albedo, float alpha, Vec3 environment) const {
        const SCENE& scene = scene_->scene();
        const Vec3 eye{0, 0, 10};
        const Vec3 toEye = normalized(eye - place);
        const Vec3 toLight = Vec3{1, 1, 1} * (1 / std::sqrt(3.0f));
        const float cosine = toLight.z;
        float reflected = 0;
        if (m.reflection > 0)
            reflected = m.reflection *
                        (m.fresnel +
                         (1 - m.fresnel) * std::pow(std::max(1 - std::fabs(toEye.z), 1e-5f), 4.0f));
        test::Surface surface;
        surface.place = place;
        surface.shininess = std::pow(10.0f, 3.2f * m.glossiness + 1.0f);
        surface.normal = {0, 0, 1};
        const float spot = test::highlight(surface, toLight, eye) * m.specular;
        const float light = cosine + std::max(test::wrapLight(cosine), 0.25f) * 0.5f;
        const Vec3 mirror =
            test::perChannel(environment, [](float x) { return std::pow(x, 1.5f) * 4; }) *
            reflected;
        Vec3 c = albedo * (light * (1 - reflected)) + Vec3{spot, spot, spot} +
                 mirror * (kAmbient + 0.4f);
        c = test::perChannel(test::saturated(c, scene.saturation),
                             [](float x) { return std::min(std::max(x, 0.0f), 1.0f); });
        c = test::toneCurve(c, 2 * scene.exposure, scene.toneGamma);
        return {c, std::min(alpha + reflected, 1.0f)};
    }
    static Pixel over(const Look& look, Pixel behind) {
        const auto mixed = [&](float channel, int below) {
            return static_cast<int>(std::lround(channel * 255 * look.alpha +
                                                static_cast<float>(below) * (1 - look.alpha)));
        };
        return {mixed(look.color.x, behind.red), mixed(look.color.y, behind.green),
                mixed(look.color.z, behind.blue)};
    }
    static Vec3 parts(Pixel p) {
        return Vec3{static_cast<float>(p.red), static_cast<float>(p.green),
                    static_cast<float>(p.blue)} *
               (1 / 255.0f);
    }

    std::vector<std::pair<int, float>> heights_;
};

TEST_F(TranslucentPassTest, GlassShowsTheWallBehindIt) {
    constexpr Pixel kGreen{60, 160, 90};
    MATERIAL plain = glass(kGreen, 0.4f);
    MATERIAL polished = glass(kGreen, 0.3f);
    polished.specular = 0.6f;
    polished.glossiness = 0.1f;
    MATERIAL mirror = glass(kGreen, 0.3f);
    mirror.reflection = 0.5f;
    mirror.fresnel = 0.3f;
    MATERIAL faint = glass(kGreen, 0.05f); // at least 0.2
    constexpr Pixel kSky{200, 120, 40};
    test::writeFile(folder_.file("environment.tga"), test::plainTga(kSky));
    context_->settings.texturesDir = folder_.hostFile("");
    const struct {
        const char* name;
        const MATERIAL& material;
        float alpha;
    } rows[] = {{"plain", plain, 0.4f},
                {"polished", polished, 0.3f},
                {"mirror", mirror, 0.3f},
                {"faint", faint, 0.2f}};
    int material = 0;
    for (const auto& row : rows) {
        if (material == 0) {
            addPane(row.material, 4);
            material = 1;
            select();
        }
        scene_->material(material) = row.material;
        const Picture picture = drawFrame();
        // At height 4 the view spans 12 across.
        const Vec3 place{2 * 0.6f, 1 * 0.6f, 4};
        const Look look = lookOf(row.material, place, parts(kGreen), row.alpha, parts(kSky));
        expectPixel(pixelAt(picture, 2, 1), over(look, shown(kWall)), row.name);
        expectPixel(pixelAt(picture, 8.5f, 8.5f), shown(kWall), row.name);
    }
}

TEST_F(TranslucentPassTest, PanesAreDrawnFromBackToFront) {
    const MATERIAL red = glass({220, 40, 40}, 0.5f);
    const MATERIAL blue = glass({40, 40, 220}, 0.6f);
    const auto seen = [&](const MATERIAL& m, Vec3 albedo, float z) {
        return lookOf(m, {0.05f, 0.05f, z}, albedo, m.opacity, {});
    };
    const struct {
        const char* name;
        float redHeight, blueHeight;
    } rows[] = {{"red in front", 5, 2}, {"blue in front", 2, 5}, {"red first, far below", 1, 1.5f}};
    for (const auto& row : rows) {
        TearDown(); // another scene
        heights_.clear();
        scene_ = std::make_unique<test::SceneFixture>();
        SetUp();
        addPane(red, row.redHeight);
        addPane(blue, row.blueHeight);
        select();
        const Look redLook = seen(red, parts({220, 40, 40}), row.redHeight);
        const Look blueLook = seen(blue, parts({40, 40, 220}), row.blueHeight);
        const Pixel wall = shown(kWall);
        const Pixel expected = row.redHeight > row.blueHeight ? over(redLook, over(blueLook, wall))
                                                              : over(blueLook, over(redLook, wall));
        expectPixel(pixelAt(drawFrame(), 0, 0), expected, row.name);
    }
}

/// A pane drawn too early, by a reference point far off, hides none behind it.
TEST_F(TranslucentPassTest, GlassHidesNoGlass) {
    const MATERIAL red = glass({220, 40, 40}, 0.5f);
    const MATERIAL blue = glass({40, 40, 220}, 0.6f);
    addPane(red, 5);
    addPane(blue, 2);
    heights_[0].second = -5;
    select();
    const Look redLook = lookOf(red, {0.05f, 0.05f, 5}, parts({220, 40, 40}), 0.5f, {});
    const Look blueLook = lookOf(blue, {0.05f, 0.05f, 2}, parts({40, 40, 220}), 0.6f, {});
    expectPixel(pixelAt(drawFrame(), 0, 0), over(blueLook, over(redLook, shown(kWall))), "both");
}

TEST_F(TranslucentPassTest, WallsHideGlass) {
    const MATERIAL pane = glass({60, 160, 90}, 0.5f);
    addPane(pane, -2);                  // behind the wall
    addPane(glass({0, 0, 0}, 0.0f), 3); // invisible
    const auto white = static_cast<int16_t>(addColored({255, 255, 255}));
    scene_->addObject();
    scene_->addFace(plate(-1, -1, 1, 1, 2, white)); // opaque, drawn after the glass was listed
    select();
    const Picture picture = drawFrame();
    expectPixel(pixelAt(picture, 3, 0), shown(kWall), "wall");
    expectPixel(pixelAt(picture, 0, 0), shown({255, 255, 255}), "plate");
}

TEST_F(TranslucentPassTest, GlassIsSeenFromItsFront) {
    const auto pane = static_cast<int16_t>(scene_->addMaterial(glass({60, 160, 90}, 0.5f)));
    scene_->addObject();
    scene_->addFace(test::quad({-4, -4, 3}, {4, -4, 3}, {4, 4, 3}, {-4, 4, 3}, pane));
    select();
    expectPixel(pixelAt(drawFrame(), 0, 0), shown(kWall), "from behind");
}

TEST_F(TranslucentPassTest, AnOpacityMapShowsBothSides) {
    Ptr32<TextureImage> map{};
    map = halfOpaque();
    MATERIAL leaf = glass({60, 160, 90}, 0.9f);
    leaf.inlineTexture.opacity = map.get();
    const auto number = static_cast<int16_t>(scene_->addMaterial(leaf));
    scene_->addObject();
    scene_->addFace(test::quad({-4, -4, 3}, {4, -4, 3}, {4, 4, 3}, {-4, 4, 3}, number));
    select();
    const Picture picture = drawFrame();
    // Its back: the normal points away, so that only the least light is left.
    const float least = 0.125f;
    Vec3 c = test::saturated(Vec3{0.5f, 0.5f, 0.5f} * least, scene_->scene().saturation);
    c = test::toneCurve(c, 2 * scene_->scene().exposure, scene_->scene().toneGamma);
    expectPixel(pixelAt(picture, 0, 0), over({c, 128 / 255.0f}, shown(kWall)), "from behind");
    releaseTextureImage(map);
}

} // namespace
} // namespace ogl
