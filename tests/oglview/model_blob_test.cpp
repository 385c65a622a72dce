// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/model_blob.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace ogl::host;

Model smallModel() {
    Model model;
    model.format = "a format";
    model.lengthUnit = "cm";
    model.lengthUnitGuessed = true;
    model.moved = {1, 2, 3};
    ModelMaterial glass;
    glass.name = "Glas";
    glass.color = {0.25f, 0.5f, 1.0f};
    glass.opacity = 0.5f;
    glass.emission = 0.125f;
    glass.specular = 0.75f;
    glass.twoSided = true;
    glass.texture = "pane.png";
    glass.alphaTexture = "mask.png";
    glass.normalTexture = "bumps.png";
    glass.alphaUse = AlphaUse::Blend;
    glass.textureNumber = 0;
    glass.alphaTextured = true;
    model.textures = {{"pane",
                       {{TextureUsage::Color, TextureFileType::Dib, 3, 2, 32, {1, 2, 3}},
                        {TextureUsage::NormalMap, TextureFileType::Tga, 1, 1, 24, {4}}}},
                      {"none", {}}};
    model.warnings = {"a texture is missing", "another one, too"};
    model.materials = {ModelMaterial{}, glass};
    ModelPart part;
    part.material = 1;
    part.positions = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1.5}};
    part.normals = std::vector<float>(12, 0.5f);
    part.texCoords = std::vector<float>(8, 0.25f);
    part.triangles = {0, 1, 2, 0, 2, 3};
    ModelPart bare;
    bare.positions = {{5, 5, 5}, {6, 5, 5}, {5, 6, 5}};
    bare.triangles = {2, 1, 0};
    model.objects = {{"pane", {part, bare}}, {"Wand-Ext-ERDG-1", {bare}}};
    return model;
}

TEST(ModelBlob, BringsEverythingAcross) {
    const Model sent = smallModel();
    Model got;
    ASSERT_EQ(unpackModel(packModel(sent), got), "");
    EXPECT_EQ(got.format, sent.format);
    EXPECT_EQ(got.lengthUnit, sent.lengthUnit);
    EXPECT_EQ(got.lengthUnitGuessed, sent.lengthUnitGuessed);
    EXPECT_EQ(got.moved.z, 3.0);
    EXPECT_EQ(got.materials, sent.materials);
    EXPECT_EQ(got.warnings, sent.warnings);
    ASSERT_EQ(got.textures.size(), 2u);
    ASSERT_EQ(got.textures[0].files.size(), 2u);
    EXPECT_EQ(got.textures[0].files[1].usage, TextureUsage::NormalMap);
    EXPECT_EQ(got.textures[0].files[0].bytes, (std::vector<uint8_t>{1, 2, 3}));
    ASSERT_EQ(got.objects.size(), sent.objects.size());
    // Packing again gives the same bytes, so nothing got lost on the way.
    EXPECT_EQ(packModel(got), packModel(sent));
    EXPECT_EQ(got.objects[0].parts[0].positions[3].z, 1.5);
    EXPECT_EQ(got.objects[1].name, "Wand-Ext-ERDG-1");
}

TEST(ModelBlob, BringsAFailureAcross) {
    Model model = smallModel();
    EXPECT_EQ(unpackModel(packFailure("no such thing"), model), "no such thing");
    EXPECT_TRUE(model.objects.empty());
}

TEST(ModelBlob, RefusesEveryTruncation) {
    const std::vector<std::byte> whole = packModel(smallModel());
    Model model;
    for (size_t size = 0; size < whole.size(); ++size) {
        EXPECT_NE(unpackModel(std::span(whole).first(size), model), "") << size << " bytes";
        EXPECT_TRUE(model.objects.empty() && model.materials.empty());
    }
    std::vector<std::byte> longer = whole;
    longer.push_back(std::byte{0});
    EXPECT_NE(unpackModel(longer, model), "");
}

TEST(ModelBlob, SurvivesEveryByteBeingWrong) {
    const std::vector<std::byte> whole = packModel(smallModel());
    for (size_t k = 0; k < whole.size(); ++k)
        for (const std::byte wrong : {std::byte{0xff}, std::byte{0x80}, std::byte{0}}) {
            std::vector<std::byte> bytes = whole;
            bytes[k] = wrong;
            Model model;
            if (!unpackModel(bytes, model).empty())
                continue;
            for (const ModelObject& object : model.objects)
                for (const ModelPart& part : object.parts) {
                    ASSERT_LT(part.material, model.materials.size());
                    for (const uint32_t vertex : part.triangles)
                        ASSERT_LT(vertex, part.positions.size());
                }
        }
}

TEST(ModelBlob, RefusesContradictions) {
    struct Row {
        const char* name;
        void (*spoil)(Model&);
    };
    const Row rows[] = {
        {"material out of range", [](Model& m) { m.objects[0].parts[0].material = 2; }},
        {"vertex out of range", [](Model& m) { m.objects[0].parts[0].triangles[1] = 4; }},
        {"part of a triangle", [](Model& m) { m.objects[0].parts[0].triangles.pop_back(); }},
        {"normals missing", [](Model& m) { m.objects[0].parts[0].normals.pop_back(); }},
        {"coordinates missing", [](Model& m) { m.objects[0].parts[0].texCoords.resize(3); }},
        {"no number", [](Model& m) { m.objects[0].parts[0].positions[2].y = std::nan(""); }},
        {"endless",
         [](Model& m) {
             m.objects[0].parts[0].normals[0] = std::numeric_limits<float>::infinity();
         }},
        {"opacity", [](Model& m) { m.materials[1].opacity = 1.5f; }},
        {"texture out of range", [](Model& m) { m.materials[1].textureNumber = 2; }},
        {"negative texture", [](Model& m) { m.materials[1].textureNumber = -2; }},
        {"image beside its slot",
         [](Model& m) { m.textures[0].files[0].usage = static_cast<TextureUsage>(7); }},
        {"image without width", [](Model& m) { m.textures[0].files[0].width = 0; }},
        {"colour", [](Model& m) { m.materials[1].color[2] = -0.5f; }},
    };
    for (const Row& row : rows) {
        Model model = smallModel();
        row.spoil(model);
        Model got;
        EXPECT_NE(unpackModel(packModel(model), got), "") << row.name;
    }
}

} // namespace
