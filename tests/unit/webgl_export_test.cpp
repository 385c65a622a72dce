// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/webgl/webgl_exporter.h"

#include "support/scene_fixture.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace ogl::test {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

LIGHT sun(VEC3F direction, VEC3F color) {
    LIGHT light{};
    light.target = direction;
    light.color = color;
    return light;
}

std::string withWindowsLines(const std::string& text) {
    std::string result;
    for (const char c : text)
        result += c == '\n' ? "\r\n" : std::string(1, c);
    return result;
}

/// The texts between `start` and the next `end`, in order.
std::vector<std::string> allBetween(const std::string& text, const std::string& start,
                                    const std::string& end) {
    std::vector<std::string> found;
    for (size_t at = text.find(start); at != std::string::npos; at = text.find(start, at)) {
        at += start.size();
        found.push_back(text.substr(at, text.find(end, at) - at));
    }
    return found;
}

std::string between(const std::string& text, const std::string& start, const std::string& end) {
    const auto found = allBetween(text, start, end);
    return found.empty() ? "nothing after " + start : found.front();
}

class WebGLExport : public testing::Test {
  protected:
    WebGLExport() { fixture.addLight(sun({1, 2, -2}, {0.5f, 0.25f, 1.0f})); }

    std::string documentAt(const std::string& path, int width = 800, int height = 500) {
        return exporter.write(fixture.scene(), path, width, height) ? readFile(path)
                                                                    : "no document";
    }
    std::string document(int width = 800, int height = 500) {
        fixture.commit();
        return documentAt(folder.file("scene.js"), width, height);
    }
    /// A triangle with its first corner at (x, 0, 0).
    static FaceShape triangle(float x, int16_t material = 0) {
        FaceShape face;
        face.triangles = {{x, 0, 0}, {x, 1, 0}, {x + 1, 0, 0}};
        face.material = material;
        return face;
    }
    void addMaterials(int count) {
        for (int m = 0; m < count; ++m)
            fixture.addMaterial(plainMaterial());
    }

    TempFolder folder;
    SceneFixture fixture;
    WebGLExporter exporter{{"V\r\nV", "F\nF", "D\rV", "DF"}};
};

void addSmallScene(SceneFixture& fixture) {
    MATERIAL material = plainMaterial();
    material.color = {50, 100, 200};
    material.brightness = 0.3f;
    material.reflection = 0.1f;
    material.specular = 0.3f;
    material.glossiness = 0.5f;
    material.fresnel = 0.25f;
    material.opacity = 0.1f;
    fixture.addMaterial(material);
    fixture.addObject();
    FaceShape face = quad({0, 0, 0.5f}, {0, 2, 0.5f}, {2.5f, 2, 0.5f}, {2.5f, 0, 0.5f});
    face.normal = {3, 0, 4};
    face.texCoords.back() = {0.25f, 0.25f};
    fixture.addFace(face);
    GEOMETRY& g = fixture.geometry();
    g.backgroundColor = 0xc08020;
    g.lightAmbient = 0.2f;
    fixture.look({1, -7, 5}, {1, 1, 1}, 0.8);
    fixture.scene().viewWindowWidth = 16000;
    fixture.scene().viewWindowHeight = 16000;
}

/// Numbers as C's "%g" has them, separated by commas.
std::string numbers(const std::vector<double>& values) {
    std::string result;
    for (const double value : values) {
        char text[32];
        std::snprintf(text, sizeof text, "%g", value);
        if (!result.empty())
            result += ',';
        result += text;
    }
    return result;
}

/// `text` with the value of each "@name@" in its place.
std::string filledIn(std::string text, const std::map<std::string, std::string>& values) {
    for (const auto& [name, value] : values) {
        const std::string place = "@" + name + "@";
        for (size_t at; (at = text.find(place)) != std::string::npos;)
            text.replace(at, place.size(), value);
    }
    return text;
}

