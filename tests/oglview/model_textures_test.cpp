// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/model_textures.h"

#include "host/import/model_files.h"
#include "host/import/model_to_scene.h"
#include "support/image_bytes.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace ogl::host;
using ogl::test::Bytes;
using ogl::test::dibBytes;
using ogl::test::TempFolder;
using ogl::test::writeFile;

/// 1 x 2 pixels; the lower one is transparent in "leaf".
std::string pictures(const std::string& name, DecodedImage& image) {
    image.width = 1;
    image.height = 2;
    if (name == "brick")
        image.pixels = {1, 2, 3, 255, 4, 5, 6, 255};
    else if (name == "leaf")
        image.pixels = {1, 2, 3, 255, 4, 5, 6, 64};
    else if (name == "grey")
        image.pixels = {30, 60, 90, 255, 0, 0, 6, 255};
    else
        return "no such thing";
    return {};
}

ModelMaterial material(const std::string& color, const std::string& opacity = {},
                       const std::string& normals = {}, AlphaUse alphaUse = AlphaUse::CutOut) {
    ModelMaterial result;
    result.texture = color;
    result.alphaTexture = opacity;
    result.normalTexture = normals;
    result.alphaUse = alphaUse;
    return result;
}

const TextureFile* fileOf(const Texture& texture, TextureUsage usage) {
    for (const TextureFile& file : texture.files)
        if (file.usage == usage)
            return &file;
    return nullptr;
}

TEST(ModelTextures, AreBitmapsAsTheLibraryTakesThem) {
    const Bytes brick = dibBytes(1, 2, 24, {3, 2, 1, 6, 5, 4});
    const Bytes opaqueLeaf = brick;
    const Bytes blendedLeaf = dibBytes(1, 2, 32, {3, 2, 1, 255, 6, 5, 4, 64});
    const struct {
        const char* name;
        ModelMaterial material;
        Bytes color;
        Bytes opacity; ///< empty: none
        bool blended;
    } rows[] = {
        {"opaque", material("brick"), brick, {}, false},
        {"cut out by its alpha", material("leaf"), opaqueLeaf, {255, 64}, false},
        {"alpha not used", material("leaf", "", "", AlphaUse::None), opaqueLeaf, {}, false},
        {"blended", material("leaf", "", "", AlphaUse::Blend), blendedLeaf, {}, true},
        {"nothing to blend", material("brick", "", "", AlphaUse::Blend), brick, {}, false},
        {"cut out by another's brightness", material("brick", "grey"), brick, {60, 2}, false},
        {"cut out by another's alpha", material("brick", "leaf"), brick, {255, 64}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Model model;
        model.materials = {row.material};
        addTextures(pictures, model);
        ASSERT_EQ(model.materials[0].textureNumber, 0);
        EXPECT_EQ(model.materials[0].alphaTextured, row.blended);
        const TextureFile* color = fileOf(model.textures[0], TextureUsage::Color);
        ASSERT_NE(color, nullptr);
        EXPECT_EQ(color->bitsPerPixel, row.blended ? 32 : 24);
        // Padding is nobody's business.
        Bytes bytes = color->bytes;
        for (const size_t padding : {43, 47})
            if (!row.blended)
                bytes[padding] = 0xee;
        EXPECT_EQ(bytes, row.color);
        const TextureFile* opacity = fileOf(model.textures[0], TextureUsage::Opacity);
        ASSERT_EQ(opacity != nullptr, !row.opacity.empty());
        if (opacity != nullptr) {
            EXPECT_EQ(opacity->bytes[44], row.opacity[0]); // the upper row comes last
            EXPECT_EQ(opacity->bytes[40], row.opacity[1]);
        }
    }
}

TEST(ModelTextures, HandNormalMapsOverInTheirOwnOrder) {
    Model model;
    model.materials = {material("brick", "", "grey")};
    addTextures(pictures, model);
    const TextureFile* normals = fileOf(model.textures.at(0), TextureUsage::NormalMap);
    ASSERT_NE(normals, nullptr);
    EXPECT_EQ(normals->type, TextureFileType::Tga);
    DecodedImage image;
    ASSERT_EQ(decodeImage(normals->bytes, image), "");
    EXPECT_EQ(image.height, 2);
    EXPECT_EQ(image.pixels, (Bytes{30, 60, 90, 255, 0, 0, 6, 255}));
}

TEST(ModelTextures, AreSharedAndMissedOnce) {
    Model model;
    model.materials = {material("brick"),        material("none"), material("leaf"),
                       material("brick"),        material(""),     material("none", "brick"),
                       material("brick", "none")};
    addTextures(pictures, model);
    const int expected[] = {0, kNone, 1, 0, kNone, kNone, 2};
    for (size_t k = 0; k < std::size(expected); ++k)
        EXPECT_EQ(model.materials[k].textureNumber, expected[k]) << k;
    EXPECT_EQ(model.warnings,
              std::vector<std::string>{"texture 'none' is not shown: no such thing"});

    SceneBuilder builder;
    builder.addTexture({"before", {}});
    addModel(builder, model);
    ASSERT_EQ(builder.textures().size(), 4u);
    EXPECT_EQ(builder.textures()[2].name, "leaf");
    // Lit pictures double what a texture multiplies.
    const auto* records =
        static_cast<const ogl::MATERIAL*>(builder.build()->geometry.materials.data.get());
    for (size_t k = 0; k < std::size(expected); ++k)
        EXPECT_EQ(records[k].brightness, expected[k] == kNone ? 0.4f : 0.2f) << k;
}

TEST(ImageDecoder, ReadsBitmapsAndRefusesOthers) {
    const Bytes dib = dibBytes(3, 1, 24, {3, 2, 1, 6, 5, 4, 9, 8, 7});
    Bytes bmp = {'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0};
    bmp.reserve(bmp.size() + dib.size());
    for (const uint8_t byte : dib)
        bmp.push_back(byte);
    DecodedImage image;
    ASSERT_EQ(decodeImage(bmp, image), "");
    EXPECT_EQ(image.width, 3);
    EXPECT_EQ(image.pixels, (Bytes{1, 2, 3, 255, 4, 5, 6, 255, 7, 8, 9, 255}));
    EXPECT_FALSE(image.hasAlpha());
    EXPECT_NE(decodeImage({}, image), "");
    EXPECT_NE(decodeImage(Bytes(100, 'x'), image), "");
}

TEST(ModelFileNames, AreFoundAsModelsNameThem) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.file("maps"));
    writeFile(folder.file("maps/My Wall.JPG"), "wall");
    writeFile(folder.file("floor.png"), "floor");
    const struct {
        const char* name;
        const char* content; ///< empty: not found
    } rows[] = {
        {"maps/My Wall.JPG", "wall"},
        {"maps\\My Wall.JPG", "wall"},
        {"maps/my wall.jpg", "wall"},
        {"maps/My%20Wall.JPG", "wall"},
        {"floor.png", "floor"},
        {"D:\\work\\textures\\floor.png", "floor"},
        {"/home/someone/Floor.PNG", "floor"},
        {"roof.png", ""},
        {"maps", ""},
        {"", ""},
    };
    for (const auto& row : rows) {
        std::vector<uint8_t> bytes;
        const std::string problem = readModelFile(folder.path(), row.name, bytes);
        EXPECT_EQ(problem.empty(), *row.content != '\0') << row.name << ": " << problem;
        EXPECT_EQ(std::string(bytes.begin(), bytes.end()), row.content) << row.name;
    }
}

} // namespace
