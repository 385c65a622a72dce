// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The shadowed renderer's plans, files and skies.
#include "gl/shadow_fixture.h"
#include "support/temp_folder.h"

#include <cmath>
#include <cstring>
#include <filesystem>

namespace ogl::test {
namespace {

class ShadowOutputTest : public ShadowTest {
  protected:
    /// The bytes of the file that the renderer draws.
    std::string drawnFile(Renderer& renderer) {
        renderer.setSize(kViewSize, kViewSize);
        renderer.setupCamera(scene_->scene());
        glReadBuffer(GL_BACK);
        glDrawBuffer(GL_BACK);
        EXPECT_EQ(renderer.drawToFile(folder_.hostFile("frame.bmp").c_str()), 1);
        return readFile(folder_.file("frame.bmp"));
    }
    /// The pixel of a file's row, counted as they are stored.
    static Pixel storedPixel(const std::string& file, int x, int row) {
        const auto at = static_cast<size_t>(54 + (row * kViewSize + x) * 3);
        const auto byte = [&](size_t i) {
            return static_cast<int>(static_cast<uint8_t>(file[at + i]));
        };
        return {byte(2), byte(1), byte(0)};
    }
};

int wordAt(const std::string& file, size_t at) {
    uint32_t value = 0;
    std::memcpy(&value, file.data() + at, sizeof value);
    return static_cast<int>(value);
}

TEST_F(ShadowOutputTest, FilesStoreTheTopRowFirstAndAreLitByTheSun) {
    MATERIAL shiny = plainMaterial();
    shiny.color = {60, 120, 200};
    shiny.reflection = 0.2f; // adds a tenth to every channel
    const auto mirror = static_cast<int16_t>(scene_->addMaterial(shiny));
    scene_->addObject();
    scene_->addFace(plate(-9, 1, 9, 9));              // the upper half of the frame
    scene_->addFace(plate(-9, -9, 9, -1, 0, mirror)); // and the lower
    setSun({1, 0, -1});
    const std::string file = drawnFile(selectShadow(kDrawFullQuality));
    ASSERT_EQ(file.size(), 54u + kViewSize * kViewSize * 3);
    EXPECT_EQ(file.substr(0, 2), "BM");
    EXPECT_EQ(wordAt(file, 2), static_cast<int>(file.size()));
    EXPECT_EQ(wordAt(file, 10), 54);
    EXPECT_EQ(wordAt(file, 18), kViewSize);
    EXPECT_EQ(wordAt(file, 22), kViewSize); // positive
    const auto light = [](float channel, float sun) {
        const float lit = channel * (0.4f + sun * std::sqrt(0.5f));
        return static_cast<int>(std::lround(std::min(lit, 1.0f) * 255));
    };
    const Pixel white{light(1, kSunColor.x), light(1, kSunColor.y), light(1, kSunColor.z)};
    const Pixel mirrored{light(200 / 255.0f + 0.1f, kSunColor.x),
                         light(120 / 255.0f + 0.1f, kSunColor.y),
                         light(60 / 255.0f + 0.1f, kSunColor.z)};
    EXPECT_TRUE(isNear(storedPixel(file, 100, 40), white, 2)) << storedPixel(file, 100, 40).red;
    EXPECT_TRUE(isNear(storedPixel(file, 100, 160), mirrored, 2));
    EXPECT_TRUE(isNear(storedPixel(file, 100, 100), kBackground, 1));
    EXPECT_TRUE(isNear(storedPixel(file, 2, 2), kBackground, 1));
}

TEST_F(ShadowOutputTest, FilesThatCannotBeWrittenLeaveNothing) {
    scene_->addObject();
    scene_->addFace(plate(-9, -9, 9, 9));
    ShadowRenderer& renderer = selectShadow(kDrawFullQuality);
    renderer.setSize(kViewSize, kViewSize);
    renderer.setupCamera(scene_->scene());
    const std::string path = folder_.hostFile("missing\\frame.bmp");
    EXPECT_EQ(renderer.drawToFile(path.c_str()), 1);
    EXPECT_FALSE(std::filesystem::exists(folder_.file("missing")));
    EXPECT_NE(readFile(folder_.file("ogl.log")).find("Cannot write the file"), std::string::npos);
    renderer.setSize(0, kViewSize);
    EXPECT_EQ(renderer.drawToFile(folder_.hostFile("empty.bmp").c_str()), 1);
    EXPECT_FALSE(std::filesystem::exists(folder_.file("empty.bmp")));
}

TEST_F(ShadowOutputTest, WindowsShowSilhouettesAgainAfterAFile) {
    scene_->addObject();
    FaceShape face = plate(-6, -6, 6, 6);
    face.loops[0].style.pen = 0; // half opaque: outlined as a silhouette
    face.loops[0].style.penNumber = kLoopNoPen;
    scene_->addFace(face);
    ShadowRenderer& renderer = selectShadow(kDrawFullQuality);
    renderer.choices.edgeMode = EdgeMode::Visible;
    const Picture before = drawFrame();
    renderer.choices.edgeMode = EdgeMode::None;
    renderer.choices.drawFaces = false;
    drawnFile(renderer);
    renderer.choices.edgeMode = EdgeMode::Visible;
    renderer.choices.drawFaces = true;
    const Picture after = drawFrame();
    EXPECT_EQ(differences(before, after, kViewSize, kViewSize), 0);
}

TEST_F(ShadowOutputTest, FilesShowTheSceneAfterAPreview) {
    scene_->addObject();
    scene_->addFace(plate(-6, -6, 6, 6));
    ShadowRenderer& renderer = selectShadow(kDrawFullQuality);
    const std::string before = drawnFile(renderer);
    scene_->view().previewMode = 1;
    scene_->view().preview.changeFlags = 1;
    drawFrame();
    EXPECT_TRUE(drawnFile(renderer) == before) << "during the preview";
    drawFrame();
    scene_->view().previewMode = 0;
    releaseBatchesOf(scene_->view().preview);
    EXPECT_TRUE(drawnFile(renderer) == before) << "after it";
}

TEST_F(ShadowOutputTest, PlansShowTheSiteFromAbove) {
    scene_->addObject();
    scene_->addFace(plate(2, 1, 6, 4, 3));
    scene_->addFace(plate(14, 7, 15, 8, -2));
    scene_->scene().siteWidth = 20000;
    scene_->scene().siteDepth = 10000;
    scene_->geometry().flags = kGeometryPlanView;
    scene_->look({50, 50, 1}, {60, 60, 1}, 1.0); // looks elsewhere: a plan has its own camera
    setSun({1, 0, -1});
    ShadowRenderer& renderer = selectShadow(kDrawFullQuality | kDrawShadows);
    const Pixel lit = shaded({1, 1, 1}, {0, 0, 1}, 1);
    const struct {
        const char* name;
        int width, height;
    } rows[] = {{"of the view's size", kViewSize, kViewSize}, {"in tiles", 330, 130}};
    for (const auto& row : rows) {
        renderer.setSize(kViewSize, kViewSize);
        renderer.setupCamera(scene_->scene());
        Bitmap bitmap(row.width, row.height, 24);
        EXPECT_EQ(renderer.drawToBitmap(bitmap.handle()), 1);
        const auto at = [&](float x, float y) {
            return bitmap.at(static_cast<int>(x * static_cast<float>(row.width) / 20.0f),
                             static_cast<int>(y * static_cast<float>(row.height) / 10.0f));
        };
        for (const auto& [x, y] :
             {std::pair{2.3f, 1.3f}, {5.7f, 3.7f}, {4.0f, 2.5f}, {14.5f, 7.5f}})
            EXPECT_TRUE(isNear(at(x, y), lit, 2)) << row.name << " " << x << ", " << y;
        for (const auto& [x, y] : {std::pair{1.6f, 2.5f}, {6.4f, 2.5f}, {4.0f, 0.5f}, {4.0f, 4.4f}})
            EXPECT_TRUE(isNear(at(x, y), kBackground, 1)) << row.name << " " << x << ", " << y;
    }
}

/// A TGA file of two colours: `upper` above `lower`. With 32 bits its alpha is 0.
std::string twoColors(Pixel upper, Pixel lower, int bits) {
    constexpr int kSize = 64;
    std::string file(18, '\0');
    file[2] = 2;
    file[12] = file[14] = kSize;
    file[16] = static_cast<char>(bits);
    for (int row = 0; row < kSize; ++row) { // bottom row first
        const Pixel color = row < kSize / 2 ? lower : upper;
        for (int x = 0; x < kSize; ++x) {
            for (const int channel : {color.blue, color.green, color.red})
                file.push_back(static_cast<char>(channel));
            file.append(bits == 32 ? 1 : 0, '\0');
        }
    }
    return file;
}

/// A grey TGA file of one row.
std::string rowOfGrey(int width) {
    std::string file(18 + static_cast<size_t>(width), '\x60');
    std::fill_n(file.begin(), 18, '\0');
    file[2] = 3;
    file[12] = static_cast<char>(width);
    file[13] = static_cast<char>(width >> 8);
    file[14] = 1;
    file[16] = 8;
    return file;
}

TEST_F(ShadowOutputTest, TheSkyShowsThroughPortalsOnly) {
    constexpr Pixel kSky{90, 140, 220};
    constexpr Pixel kGround{60, 100, 40};
    MATERIAL glass = plainMaterial();
    glass.opacity = 0.0f;
    const auto pane = static_cast<int16_t>(scene_->addMaterial(glass));
    scene_->addObject(0, 1);
    FaceShape inner = quad({-2, 5, -2}, {-2, 5, 2}, {2, 5, 2}, {2, 5, -2}, pane);
    FaceShape outer = quad({2, 5, -2}, {2, 5, 2}, {-2, 5, 2}, {-2, 5, -2}, pane);
    inner.flags = outer.flags = kFacePortal;
    scene_->addFace(inner);
    scene_->addFace(outer);
    scene_->look({0, 0, 0}, {0, 10, 0}, 1.2);
    context_->settings.texturesDir = folder_.hostFile("");
    for (const int bits : {24, 32}) {
        SCOPED_TRACE(bits);
        writeFile(folder_.file("background.tga"), twoColors(kSky, kGround, bits));
        selectShadow(kDrawFullQuality);
        const Bitmap first(kViewSize, kViewSize, 24); // builds the batches
        renderer_->drawToBitmap(first.handle());
        const Picture picture = drawFrame();
        // The pane ends 2 / 5 of the distance from the middle: 58 pixels.
        for (const int x : {50, 100, 150}) {
            EXPECT_TRUE(isNear(picture.at(x, 140), kSky, 3)) << x;
            EXPECT_TRUE(isNear(picture.at(x, 60), kGround, 3)) << x;
        }
        for (const auto& [x, y] : {std::pair{100, 170}, {100, 30}, {30, 100}, {170, 100}})
            EXPECT_TRUE(isNear(picture.at(x, y), kBackground, 1)) << x << ", " << y;
        for (const GLenum capability : {GL_STENCIL_TEST, GL_TEXTURE_2D, GL_LIGHTING, GL_BLEND})
            EXPECT_FALSE(glIsEnabled(capability)) << std::hex << capability;
    }
    GLint widest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &widest);
    writeFile(folder_.file("background.tga"), rowOfGrey(widest + 1));
    selectShadow(kDrawFullQuality);
    EXPECT_TRUE(isNear(drawFrame().at(100, 140), kBackground, 1));
    EXPECT_NE(readFile(folder_.file("ogl.log")).find("Image too large for the driver"),
              std::string::npos);
}

TEST_F(ShadowOutputTest, WithoutPortalsNoSkyIsDrawn) {
    scene_->addObject();
    scene_->addFace(plate(-6, -6, 6, 6));
    GLuint query = 0;
    glGenQueries(1, &query);
    const auto primitivesOfFrame = [&] {
        selectShadow(kDrawFullQuality);
        drawFrame();
        glBeginQuery(GL_PRIMITIVES_GENERATED, query);
        drawFrame();
        glEndQuery(GL_PRIMITIVES_GENERATED);
        GLuint count = 0;
        glGetQueryObjectuiv(query, GL_QUERY_RESULT, &count);
        return count;
    };
    const GLuint before = primitivesOfFrame();
    EXPECT_GT(before, 0u);
    context_->settings.texturesDir = folder_.hostFile("");
    writeFile(folder_.file("background.tga"), twoColors({1, 2, 3}, {4, 5, 6}, 24));
    EXPECT_EQ(primitivesOfFrame(), before);
    glDeleteQueries(1, &query);
}

} // namespace
} // namespace ogl::test
