// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Model files made here, read by the real importer in its own process.
#include "host/import/ifc_names.h"
#include "host/import/import_model.h"
#include "host/import/length_unit.h"
#include "host/import/model_to_scene.h"
#include "oglview/programs.h"
#include "support/image_bytes.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

namespace {

using namespace ogl::host;
using ogl::test::TempFolder;

/// A wedge: 4 wide (x), 2 deep (y), 3 high (z) in the axes that are wanted, so that every swap or
/// mirror of axes shows in the bounds or in the winding.
constexpr const char* kWedgeYUp = R"(o wedge
v 0 0 0
v 4 0 0
v 0 3 0
v 0 0 -2
v 4 0 -2
v 0 3 -2
usemtl red
f 1 2 3
f 6 5 4
f 1 4 5 2
usemtl glass
f 1 3 6 4
f 2 5 6 3
)";
constexpr const char* kMaterials = R"(newmtl red
Kd 0.8 0.1 0.2
map_Kd bricks.png
newmtl glass
Kd 0.1 0.2 0.3
d 0.25
)";

class ModelFiles : public testing::Test {
  protected:
    void SetUp() override {
        if (!ogl::test::programReadsModels() ||
            !std::filesystem::exists(ogl::test::viewerProgram()))
            GTEST_SKIP() << "this build reads no model files";
    }
    std::string write(const std::string& name, const std::string& text) const {
        ogl::test::writeFile(folder_.file(name), text);
        return folder_.file(name);
    }
    std::string writeWedge() const {
        write("wedge.mtl", kMaterials);
        return write("wedge.obj", std::string("mtllib wedge.mtl\n") + kWedgeYUp);
    }
    static Model import(const std::string& path, const ImportOptions& options = {}) {
        Model model;
        EXPECT_EQ(importModel(ogl::test::viewerProgram(), path, options, model), "");
        return model;
    }
    TempFolder folder_;
};

Vec3 sizeOf(const Model& model) {
    const Box box = boundsOf(model);
    return box.high - box.low;
}

/// Six times the enclosed volume: positive when all triangles run counter-clockwise seen from
/// outside.
double signedVolume(const Model& model) {
    double sum = 0.0;
    for (const ModelObject& object : model.objects)
        for (const ModelPart& part : object.parts)
            for (size_t k = 0; k + 2 < part.triangles.size(); k += 3)
                sum += dot(part.positions[part.triangles[k]],
                           cross(part.positions[part.triangles[k + 1]],
                                 part.positions[part.triangles[k + 2]]));
    return sum / 6.0;
}

TEST_F(ModelFiles, BringsAxesAndUnitsToMetresWithZUp) {
    struct Row {
        const char* name;
        ImportOptions options;
        Vec3 size;
    };
    const Row rows[] = {
        {"y up, metres by size", {}, {4, 2, 3}},
        {"z up", {"", 'z', false}, {4, 3, 2}},
        {"centimetres", {"cm", 0, false}, {0.04, 0.02, 0.03}},
        {"millimetres, z up", {"mm", 'z', false}, {0.004, 0.003, 0.002}},
        {"feet", {"ft", 0, false}, {4 * 0.3048, 2 * 0.3048, 3 * 0.3048}},
        {"inches", {"in", 0, false}, {4 * 0.0254, 2 * 0.0254, 3 * 0.0254}},
    };
    const std::string path = writeWedge();
    for (const Row& row : rows) {
        const Model model = import(path, row.options);
        const Vec3 size = sizeOf(model);
        EXPECT_NEAR(size.x, row.size.x, 1e-6) << row.name;
        EXPECT_NEAR(size.y, row.size.y, 1e-6) << row.name;
        EXPECT_NEAR(size.z, row.size.z, 1e-6) << row.name;
        EXPECT_NEAR(signedVolume(model), 0.5 * row.size.x * row.size.y * row.size.z, 1e-6)
            << row.name;
        EXPECT_EQ(model.lengthUnitGuessed, row.options.lengthUnit.empty()) << row.name;
    }
}

