// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What is picked is what the picture shows: a drawing in which every object has a colour of its
// own, made with the renderers' camera, is compared with a pick per pixel.
#include "scene/picking/picking.h"

#include "gl/gl_fixture.h"
#include "render/camera.h"
#include "scene/record_views.h"

#include <cstring>
#include <random>

namespace ogl::test {
namespace {

constexpr int kWidth = 200; // part of the window of GLTest
constexpr int kHeight = 150;

class PickedPicture : public GLTest {
  protected:
    void addBoxes() {
        scene_->addMaterial(plainMaterial());
        std::mt19937 random(7);
        std::uniform_real_distribution<float> place(-6.0f, 6.0f);
        for (int k = 0; k < 60; ++k) {
            scene_->addObject();
            const Vec3 c{place(random), place(random), 0.5f * place(random)};
            for (int side = 0; side < 3; ++side)
                scene_->addFace(panel(c, side));
        }
        scene_->commit();
        scene_->look({7.0f, -9.0f, 6.0f}, {0.5f, 0.3f, -0.2f}, 0.9);
    }
    static FaceShape panel(Vec3 c, int side) {
        const float s = 0.7f;
        if (side == 0)
            return quad({c.x - s, c.y - s, c.z}, {c.x - s, c.y + s, c.z}, {c.x + s, c.y + s, c.z},
                        {c.x + s, c.y - s, c.z});
        if (side == 1)
            return quad({c.x, c.y - s, c.z - s}, {c.x, c.y + s, c.z - s}, {c.x, c.y + s, c.z + s},
                        {c.x, c.y - s, c.z + s});
        return quad({c.x - s, c.y, c.z - s}, {c.x - s, c.y, c.z + s}, {c.x + s, c.y, c.z + s},
                    {c.x + s, c.y, c.z - s});
    }
    Picture drawNumbers() {
        makeCurrent();
        glDisable(GL_LIGHTING);
        glDisable(GL_CULL_FACE);
        glDisable(GL_DITHER);
        glDisable(GL_MULTISAMPLE);
        glEnable(GL_DEPTH_TEST);
        glClearColor(1, 1, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        PerspectiveCamera camera;
        setViewCamera(camera, scene_->scene(), kWidth, kHeight, 1000.0f);
        camera.apply();
        const SceneLists lists(scene_->scene());
        for (int k = 0; k < lists.objects.size(); ++k) {
            glColor3ub(static_cast<GLubyte>(k), 0, 0);
            const ItemRange faces = lists.faces.cluster(k);
            for (int f = faces.first; f < faces.end(); ++f)
                drawFace(faceTriangles(lists, f, lists.faces.items()[f].flags));
        }
        glEnable(GL_MULTISAMPLE);
        return Picture::read(kWidth, kHeight);
    }
    static void drawFace(const FaceTriangles& triangles) {
        glBegin(GL_TRIANGLES);
        for (int v = 0; v < 3 * triangles.triangleCount; ++v) {
            Vec3 corner;
            std::memcpy(&corner, triangles.positions + v * sizeof corner, sizeof corner);
            glVertex3f(corner.x, corner.y, corner.z);
        }
        glEnd();
    }
    /// The number that the picture shows; -1 for the background. `y` counts downwards.
    static int shownAt(const Picture& picture, int x, int y) {
        const Pixel pixel = picture.at(x, kHeight - 1 - y);
        return pixel.green != 0 ? -1 : pixel.red;
    }
    /// The nearest object at the centre of a pixel: a corner of pixels in a view twice as large.
    int pickedAt(int x, int y) const {
        const SCENE& scene = scene_->scene();
        const auto picked =
            pickObjects(scene, pickRay(scene, {2 * kWidth, 2 * kHeight, 2 * x + 1, 2 * y + 1}));
        return picked.empty() ? -1 : picked.front().object;
    }
    void compare() {
        const Picture picture = drawNumbers();
        int objects = 0;
        int background = 0;
        int different = 0; // an edge within the rasteriser's grid of a pixel's centre
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x) {
                const int shown = shownAt(picture, x, y);
                (shown < 0 ? background : objects) += 1;
                different += pickedAt(x, y) == shown ? 0 : 1;
            }
        EXPECT_GT(objects, 9000);
        EXPECT_GT(background, 2000);
        EXPECT_LE(different, kWidth * kHeight / 2000);
    }
};

TEST_F(PickedPicture, ShowsTheNearestObjectEverywhere) {
    addBoxes();
    compare();
    SCENE& scene = scene_->scene();
    scene.viewWindowCenterX = 5000;
    scene.viewWindowCenterY = -3000;
    scene.viewWindowWidth = 26000;
    scene.viewWindowHeight = 12000;
    compare();
}

} // namespace
} // namespace ogl::test
