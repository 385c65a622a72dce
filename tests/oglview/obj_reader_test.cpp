// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The reader of builds without the large importer, in this process.
#include "host/import/obj_reader.h"

#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace ogl::host;

class ObjReader : public testing::Test {
  protected:
    std::string read(const std::string& text) {
        const std::string path = folder_.file("model.obj");
        ogl::test::writeFile(path, text);
        return readObj(path, {"m", 'z', false}, model);
    }
    void writeMaterials(const std::string& text) const {
        ogl::test::writeFile(folder_.file("model.mtl"), text);
    }
    Model model;

  private:
    ogl::test::TempFolder folder_;
};

/// The area of a model's triangles, seen from +z; those that run clockwise count negative.
double areaFromAbove(const Model& model) {
    double sum = 0.0;
    for (const ModelObject& object : model.objects)
        for (const ModelPart& part : object.parts)
            for (size_t k = 0; k + 2 < part.triangles.size(); k += 3) {
                const Vec3 a = part.positions[part.triangles[k]];
                sum += 0.5 * cross(part.positions[part.triangles[k + 1]] - a,
                                   part.positions[part.triangles[k + 2]] - a)
                                 .z;
            }
    return sum;
}

TEST_F(ObjReader, TakesFacesAsFilesWriteThem) {
    const std::string square = "v 0 0 0\nv 2 0 0\nv 2 2 0\nv 0 2 0\n";
    const std::string arrow = "v 0 0 0\nv 4 0 0\nv 4 4 0\nv 3 1 0\n"; // concave at its last corner
    const struct {
        const char* name;
        std::string text;
        double area;
    } rows[] = {
        {"polygon", square + "f 1 2 3 4\n", 4.0},
        {"counted from the end", square + "f -4 -3 -2 -1\n", 4.0},
        {"concave", arrow + "f 1 2 3 4\n", 4.0},
        {"carriage returns", "v 0 0 0\r\nv 2 0 0\r\nv 0 2 0\r\nf 1 2 3\r\n", 2.0},
        {"with texture and normal numbers",
         square + "vt 0 0\nvn 0 0 1\nf 1/1/1 2/1/1 3/1/1\nf 1//1 3//1 4//1\n", 4.0},
        {"a corner that is no number", square + "v nan 0 0\nf 1 2 3\nf 1 2 5\n", 2.0},
        {"a corner that is not there", square + "f 1 2 3\nf 1 2 9\n", 2.0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(read(row.text), "") << row.name;
        EXPECT_NEAR(areaFromAbove(model), row.area, 1e-9) << row.name;
    }
}

TEST_F(ObjReader, PartsFollowMaterialsAndObjectsFollowNames) {
    writeMaterials("newmtl oak\nKd 0.5 0.25 0.125\nKs 0.3 0.3 0.3\nKe 0.2 0.4 0.6\nd 0.5\n"
                   "map_d leaf.png\nnewmtl bent\nKd 7 nan -1\n");
    const std::string corners = "mtllib model.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0\n";
    ASSERT_EQ(read(corners + "o table\nusemtl oak\nf 1 2 3\nusemtl bent\nf 2 4 3\nusemtl oak\n"
                             "f 1 2 4\no chair\nf 1 4 3\n"),
              "");
    ASSERT_EQ(model.objects.size(), 2u);
    EXPECT_EQ(model.objects[0].name, "table");
    EXPECT_EQ(model.objects[1].name, "chair");
    ASSERT_EQ(model.objects[0].parts.size(), 2u);
    const ModelPart& first = model.objects[0].parts[0];
    EXPECT_EQ(first.triangles.size(), 6u);
    const ModelMaterial& oak = model.materials[first.material];
    EXPECT_EQ(oak.name, "oak");
    EXPECT_NEAR(oak.color[1], 0.25f, 1e-6f);
    EXPECT_NEAR(oak.specular, 0.3f, 1e-6f);
    EXPECT_NEAR(oak.emission, 0.4f, 1e-6f);
    EXPECT_NEAR(oak.opacity, 0.5f, 1e-6f);
    EXPECT_EQ(oak.alphaTexture, "leaf.png");
    EXPECT_EQ(model.materials[model.objects[1].parts[0].material].name, "oak");
    for (const float channel : model.materials[model.objects[0].parts[1].material].color)
        EXPECT_TRUE(channel >= 0.0f && channel <= 1.0f) << channel;
    EXPECT_EQ(model.warnings,
              std::vector<std::string>{"texture 'leaf.png' is not shown: there is no such file"});
}

TEST_F(ObjReader, KeepsNormalsThatSaySomething) {
    const std::string corners = "v 0 0 0\nv 1 0 0\nv 0 1 0\nvn 0 0 5\nvn 1 0 1\nvn 0 0 0\n";
    const struct {
        const char* name;
        const char* face;
        size_t normals;
    } rows[] = {
        {"flat", "f 1//1 2//1 3//1\n", 0},
        {"smooth", "f 1//1 2//2 3//1\n", 9},
        {"one missing", "f 1//1 2//2 3\n", 0},
        {"one without length", "f 1//1 2//2 3//3\n", 0},
    };
    for (const auto& row : rows) {
        ASSERT_EQ(read(corners + row.face), "") << row.name;
        const ModelPart& part = model.objects[0].parts[0];
        EXPECT_EQ(part.normals.size(), row.normals) << row.name;
        if (row.normals != 0) {
            EXPECT_NEAR(part.normals[3], std::sqrt(0.5f), 1e-6f) << "unit length";
        }
    }
}

TEST_F(ObjReader, SaysWhatIsMissing) {
    EXPECT_NE(read("v 0 0 0\nv 1 0 0\n"), "");
    EXPECT_TRUE(model.objects.empty());
    ASSERT_EQ(read("mtllib none.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n"), "");
    ASSERT_EQ(model.warnings.size(), 1u);
    EXPECT_NE(model.warnings[0].find("none.mtl"), std::string::npos) << model.warnings[0];
}

// Under the sanitizers: a file that ends anywhere gives a model or one line.
TEST_F(ObjReader, SurvivesAFileCutOffAnywhere) {
    writeMaterials("newmtl a\nKd 1 0 0\n");
    const std::string whole = "mtllib model.mtl\no a\nv 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0\nvt 0 1\n"
                              "vn 0 0 1\nusemtl a\ns 1\nf 1/1/1 2/1/1 4/1/1 3/1/1\ng b c\nl 1 2\n"
                              "f -1//-1 -2//-1 -3//-1\n";
    for (size_t size = 0; size <= whole.size(); ++size) {
        const std::string problem = read(whole.substr(0, size));
        EXPECT_NE(problem.empty(), model.objects.empty()) << size;
        EXPECT_EQ(problem.find('\n'), std::string::npos) << problem;
    }
}

} // namespace