/// What stands in the document of the small scene, by the formulas.
std::map<std::string, std::string> valuesOfSmallScene() {
    const auto channel = [](int byte) { return (byte / 255.0 + 0.5 * 0.1) * 2.5 * 0.3; };
    const double diagonal = std::hypot(2.5, 2.0, 0.0); // of the box from (0, 0, 0.5)
    const double center[] = {1.25, 1.0, 0.5};
    const double toCenter = std::hypot(1.25 - 1, 1.0 + 7, 0.5 - 5);
    const double sight = std::hypot(8.0, 4.0); // along (0, 8, -4)
    const double distance = 1.1 * diagonal;
    const double half = 0.5 * distance;
    const double sun[] = {1 / 3.0, 2 / 3.0, -2 / 3.0};
    const double extent = 0.2 * std::tan(static_cast<double>(0.8f)) / (1.45 * 2);
    std::vector<double> lightEye;
    for (size_t i = 0; i < 3; ++i)
        lightEye.push_back(center[i] - sun[i] * distance);
    std::vector<double> normals;
    for (int vertex = 0; vertex < 6; ++vertex)
        normals.insert(normals.end(), {-3 / 5.0, -0.0, -4 / 5.0});
    return {{"positions", "0,0,0.5,0,2,0.5,2.5,2,0.5,0,0,0.5,2.5,2,0.5,2.5,0,0.5"},
            {"normals", numbers(normals)},
            {"texuvs", "0,1,1,1,1,0,0,1,1,0,0.25,0.75"},
            {"count", "6"},
            {"diffuse", numbers({channel(200), channel(100), channel(50), 0.2})},
            {"specular", numbers({0.3, std::pow(10.0, 1 + 3.1999998 * 0.5), 0.25, 0})},
            {"hasTexture", "0"},
            {"link", ""},
            {"center", numbers({1, -7 + 8 / sight * toCenter, 5 - 4 / sight * toCenter})},
            {"eye", "1,-7,5"},
            {"background", numbers({0x20 / 255.0, 0x80 / 255.0, 0xc0 / 255.0})},
            {"objectVertex", "VV"},
            {"objectFragment", "FF"},
            {"lightEye", numbers(lightEye)},
            {"lightTarget", numbers({center[0], center[1], center[2]})},
            {"halfSizes", numbers({-half, half, -half, half})},
            {"near", numbers({distance - 0.5 * diagonal})},
            {"far", numbers({distance + 0.5 * diagonal})},
            {"toLight", numbers({-sun[0], -sun[1], -sun[2]})},
            {"intensity", numbers({4 * 0.5, 4 * 0.25, 4 * 1.0})},
            {"ambient", numbers({4 * 0.2})},
            {"width", "800"},
            {"height", "500"},
            {"depthVertex", "DV"},
            {"depthFragment", "DF"},
            {"fov", "0.8"},
            {"aspect", "1.6"},
            {"extent", numbers({1.6 * extent, extent})},
            {"diagonal", numbers({distance})}};
}

TEST_F(WebGLExport, WritesEveryByteOfASmallScene) {
    addSmallScene(fixture);
    const std::string expected =
        withWindowsLines(filledIn(readFile("data/document.js"), valuesOfSmallScene()));
    const std::string written = document();
    ASSERT_FALSE(expected.empty());
    const auto [at, ignored] = std::ranges::mismatch(written, expected);
    const auto offset = static_cast<size_t>(at - written.begin());
    EXPECT_TRUE(written == expected)
        << "first difference at " << offset << ": " << written.substr(offset, 80) << "\ninstead of "
        << expected.substr(offset, 80);
}

TEST_F(WebGLExport, BlocksComeByMaterialThenByObject) {
    addMaterials(3);
    fixture.addObject();
    fixture.addFace(triangle(1, 2));
    fixture.addFace(triangle(2, 0));
    fixture.addFace(triangle(3, 2));
    fixture.addObject(0x8); // hidden
    fixture.addFace(triangle(4, 0));
    fixture.addObject();
    fixture.addFace(triangle(5, 0));
    fixture.addFace(triangle(6, 1));
    fixture.commit();
    fixture.material(1).useCount = 0;
    const std::string text = documentAt(folder.file("scene.js"));
    const std::vector<std::string> expected = {
        "2,0,0,2,1,0,3,0,0", "5,0,0,5,1,0,6,0,0", "1,0,0,1,1,0,2,0,0,3,0,0,3,1,0,4,0,0",
        "\t -0.5,-0.5, height,  -0.5,1.5, height,  2.5,-0.5, height,     2.5,-0.5, height,  "
        "-0.5,1.5, height,  2.5,1.5, height"};
    EXPECT_EQ(allBetween(text, "object.vertices=[", "]"), expected);
    EXPECT_EQ(allBetween(text, "object.numVertices=", ";"),
              (std::vector<std::string>{"3", "3", "6", "6"}));
    // Of the object cache only its count matters.
    fixture.view().objectCache.data = nullptr;
    EXPECT_EQ(documentAt(folder.file("scene.js")), text);
    fixture.view().objectCache.count = 1;
    EXPECT_EQ(allBetween(documentAt(folder.file("scene.js")), "object.numVertices=", ";"),
              (std::vector<std::string>{"3", "6", "6"}));
}

