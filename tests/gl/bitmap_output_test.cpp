// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/drawing/edge_renderer.h"
#include "fixed/drawing/fixed_renderer.h"
#include "gl/debug_listener.h"
#include "gl/gl_fixture.h"
#include "render/bitmap_target.h"

namespace ogl::test {
namespace {

constexpr Pixel kUntouched{0x77, 0x77, 0x77};

/// A scene without any symmetry, so that a mirrored or shifted picture differs.
class BitmapOutputTest : public GLTest {
  protected:
    void SetUp() override {
        GLTest::SetUp();
        scene_->addMaterial(plainMaterial());
        scene_->addObject();
        scene_->addFace(plate(-8, -7, 5, 2));
        scene_->commit();
        scene_->scene().drawingOptions = kOptionBackgroundColor;
        scene_->scene().drawingBackgroundColor = 0xc08040;
    }
};

TEST_F(BitmapOutputTest, FillsBitmapsOfTheViewsSize) {
    for (const bool edgesOnly : {false, true})
        for (const int bits : {24, 32}) {
            if (edgesOnly)
                select<EdgeRenderer>();
            else
                select<FixedRenderer>();
            const Picture picture = drawFrame();
            Bitmap bitmap(kViewSize, kViewSize, bits);
            EXPECT_EQ(renderer_->drawToBitmap(bitmap.handle()), 1);
            EXPECT_EQ(differences(bitmap, picture, kViewSize, kViewSize), 0) << bits;
        }
}

TEST_F(BitmapOutputTest, PadsRowsToFourBytes) {
    select<FixedRenderer>();
    constexpr int kOddWidth = 199;
    renderer_->setSize(kOddWidth, kViewSize);
    renderer_->setupCamera(scene_->scene());
    Bitmap bitmap(kOddWidth, kViewSize, 24);
    renderer_->drawToBitmap(bitmap.handle());
    EXPECT_EQ(differences(bitmap, Picture::read(kOddWidth, kViewSize), kOddWidth, kViewSize), 0);
}

TEST_F(BitmapOutputTest, ClipsCapturesToTheBitmap) {
    select<FixedRenderer>();
    const Picture picture = drawFrame();
    const struct {
        const char* name;
        int width, height, bits;
    } rows[] = {
        {"same size", kViewSize, kViewSize, 24}, {"smaller", 101, 57, 24},
        {"smaller, 32 bits", 101, 57, 32},       {"wider", 333, 50, 24},
        {"higher, 32 bits", 50, 333, 32},
    };
    for (const auto& row : rows) {
        Bitmap bitmap(row.width, row.height, row.bits);
        renderer_->copyToBitmap(bitmap.handle());
        const int width = std::min(row.width, kViewSize);
        const int height = std::min(row.height, kViewSize);
        EXPECT_EQ(differences(bitmap, picture, width, height), 0) << row.name;
        if (row.width > kViewSize) {
            EXPECT_TRUE(isNear(bitmap.at(kViewSize, 10), kUntouched, 0)) << row.name;
        }
        if (row.height > kViewSize) {
            EXPECT_TRUE(isNear(bitmap.at(10, kViewSize), kUntouched, 0)) << row.name;
        }
    }
}

void GLAPIENTRY refuseStorage(GLenum, GLenum, GLsizei, GLsizei) {}

TEST_F(BitmapOutputTest, IsReadFromTheWindowWithoutRoomForACopy) {
    select<FixedRenderer>();
    drawFrame();
    const auto storage = glRenderbufferStorage;
    glRenderbufferStorage = refuseStorage;
    const Picture picture = Picture::read(kViewSize, kViewSize);
    glRenderbufferStorage = storage;
    acceptDebugMessages(); // about the copy
    EXPECT_TRUE(isNear(pixelAt(picture, 0, 0), {255, 255, 255}, 0));
    EXPECT_TRUE(isNear(pixelAt(picture, 8, 8), {0x40, 0x80, 0xc0}, 0));
    GLint framebuffer = -1;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &framebuffer);
    EXPECT_EQ(framebuffer, 0);
}

TEST_F(BitmapOutputTest, TakesNoOtherHandles) {
    select<FixedRenderer>();
    drawFrame();
    EXPECT_FALSE(bitmapTarget(nullptr).isValid());
    EXPECT_EQ(renderer_->drawToBitmap(nullptr), 1);
    renderer_->copyToBitmap(nullptr);
}

} // namespace
} // namespace ogl::test
