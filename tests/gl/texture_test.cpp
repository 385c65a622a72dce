// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/batches.h"
#include "fixed/drawing/fixed_renderer.h"
#include "fixed/textures/texture_file.h"
#include "fixed/textures/texture_image.h"
#include "fixed/textures/texture_preparation.h"
#include "gl/gl_fixture.h"
#include "image/normal_map.h"
#include "render/process_state.h"
#include "support/image_bytes.h"

#include <random>

namespace ogl::test {
namespace {

constexpr Pixel kGround{32, 64, 128};
constexpr uint32_t kGroundRecord = 0x804020; // red in the lowest byte
constexpr int kTga = kTextureFileTga;
constexpr int kDib = kTextureFileDib;

/// Random bytes, the same in every run. Opaque where `alpha`: every fourth byte is 255.
Bytes randomBytes(int count, bool alpha) {
    std::mt19937 random(11);
    Bytes bytes;
    for (int k = 0; k < count; ++k)
        bytes.push_back(alpha && k % 4 == 3 ? 255 : static_cast<uint8_t>(random()));
    return bytes;
}

/// A rectangle that shows a texture upright.
FaceShape textured(float left, float bottom, float right, float top, int16_t material) {
    FaceShape face = plate(left, bottom, right, top, 0, material);
    face.loops.clear();
    face.texCoords.clear();
    for (const Vec3& corner : face.triangles)
        face.texCoords.push_back(
            {corner.x == left ? 0.0f : 1.0f, corner.y == bottom ? 0.0f : 1.0f});
    return face;
}

class TextureTest : public GLTest {
  protected:
    /// Texels are drawn this large, so that each has a pixel at its very middle, where a linear
    /// filter gives its value.
    static constexpr int kTexelPixels = 25;
    static constexpr int kLeftPixel = 10;
    static constexpr int kTopPixel = 190;

    void SetUp() override {
        GLTest::SetUp();
        setUpScene();
    }
    void setUpScene() {
        scene_->scene().drawingOptions = kOptionBackgroundColor;
        scene_->scene().drawingBackgroundColor = kGroundRecord;
        scene_->look({0, 0, 10}, {0, 0, 0}, 3.14159265358979 / 2);
    }
    /// Empties the scene, for the next row of a table.
    void renewScene() {
        renderer_.reset();
        scene_ = std::make_unique<SceneFixture>();
        setUpScene();
    }
    void TearDown() override {
        for (Ptr32<TextureImage>& image : images_)
            releaseTextureImage(image);
        GLTest::TearDown();
    }
    TextureImage* make(const TextureFile& file) {
        Ptr32<TextureImage> slot{};
        slot = makeTextureImage(file);
        images_.push_back(slot);
        return slot.get();
    }
    /// A rectangle of `width` x `height` texels in a material with these images, in a shared slot
    /// or the material's own.
    void addRectangle(const TEXTURESLOT& slot, int width = 7, int height = 7, bool shared = true) {
        MATERIAL material = plainMaterial();
        if (shared)
            material.textureIndex = static_cast<int16_t>(scene_->addTexture(slot));
        else
            material.inlineTexture = slot;
        const int number = scene_->addMaterial(material);
        scene_->addObject();
        const auto units = [](int pixels) { return static_cast<float>(pixels) * 0.1f - 10.0f; };
        scene_->addFace(textured(units(kLeftPixel), units(kTopPixel - height * kTexelPixels),
                                 units(kLeftPixel + width * kTexelPixels), units(kTopPixel),
                                 static_cast<int16_t>(number)));
        scene_->commit();
    }
    TEXTURESLOT& slot() {
        return static_cast<TEXTURE*>(scene_->geometry().textures.data.get())->slot;
    }
    FixedRenderer& selectDrawing(TextureMode textureMode = TextureMode::SharedOnly) {
        auto& renderer = select<FixedRenderer>();
        renderer.choices.textureMode = textureMode;
        renderer.choices.colorMode = ColorMode::White;
        return renderer;
    }
    /// The pixel at the middle of a texel, `y` counted from the top.
    static Pixel texel(const Picture& picture, int x, int y) {
        return picture.at(kLeftPixel + x * kTexelPixels + kTexelPixels / 2,
                          kTopPixel - y * kTexelPixels - kTexelPixels / 2 - 1);
    }
    static Bytes texelsOf(const TextureImage& image, unsigned format, int components) {
        Bytes bytes(static_cast<size_t>(image.width * image.height * components));
        glBindTexture(GL_TEXTURE_2D, image.textureName());
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glGetTexImage(GL_TEXTURE_2D, 0, format, GL_UNSIGNED_BYTE, bytes.data());
        glBindTexture(GL_TEXTURE_2D, 0);
        return bytes;
    }
    /// Marks a texture, so that one that was made again shows.
    static void mark(const TextureImage& image) {
        glBindTexture(GL_TEXTURE_2D, image.textureName());
        const uint8_t value[] = {1, 2, 3, 4};
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, value);
        glBindTexture(GL_TEXTURE_2D, 0);
    }
    static bool isMarked(const TextureImage& image) {
        const Bytes texels = texelsOf(image, GL_RGBA, 4);
        return texels[0] == 1;
    }

