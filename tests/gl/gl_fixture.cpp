// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/gl_fixture.h"

#include "gpu/frame_read.h"
#include "platform/own_window.h"
#include "render/process_state.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>

namespace ogl::test {

namespace {

/// Writes the frames of the tests into the folder that OGL_TEST_PICTURES names, for looking at.
void keepPicture(const Picture& picture) {
    static int number = 0;
    if (const char* folder = std::getenv("OGL_TEST_PICTURES"))
        picture.write(std::string(folder) + "/" +
                      testing::UnitTest::GetInstance()->current_test_info()->name() + "_" +
                      std::to_string(number++) + ".ppm");
}

} // namespace

Picture::Picture(int width, int height)
    : width_(width), height_(height),
      rgba_(static_cast<size_t>(width) * static_cast<size_t>(height) * 4) {}

Picture Picture::read(int width, int height) {
    Picture picture(width, height);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    readPixels(width, height, GL_RGBA, picture.rgba_.data());
    return picture;
}

Pixel Picture::at(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_)
        return {0, 0, 0};
    const uint8_t* p =
        rgba_.data() +
        (static_cast<size_t>(y) * static_cast<size_t>(width_) + static_cast<size_t>(x)) * 4;
    return {p[0], p[1], p[2]};
}

std::array<double, 3> Picture::mean(int left, int bottom, int right, int top) const {
    std::array<double, 3> sum{};
    for (int y = bottom; y < top; ++y)
        for (int x = left; x < right; ++x) {
            const Pixel p = at(x, y);
            sum[0] += p.red;
            sum[1] += p.green;
            sum[2] += p.blue;
        }
    const double pixels = static_cast<double>(right - left) * (top - bottom);
    for (double& channel : sum)
        channel /= pixels;
    return sum;
}

int Picture::count(int left, int bottom, int right, int top,
                   const std::function<bool(Pixel)>& accepts) const {
    int found = 0;
    for (int y = bottom; y < top; ++y)
        for (int x = left; x < right; ++x)
            found += accepts(at(x, y)) ? 1 : 0;
    return found;
}

void Picture::write(const std::string& path) const {
    std::ofstream file(path, std::ios::binary);
    file << "P6 " << width_ << ' ' << height_ << " 255\n";
    for (int y = height_ - 1; y >= 0; --y)
        for (int x = 0; x < width_; ++x) {
            const Pixel p = at(x, y);
            for (const int channel : {p.red, p.green, p.blue})
                file.put(static_cast<char>(channel));
        }
}

bool isNear(Pixel a, Pixel b, int tolerance) {
    return std::abs(a.red - b.red) <= tolerance && std::abs(a.green - b.green) <= tolerance &&
           std::abs(a.blue - b.blue) <= tolerance;
}

bool isFoundNear(const Picture& picture, int x, int y, Pixel color, int tolerance) {
    return picture.count(x - 1, y - 1, x + 2, y + 2,
                         [&](Pixel p) { return isNear(p, color, tolerance); }) > 0;
}

GLTest::GLTest() : scene_(std::make_unique<SceneFixture>()) {}

void GLTest::SetUp() {
    writeFile(folder_.file("space.ini"), "[OpenGL]\nnumAASamplesDrawing=4\n");
    ASSERT_TRUE(ensureOwnWindow(GetModuleHandleA(nullptr)));
    context_ =
        std::make_unique<RenderContext>(ownWindow(), 0u, folder_.hostFile("space.ini").c_str());
    ASSERT_TRUE(context_->initializeOpenGL());
    processState().sceneChanged = 0;
    makeCurrent();
    resizeOwnWindow(kViewSize, kViewSize);
    scene_->look({0, 0, 10}, {0, 0, 0}, 3.14159265358979 / 2);
}

void GLTest::TearDown() {
    if (context_ == nullptr || context_->glReady == 0)
        return;
    makeCurrent();
    renderer_.reset();
    scene_.reset();
    deleteReleasedObjects();
    EXPECT_EQ(liveObjects(GLKind::Buffer), 0);
    EXPECT_EQ(liveObjects(GLKind::Texture), 0);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    context_.reset();
}

void GLTest::makeCurrent() const {
    ASSERT_TRUE(wglMakeCurrent(context_->primary.dc, context_->primary.glContext));
}

Picture GLTest::drawFrame() {
    renderer_->setSize(kViewSize, kViewSize);
    renderer_->setupCamera(scene_->scene());
    glReadBuffer(GL_BACK);
    glDrawBuffer(GL_BACK);
    renderer_->drawToWindow(context_->primary);
    const Picture picture = Picture::read(kViewSize, kViewSize);
    keepPicture(picture);
    return picture;
}

FaceShape plate(float left, float bottom, float right, float top, float z, int16_t material) {
    return quad({left, bottom, z}, {left, top, z}, {right, top, z}, {right, bottom, z}, material);
}

} // namespace ogl::test