/// A triangle in an FBX text file that names its axis and unit.
std::string triangleFbx(int upAxis, double unit) {
    return "; FBX 7.3.0 project file\nFBXHeaderExtension: { FBXVersion: 7300 }\n"
           "GlobalSettings: { Version: 1000\nProperties70: {\n"
           "P: \"UpAxis\", \"int\", \"Integer\", \"\"," +
           std::to_string(upAxis) + "\nP: \"UnitScaleFactor\", \"double\", \"Number\", \"\"," +
           std::to_string(unit) +
           "\n} }\nObjects: {\nGeometry: 11, \"Geometry::\", \"Mesh\" {\n"
           "Vertices: *9 { a: 0,0,0,300,0,0,0,200,0 }\nPolygonVertexIndex: *3 { a: 0,1,-3 }\n"
           "GeometryVersion: 124\n}\n"
           "Model: 22, \"Model::sail\", \"Mesh\" { Version: 232\n}\n}\n"
           "Connections: {\nC: \"OO\",22,0\nC: \"OO\",11,22\n}\n";
}

TEST_F(ModelFiles, FollowsAxisAndUnitThatAFileNames) {
    if (!ogl::test::programReadsModels("fbx"))
        GTEST_SKIP() << "this build reads OBJ files only";
    struct Row {
        int upAxis;
        double unit; ///< centimetres
        const char* unitName;
        Vec3 size;
    };
    for (const Row& row :
         {Row{1, 1.0, "cm", {3, 0, 2}}, Row{2, 1.0, "cm", {3, 2, 0}},
          Row{1, 2.54, "in", {7.62, 0, 5.08}}, Row{1, 5.0, "0.05 m", {15, 0, 10}}}) {
        const Model model = import(write("sail.fbx", triangleFbx(row.upAxis, row.unit)));
        EXPECT_EQ(model.lengthUnit, row.unitName);
        EXPECT_LT(length(sizeOf(model) - row.size), 1e-4) << row.upAxis << " " << row.unit;
    }
}

TEST_F(ModelFiles, SeesCurvesInFilesWithFlatNormals) {
    if (!ogl::test::programReadsModels("stl"))
        GTEST_SKIP() << "this build reads OBJ files only";
    // A cylinder of 24 flat sides, each with its own normal, as an STL file has it.
    std::string stl = "solid pipe\n";
    const auto corner = [](int side, int z) {
        const double angle = side * 2.0 * 3.14159265358979 / 24.0;
        return "vertex " + std::to_string(std::cos(angle)) + " " + std::to_string(std::sin(angle)) +
               " " + std::to_string(z) + "\n";
    };
    for (int side = 0; side < 24; ++side)
        for (const bool upper : {false, true}) {
            const double angle = (side + 0.5) * 2.0 * 3.14159265358979 / 24.0;
            stl += "facet normal " + std::to_string(std::cos(angle)) + " " +
                   std::to_string(std::sin(angle)) + " 0\nouter loop\n" + corner(side, 0) +
                   (upper ? corner(side + 1, 2) + corner(side, 2)
                          : corner(side + 1, 0) + corner(side + 1, 2)) +
                   "endloop\nendfacet\n";
        }
    const Model model = import(write("pipe.stl", stl + "endsolid pipe\n"));
    EXPECT_NEAR(sizeOf(model).z, 2.0, 1e-6) << "STL files have z up";
    SceneBuilder builder;
    const SoupReport report = addModel(builder, model);
    EXPECT_EQ(report.planarFaces, 0u);
    EXPECT_GE(report.curvedFaces, 1u);
    EXPECT_EQ(report.triangles, 48u);
}

TEST_F(ModelFiles, KeepsNamesMaterialsAndTextures) {
    const Model model = import(writeWedge());
    ASSERT_EQ(model.objects.size(), 1u);
    EXPECT_EQ(model.objects[0].name, "wedge");
    EXPECT_EQ(triangleCount(model), 8u);
    bool red = false;
    bool glass = false;
    for (const ModelPart& part : model.objects[0].parts) {
        const ModelMaterial& material = model.materials[part.material];
        if (material.name == "red") {
            red = true;
            EXPECT_NEAR(material.color[0], 0.8f, 1e-4f);
            EXPECT_NEAR(material.color[1], 0.1f, 1e-4f);
            EXPECT_EQ(material.opacity, 1.0f);
            EXPECT_EQ(material.texture, "bricks.png");
            EXPECT_EQ(part.triangles.size(), 12u);
        }
        if (material.name == "glass") {
            glass = true;
            EXPECT_NEAR(material.opacity, 0.25f, 1e-4f);
            EXPECT_EQ(material.texture, "");
            EXPECT_EQ(part.triangles.size(), 12u);
        }
    }
    EXPECT_TRUE(red && glass);
    EXPECT_EQ(model.warnings,
              std::vector<std::string>{"texture 'bricks.png' is not shown: there is no such file"});
}