TEST_F(WebGLExport, TextureCoordinatesTurnUpsideDownAndNeverLeaveTheirList) {
    addMaterials(1);
    fixture.addObject();
    fixture.addFace(triangle(0));
    FaceShape textured = triangle(1);
    textured.texCoords = {{0.25f, 0.25f}, {-3, 2}, {7, 0}};
    fixture.addFace(textured);
    fixture.commit();
    const auto coords = [&] {
        return between(documentAt(folder.file("scene.js")), "object.texuvs=[", "]");
    };
    EXPECT_EQ(coords(), "0,0,0,0,0,0,0.25,0.75,-3,-1,7,1");
    fixture.face(1).texCoordIndex = 2;
    EXPECT_EQ(coords(), "0,0,0,0,0,0,7,1,0,0,0,0");
    fixture.face(1).texCoordIndex = std::numeric_limits<int32_t>::max();
    EXPECT_EQ(coords(), "0,0,0,0,0,0,0,0,0,0,0,0");
}

TEST_F(WebGLExport, MaterialArraysFollowTheRecord) {
    struct Row {
        const char* name;
        float brightness, reflection, opacity;
        const char* diffuse;
    };
    const Row rows[] = {
        {"as given", 0.4f, 0.0f, 1.0f, "1,1,1,1"},
        {"half bright", 0.2f, 0.0f, 0.0f, "0.5,0.5,0.5,0"},
        {"too faint", 0.2f, 0.0f, 0.1f, "0.5,0.5,0.5,0.2"},
        {"mirror", 0.2f, 0.5f, 0.2f, "0.625,0.625,0.625,0.2"},
        {"too bright", 9.0f, 1.0f, 0.3f, "1,1,1,0.3"},
        {"no number", kNaN, 0.0f, kInfinity, "1,1,1,0"},
    };
    addMaterials(1);
    fixture.addObject();
    fixture.addFace(triangle(0));
    fixture.commit();
    MATERIAL& material = fixture.material(0);
    for (const Row& row : rows) {
        material.brightness = row.brightness;
        material.reflection = row.reflection;
        material.opacity = row.opacity;
        const std::string text = documentAt(folder.file("scene.js"));
        EXPECT_EQ(between(text, "object.diffuseMat=[", "]"), row.diffuse) << row.name;
    }
    material.specular = 0.5f;
    material.glossiness = 1.0f;
    material.fresnel = 0.125f;
    EXPECT_EQ(between(documentAt(folder.file("scene.js")), "object.specularMat=[", "]"),
              "0.5,15848.9,0.125,0");
}