    std::vector<Ptr32<TextureImage>> images_;
};

TEST_F(TextureTest, ShowsEveryPixelOfEveryWidth) {
    const struct {
        const char* name;
        int type, bits, width, height;
    } rows[] = {
        {"DIB, 24 bits, 3 bytes of padding", kDib, 24, 7, 5},
        {"DIB, 24 bits, 2 bytes of padding", kDib, 24, 6, 3},
        {"DIB, 24 bits, 1 byte of padding", kDib, 24, 5, 7},
        {"DIB, 24 bits, no padding", kDib, 24, 4, 4},
        {"DIB, 24 bits, one column", kDib, 24, 1, 6},
        {"DIB, 32 bits", kDib, 32, 5, 3},
        {"TGA, 24 bits", kTga, 24, 5, 7},
        {"TGA, 24 bits, one column", kTga, 24, 1, 6},
        {"TGA, 32 bits", kTga, 32, 7, 5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        renewScene();
        const int components = row.bits / 8;
        const Bytes pixels = randomBytes(row.width * row.height * components, components == 4);
        const Bytes file = row.type == kDib
                               ? dibBytes(row.width, row.height, row.bits, pixels)
                               : TgaBytes{.width = row.width,
                                          .height = row.height,
                                          .bitsPerPixel = static_cast<uint8_t>(row.bits),
                                          .descriptor = 0x20,
                                          .data = pixels}
                                     .file();
        TEXTURESLOT slot{};
        slot.color = make({file, row.type, 0, row.width, row.height, row.bits});
        ASSERT_NE(slot.color.get(), nullptr);
        addRectangle(slot, row.width, row.height);
        selectDrawing();
        const Picture picture = drawFrame();
        for (int y = 0; y < row.height; ++y)
            for (int x = 0; x < row.width; ++x) {
                const auto at = static_cast<size_t>((y * row.width + x) * components);
                const Pixel expected{pixels[at + 2], pixels[at + 1], pixels[at]};
                EXPECT_TRUE(isNear(texel(picture, x, y), expected, 2)) << x << ", " << y;
            }
    }
}

TEST_F(TextureTest, CutsOutByOpacityMapsOfEveryKind) {
    constexpr int kWidth = 5;
    constexpr int kHeight = 3;
    const Bytes shape = {255, 0, 255, 255, 0, 0, 0, 255, 0, 255, 255, 255, 0, 0, 255};
    const struct {
        const char* name;
        int type, usage, bits;
    } rows[] = {
        {"DIB, 8 bits", kDib, 1, 8}, {"DIB, 24 bits", kDib, 1, 24}, {"DIB, 32 bits", kDib, 1, 32},
        {"TGA, 8 bits", kTga, 2, 8}, {"TGA, 24 bits", kTga, 3, 24}, {"a colour DIB", kDib, 0, 24},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        renewScene();
        Bytes pixels;
        for (const uint8_t value : shape)
            for (int c = 0; c < row.bits / 8; ++c)
                pixels.push_back(c == 3 ? 77 : value); // alpha does not count
        const Bytes file = row.type == kDib
                               ? dibBytes(kWidth, kHeight, row.bits, pixels)
                               : TgaBytes{.imageType = static_cast<uint8_t>(row.bits == 8 ? 3 : 2),
                                          .width = kWidth,
                                          .height = kHeight,
                                          .bitsPerPixel = static_cast<uint8_t>(row.bits),
                                          .descriptor = 0x20,
                                          .data = pixels}
                                     .file();
        TEXTURESLOT slot{};
        slot.opacity = make({file, row.type, row.usage, kWidth, kHeight, row.bits});
        ASSERT_NE(slot.opacity.get(), nullptr);
        slot.color = make({dibBytes(1, 1, 24, {40, 120, 200}), kDib, 0, 1, 1, 24});
        addRectangle(slot, kWidth, kHeight);
        selectDrawing();
        const Picture picture = drawFrame();
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                EXPECT_TRUE(isNear(
                    texel(picture, x, y),
                    shape[static_cast<size_t>(y * kWidth + x)] != 0 ? Pixel{200, 120, 40} : kGround,
                    2))
                    << x << ", " << y;
    }
}

TEST_F(TextureTest, GreysOpacityMapsInEveryPreparation) {
    const Bytes pixels = {255, 255, 255, 9, 0, 0, 1, 9, 100, 50, 7, 9, 1, 1, 1, 9};
    TEXTURESLOT slot{};
    slot.opacity = make({dibBytes(2, 2, 32, pixels), kDib, 1, 2, 2, 32});
    addRectangle(slot);
    FixedRenderer& renderer = selectDrawing();
    const TextureImage& image = *slot.opacity.get();
    for (int preparation = 0; preparation < 2; ++preparation) {
        prepareTextures(renderer);
        EXPECT_EQ(texelsOf(image, GL_RED, 1), (Bytes{254, 0, 52, 0}));
        mark(image); // the next preparation makes another one
    }
    EXPECT_EQ(image.bytes(), pixels);
}

TEST_F(TextureTest, MakesTexturesOnceAndOnlyForUsedMaterials) {
    TEXTURESLOT slot{};
    slot.color = make({dibBytes(1, 1, 24, {1, 2, 3}), kDib, 0, 1, 1, 24});
    slot.specular = make({dibBytes(1, 1, 8, {9}), kDib, 3, 1, 1, 8});
    slot.normalMap = make({dibBytes(1, 1, 24, {4, 5, 6}), kDib, 6, 1, 1, 24});
    slot.alternativeColor = make({dibBytes(1, 1, 24, {7, 8, 9}), kDib, 5, 1, 1, 24});
    addRectangle(slot);
    FixedRenderer& renderer = selectDrawing();
    scene_->material(0).useCount = 0;
    prepareTextures(renderer);
    EXPECT_FALSE(slot.color.get()->hasTexture());
    scene_->material(0).useCount = 1;
    scene_->material(0).bumpStrength = 1.0f; // the given normal map is enough
    prepareTextures(renderer);
    EXPECT_EQ(texelsOf(*slot.color.get(), GL_RGB, 3), (Bytes{3, 2, 1}));
    EXPECT_EQ(texelsOf(*slot.normalMap.get(), GL_RGB, 3), (Bytes{4, 5, 6}));
    EXPECT_EQ(texelsOf(*slot.specular.get(), GL_RED, 1), (Bytes{9}));
    EXPECT_FALSE(slot.alternativeColor.get()->hasTexture());
    EXPECT_EQ(this->slot().bump.get(), nullptr);
    for (const TextureImage* image : {slot.color.get(), slot.specular.get(), slot.normalMap.get()})
        mark(*image);
    prepareTextures(renderer);
    for (const TextureImage* image : {slot.color.get(), slot.specular.get(), slot.normalMap.get()})
        EXPECT_TRUE(isMarked(*image));
    EXPECT_LE(renderer.maxAnisotropy, 4.0f);
    EXPECT_EQ(glIsEnabled(GL_TEXTURE_2D), GL_FALSE);
}

TEST_F(TextureTest, MakesNormalMapsAgainWhenTheStrengthChanges) {
    const Bytes pixels = randomBytes(5 * 3 * 3, false);
    TEXTURESLOT slot{};
    slot.bump = make({dibBytes(5, 3, 24, pixels), kDib, 4, 5, 3, 24});
    addRectangle(slot);
    FixedRenderer& renderer = selectDrawing();
    const TextureImage& image = *slot.bump.get();
    prepareTextures(renderer);
    EXPECT_FALSE(image.hasTexture()) << "without a strength";
    const Image bump{.pixels = pixels, .width = 5, .height = 3, .format = ImageFormat::Rgb8};
    for (const float strength : {1.0f, 2.0f, -0.5f, 1.0f}) {
        scene_->material(0).bumpStrength = strength;
        prepareTextures(renderer);
        EXPECT_EQ(texelsOf(image, GL_RGBA, 4), normalMapOf(bump, strength).pixels);
        EXPECT_EQ(image.strength, strength);
        EXPECT_EQ(image.texture, image.textureName()) << "as the host sees it";
        mark(image);
        prepareTextures(renderer);
        EXPECT_TRUE(isMarked(image));
    }
}

TEST_F(TextureTest, CopiesColorImagesAsBumpImages) {
    const Bytes pixels = randomBytes(5 * 3 * 4, false);
    for (const int bits : {24, 32}) {
        renewScene();
        const Bytes used(pixels.begin(), pixels.begin() + 5 * 3 * bits / 8);
        TEXTURESLOT slot{};
        slot.alternativeColor = make({dibBytes(5, 3, bits, used), kDib, 5, 5, 3, bits});
        addRectangle(slot);
        scene_->material(0).bumpStrength = 1.0f; // the strength that new images have
        prepareTextures(selectDrawing());
        TextureImage* bump = liveImage(this->slot().bump.get());
        ASSERT_NE(bump, nullptr);
        EXPECT_EQ(bump->role, TextureRole::Bump);
        EXPECT_EQ(bump->pixelFormat, static_cast<unsigned>(bits == 24 ? GL_RGB : GL_RGBA));
        EXPECT_EQ(bump->bytes(), used);
        const Image source{.pixels = used,
                           .width = 5,
                           .height = 3,
                           .format = bits == 24 ? ImageFormat::Rgb8 : ImageFormat::Rgba8};
        EXPECT_EQ(texelsOf(*bump, GL_RGBA, 4), normalMapOf(source, 1.0f).pixels);
        Ptr32<TextureImage> owner{};
        owner = bump;
        releaseTextureImage(owner);
    }
}

TEST_F(TextureTest, PreparesForEveryBitmap) {
    TEXTURESLOT first{};
    first.color = make({dibBytes(1, 1, 24, {40, 120, 200}), kDib, 0, 1, 1, 24});
    addRectangle(first);
    selectDrawing();
    drawFrame();
    // The host puts another image in and marks nothing.
    slot().color = make({dibBytes(1, 1, 24, {10, 20, 30}), kDib, 0, 1, 1, 24});
    Bitmap bitmap(kViewSize, kViewSize, 24);
    renderer_->drawToBitmap(bitmap.handle());
    EXPECT_TRUE(isNear(bitmap.at(100, 100), {30, 20, 10}, 1));
}

TEST_F(TextureTest, OutlivesTheViewThatMadeTheTexture) {
    TEXTURESLOT slot{};
    slot.color = make({dibBytes(1, 1, 24, {40, 120, 200}), kDib, 0, 1, 1, 24});
    addRectangle(slot);
    selectDrawing();
    drawFrame();
    renderer_.reset();
    releaseBatchesOf(scene_->entry(0));
    context_.reset(); // the last view takes all GL objects along
    EXPECT_FALSE(slot.color.get()->hasTexture());
    GLTest::SetUp();
    scene_->entry(0).changeFlags = 1;
    selectDrawing();
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), {200, 120, 40}, 1));
}