/// A glTF with one triangle in the plane z = 0 as mesh 0. `parts` says what is different: the
/// nodes, the material, images.
std::string triangleGltf(const std::string& parts) {
    return R"({"asset":{"version":"2.0"},"scene":0,)" + parts +
           R"("meshes":[{"primitives":[{"attributes":{"POSITION":0,"TEXCOORD_0":1},"material":0}]}],
"accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3",
"min":[0,0,0],"max":[2,1,0]},{"bufferView":0,"componentType":5126,"count":3,"type":"VEC2"}],
"bufferViews":[{"buffer":0,"byteOffset":0,"byteLength":36}],
"buffers":[{"byteLength":36,"uri":"data:application/octet-stream;base64,)"
           // (0, 0, 0), (2, 0, 0), (0, 1, 0) as 32-bit floats
           "AAAAAAAAAAAAAAAAAAAAQAAAAAAAAAAAAAAAAAAAgD8AAAAA"
           R"("}]})";
}

TEST_F(ModelFiles, TakesPicturesFromTheModelOrBesideIt) {
    if (!ogl::test::programReadsModels("gltf"))
        GTEST_SKIP() << "this build reads OBJ files only";
    const ogl::test::Bytes beside =
        ogl::test::TgaBytes{.width = 1, .height = 1, .data = {30, 20, 10}}.file();
    write("beside.tga", std::string(beside.begin(), beside.end()));
    const auto gltf = [](const std::string& uri) {
        return triangleGltf(R"("scenes":[{"nodes":[0]}],"nodes":[{"mesh":0}],
"materials":[{"pbrMetallicRoughness":{"baseColorTexture":{"index":0}}}],
"textures":[{"source":0}],"images":[{"uri":")" +
                            uri + R"("}],)");
    };
    const struct {
        const char* name;
        std::string uri;
        ogl::test::Bytes blueGreenRed;
    } rows[] = {
        {"beside", "beside.tga", {30, 20, 10}},
        {"inside", "data:image/tga;base64,AAACAAAAAAAAAAAAAQABABgAPDIo", {60, 50, 40}},
    };
    for (const auto& row : rows) {
        const Model model = import(write("a.gltf", gltf(row.uri)));
        EXPECT_EQ(model.warnings, std::vector<std::string>{}) << row.name;
        ASSERT_EQ(model.textures.size(), 1u) << row.name;
        const auto& bytes = model.textures[0].files[0].bytes;
        EXPECT_EQ(ogl::test::Bytes(bytes.begin() + 40, bytes.begin() + 43), row.blueGreenRed);
        EXPECT_EQ(model.materials[model.objects[0].parts[0].material].textureNumber, 0);
    }
}