TEST_F(WebGLExport, LinksTexturesThatLieBesideTheDocument) {
    MATERIAL shared = plainMaterial();
    shared.textureIndex = 3;
    fixture.addMaterial(plainMaterial());
    fixture.addMaterial(shared);
    fixture.addMaterial(shared);
    fixture.addObject();
    for (int16_t m = 0; m < 3; ++m)
        fixture.addFace(triangle(m, m));
    fixture.commit();
    std::filesystem::create_directories(folder.file("Sessions/S1"));
    for (const char* name : {"tex0.png", "dec1.png", "tex2.png"})
        writeFile(folder.file("Sessions/S1/" + std::string(name)), "a picture");
    writeFile(folder.file("Sessions/dec2.png"), "a picture");
    std::vector<std::string> flags = {"1", "1", "0", "0"};
    std::vector<std::string> links = {"\"Sessions/S1/tex0.png\"", "\"Sessions/S1/dec1.png\"",
                                      "\"\"", "null"};
    const auto expectLinks = [&](const std::string& path, const char* what) {
        ASSERT_TRUE(exporter.write(fixture.scene(), path, 8, 8)) << what;
        const std::string text = readFile(folder.file("Sessions/S1/scene.js"));
        EXPECT_EQ(allBetween(text, "\nobject.hasDiffuseTex=", ";"), flags) << what;
        EXPECT_EQ(allBetween(text, "object.diffuseTexFN=", ";"), links) << what;
        std::filesystem::remove(folder.file("Sessions/S1/scene.js"));
    };
    expectLinks(folder.hostFile("Sessions\\S1\\scene.js"), "backslashes");
    std::string slashes = folder.file("Sessions/S1/scene.js");
    std::ranges::replace(slashes, '\\', '/');
    expectLinks(slashes, "slashes");
    {
        const ScopedCurrentDirectory there(folder.file("Sessions/S1"));
        expectLinks("scene.js", "a bare name");
    }
    // Where there is a backslash, the last one ends the folder.
    flags = {"0", "0", "1", "0"};
    links = {"\"\"", "\"\"", "\"Sessions/Sessions/dec2.png\"", "null"};
    expectLinks(folder.hostFile("Sessions") + "\\S1/scene.js", "both");
}

TEST_F(WebGLExport, HoldsNoNumberThatAScriptCannotRead) {
    addMaterials(1);
    fixture.addObject();
    fixture.commit();
    GEOMETRY& g = fixture.geometry();
    const auto expectReadable = [&](const char* what, int width = 8, int height = 8) {
        const std::string text = documentAt(folder.file("scene.js"), width, height);
        EXPECT_GT(text.size(), 5000u) << what;
        for (const char* word : {"nan", "inf", "NaN"})
            EXPECT_EQ(text.find(word), std::string::npos) << what << ": " << word;
        return text;
    };
    expectReadable("nothing visible");
    g.eye = g.target;
    const std::string text = expectReadable("no line of sight");
    EXPECT_EQ(between(text, "sceneCenter=vec3.fromValues(", ")"),
              between(text, "\neyeVec=vec3.fromValues(", ")"));
    g.fieldOfView = std::numeric_limits<double>::quiet_NaN();
    g.eye = {kInfinity, 0, 0};
    expectReadable("no camera");
    g.eye = {1, 2, 3};
    g.lights.count = 0;
    const std::string dark = expectReadable("no lights");
    EXPECT_EQ(between(dark, "objPrg.lightDir, ", ")"), "-0,-0,1");
    EXPECT_EQ(between(dark, "objPrg.lightIntensity, ", ")"), "0,0,0");
    const std::string flat = expectReadable("no size", 640, 0);
    EXPECT_EQ(between(flat, "viewAspect=", ";"), "1");
}

TEST_F(WebGLExport, VertexNormalsAreWrittenAsStoredUnlessTheyAreTooShort) {
    addMaterials(1);
    fixture.addObject();
    FaceShape face = triangle(0);
    face.normals = {{0, 0, 2}, {0, 0, 0}, {0, 0.000009f, 0}};
    face.normal = {3, 0, 4};
    fixture.addFace(face);
    EXPECT_EQ(between(document(), "object.normals=[", "]"), "0,0,2,-3,-0,-4,-3,-0,-4");
}

TEST_F(WebGLExport, LeavesOutFacesWithoutFiniteCorners) {
    addMaterials(1);
    fixture.addObject();
    for (float bad : {kNaN, kInfinity, -kInfinity}) {
        FaceShape face = triangle(1);
        face.triangles[1].y = bad;
        fixture.addFace(face);
    }
    fixture.addFace(triangle(2));
    const std::string text = document();
    EXPECT_EQ(between(text, "object.vertices=[", "]"), "2,0,0,2,1,0,3,0,0");
    EXPECT_EQ(between(text, "\"bboxDiag:\", ", ")"), "1.55563"); // 1.1 sqrt(2)
}

} // namespace
} // namespace ogl::test