TEST_F(TextureTest, MakesNoTextureFromTooFewPixels) {
    const Bytes tga =
        TgaBytes{.width = 2, .height = 2, .data = Bytes(12, 200)}.file(); // the call says 64 x 64
    const Bytes dib = dibBytes(2, 2, 24, Bytes(12, 200));
    for (const bool copiesBump : {false, true}) {
        renewScene();
        TEXTURESLOT slot{};
        slot.color = make({tga, kTga, 0, 64, 64, 24});
        slot.specular = make({tga, kTga, 3, 64, 64, 24});
        slot.opacity = make({dib, kDib, 1, 64, 64, 24});
        if (!copiesBump)
            slot.bump = make({dib, kDib, 4, 64, 64, 24});
        ASSERT_TRUE(slot.color && slot.specular && slot.opacity);
        addRectangle(slot);
        scene_->material(0).bumpStrength = 1.0f;
        selectDrawing();
        drawFrame();
        EXPECT_EQ(static_cast<bool>(this->slot().bump), !copiesBump);
        for (const TextureImage* image :
             {slot.color.get(), slot.specular.get(), slot.opacity.get()})
            EXPECT_FALSE(image->hasTexture());
    }
}

TEST_F(TextureTest, LeavesImagesAloneThatAreTooLargeForTheDriver) {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    TEXTURESLOT slot{};
    slot.color = make({dibBytes(largest + 1, 1, 24, Bytes(static_cast<size_t>(3 * (largest + 1)))),
                       kDib, 0, largest + 1, 1, 24});
    addRectangle(slot);
    prepareTextures(selectDrawing());
    EXPECT_FALSE(slot.color.get()->hasTexture());
    EXPECT_NE(readFile(folder_.file("ogl.log")).find("Image too large for the driver"),
              std::string::npos);
}

} // namespace
} // namespace ogl::test