TEST_F(ModelFiles, AppliesNodeTransformsAndKeepsMirroredFacesOutside) {
    if (!ogl::test::programReadsModels("gltf"))
        GTEST_SKIP() << "this build reads OBJ files only";
    const Model model = import(write("nodes.gltf", triangleGltf(R"("scenes":[{"nodes":[0,1,2]}],
"nodes":[{"name":"moved","mesh":0,"translation":[10,0,0]},
{"name":"mirrored","mesh":0,"scale":[-1,1,1]},
{"name":"group","translation":[0,5,0],"children":[3]},
{"name":"turned","mesh":0,"rotation":[0,0.70710678,0,0.70710678]}],
"materials":[{"name":"leaf","doubleSided":true}],)")));
    ASSERT_EQ(model.objects.size(), 3u);
    EXPECT_EQ(model.lengthUnit, "m");
    EXPECT_FALSE(model.lengthUnitGuessed);
    struct Row {
        const char* name;
        Vec3 low;
        Vec3 high;
        Vec3 normal; ///< of the counter-clockwise triangle: the file's +z is the scene's -y
    };
    const Row rows[] = {{"moved", {10, 0, 0}, {12, 0, 1}, {0, -1, 0}},
                        {"mirrored", {-2, 0, 0}, {0, 0, 1}, {0, -1, 0}},
                        {"turned", {0, 0, 5}, {0, 2, 6}, {1, 0, 0}}};
    for (size_t k = 0; k < 3; ++k) {
        const ModelObject& object = model.objects[k];
        EXPECT_EQ(object.name, rows[k].name);
        const ModelPart& part = object.parts.at(0);
        EXPECT_TRUE(model.materials[part.material].twoSided);
        Box box;
        for (const Vec3& position : part.positions)
            box.add(position);
        EXPECT_LT(length(box.low - rows[k].low), 1e-5) << object.name;
        EXPECT_LT(length(box.high - rows[k].high), 1e-5) << object.name;
        const Vec3 a = part.positions[part.triangles[0]];
        const Vec3 normal = normalized(
            cross(part.positions[part.triangles[1]] - a, part.positions[part.triangles[2]] - a));
        EXPECT_LT(length(normal - rows[k].normal), 1e-5) << object.name;
    }
}

TEST_F(ModelFiles, BringsFarAwayModelsNear) {
    std::string text = "o far\n";
    for (const char* corner :
         {"v 400000 30 -5500000\n", "v 400009 30 -5500000\n", "v 400000 39 -5500000\n"})
        text += corner;
    const Model model = import(write("far.obj", text + "f 1 2 3\n"), {"m", 0, false});
    EXPECT_LT(std::abs(boundsOf(model).low.x), 10.0);
    EXPECT_LT(std::abs(boundsOf(model).low.y), 10.0);
    EXPECT_NEAR(boundsOf(model).low.z, 0.0, 1.0);
    EXPECT_NEAR(sizeOf(model).x, 9.0, 1e-6);
    EXPECT_LT(std::abs(model.moved.x + 400000.0), 10.0);
}

TEST_F(ModelFiles, OneLineForBrokenFiles) {
    const std::string house = "/usr/share/assimp/models/IFC/AC14-FZK-Haus.ifc";
    const std::string ifc = std::filesystem::exists(house) ? ogl::test::readFile(house) : "";
    struct Row {
        const char* name;
        std::string text;
    };
    const Row rows[] = {
        {"empty.obj", ""},
        {"empty.ifc", ""},
        {"noise.gltf", std::string(3000, '\x9b')},
        {"noise.fbx", "Kaydara FBX Binary  " + std::string(500, '\x7f')},
        {"text.txt", "just text"},
        {"without-extension", "v 0 0 0"},
        {"points.obj", "v 0 0 0\nv 1 0 0\n"},
        {"brackets.gltf", std::string(200000, '[')},
        {"header.ifc", ifc.substr(0, 600)},
        {"cut.glb", "glTF\x02"},
    };
    for (const Row& row : rows) {
        Model model;
        const std::string problem =
            importModel(ogl::test::viewerProgram(), write(row.name, row.text), {}, model);
        EXPECT_TRUE(problem.starts_with("cannot read '")) << row.name << ": " << problem;
        EXPECT_EQ(problem.find('\n'), std::string::npos) << row.name << ": " << problem;
        EXPECT_TRUE(model.objects.empty()) << row.name;
    }
}

TEST_F(ModelFiles, SurvivesABuildingCutOffAnywhere) {
    if (!ogl::test::programReadsModels("ifc"))
        GTEST_SKIP() << "this build reads OBJ files only";
    const std::string house = "/usr/share/assimp/models/IFC/AC14-FZK-Haus.ifc";
    if (!std::filesystem::exists(house))
        GTEST_SKIP() << "assimp-testmodels is not installed";
    const std::string whole = ogl::test::readFile(house);
    for (const size_t size : {whole.size() / 7, whole.size() / 3, whole.size() - 5000}) {
        Model model;
        const std::string problem = importModel(ogl::test::viewerProgram(),
                                                write("cut.ifc", whole.substr(0, size)), {}, model);
        // Part of a building or one line; nothing else.
        EXPECT_NE(problem.empty(), model.objects.empty()) << size;
        EXPECT_EQ(problem.find('\n'), std::string::npos) << problem;
    }
}

TEST_F(ModelFiles, ReadsABuildingWithoutItsSpaces) {
    if (!ogl::test::programReadsModels("ifc"))
        GTEST_SKIP() << "this build reads OBJ files only";
    const std::string house = "/usr/share/assimp/models/IFC/AC14-FZK-Haus.ifc";
    if (!std::filesystem::exists(house))
        GTEST_SKIP() << "assimp-testmodels is not installed";
    const Model model = import(house);
    const Vec3 size = sizeOf(model);
    // The garden is 18 x 16 m and 1 m deep; the ridge lies 6.32 m above the ground floor.
    EXPECT_NEAR(size.x, 18.0, 0.01);
    EXPECT_NEAR(size.y, 16.0, 0.01);
    EXPECT_NEAR(size.z, 7.32, 0.02);
    size_t windows = 0;
    for (const ModelObject& object : model.objects) {
        EXPECT_FALSE(object.name.starts_with("IfcSpace")) << object.name;
        EXPECT_FALSE(object.name.starts_with("IfcMappedItem")) << object.name;
        windows += object.name.starts_with("IfcWindow_") ? 1 : 0;
    }
    EXPECT_EQ(windows, 11u);
    EXPECT_LT(model.materials.size(), 20u) << "equal materials are one";

    ImportOptions all;
    all.keepHelpers = true;
    size_t spaces = 0;
    for (const ModelObject& object : import(house, all).objects)
        spaces += object.name.starts_with("IfcSpace") ? 1 : 0;
    EXPECT_EQ(spaces, 7u);
}

TEST_F(ModelFiles, GoesIntoASceneOnceAndWhole) {
    const Model model = import(writeWedge());
    SceneBuilder builder;
    const SoupReport report = addModel(builder, model, 10.0);
    EXPECT_EQ(report.triangles, 8u);
    EXPECT_EQ(report.planarFaces, 5u) << "no face is left in pieces";
    builder.build();
    ASSERT_EQ(builder.objectCount(), 1);
    EXPECT_EQ(builder.objectName(0), "wedge");
    const Box box = builder.bounds();
    EXPECT_NEAR(box.high.z - box.low.z, 30.0, 1e-3);
}

TEST(IfcNames, LeaveOutTheIdentification) {
    struct Row {
        const char* node;
        const char* name;
        bool element;
        bool helper;
    };
    const Row rows[] = {
        {"IfcWindow_EG-Fenster-6_1srAI$R4T8ihLXSNHmUSET", "IfcWindow_EG-Fenster-6", true, false},
        {"IfcSpace_1_3XKNTrXCz5g9BsmhXXKfBm", "IfcSpace_1", true, true},
        {"IfcSpace_a_b_c_3XK_TrXCz5g9Bsm_XXKf__", "IfcSpace_a_b_c", true, true},
        {"IfcOpeningElement_Unnamed_33$Toku5SFE2CZorHL__a9", "IfcOpeningElement_Unnamed", true,
         true},
        {"IfcSpaceHeater_x_3XKNTrXCz5g9BsmhXXKfBm", "IfcSpaceHeater_x", true, false},
        {"IfcMappedItem", "IfcMappedItem", false, false},
        {"$RelAggregates", "$RelAggregates", false, false},
        {"wall_1_2", "wall_1_2", false, false},
        {"IfcWall_short_id", "IfcWall_short_id", true, false},
        {"", "", false, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ifcElementName(row.node), row.name);
        EXPECT_EQ(isIfcElement(row.node), row.element) << row.node;
        EXPECT_EQ(isIfcHelper(row.node), row.helper) << row.node;
    }
}

TEST(LengthUnit, IsGuessedFromTheSize) {
    struct Row {
        const char* what;
        Vec3 size;
        const char* unit;
    };
    const Row rows[] = {
        {"house in metres", {12, 10, 7}, "m"},
        {"campus in metres", {95, 80, 30}, "m"},
        {"flat in cm", {1164, 820, 250}, "cm"},
        {"house in mm", {12000, 10000, 7000}, "mm"},
        {"chair in cm", {50, 63, 98}, "cm"},
        {"table in cm", {235, 100, 74}, "cm"},
        {"carpet in cm", {200, 140, 1.5}, "cm"},
        {"cup in metres", {0.1, 0.1, 0.12}, "m"},
        {"point", {0, 0, 0}, "m"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(guessLengthUnit(row.size), row.unit) << row.what;
}

} // namespace
