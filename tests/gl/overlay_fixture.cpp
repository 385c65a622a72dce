// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/overlay_fixture.h"

#include "platform/bitmap_font.h"

#include <cmath>
#include <cstring>

namespace ogl::test {

void OverlayTest::SetUp() {
    GLTest::SetUp();
    scene().drawingOptions = kOptionBackgroundColor;
    scene().drawingBackgroundColor = 0xe6e6e6;
    view().flags = 0;
    scene_->addObject();
    scene_->commit();
}

void OverlayTest::selectDrawing() {
    auto& renderer = select<FixedRenderer>();
    renderer.choices.drawFlags = kDrawFullQuality;
    renderer.choices.textureMode = TextureMode::SharedOnly;
    renderer.choices.drawFaces = true;
    renderer.choices.singleColorEdges = true;
}

Picture OverlayTest::frame() {
    if (renderer_ == nullptr)
        selectDrawing();
    return drawFrame();
}

int OverlayTest::countNear(const Picture& picture, const RECT& area, Pixel color, int tolerance) {
    const int height = picture.height();
    return picture.count(static_cast<int>(area.left), height - static_cast<int>(area.bottom),
                         static_cast<int>(area.right), height - static_cast<int>(area.top),
                         [&](Pixel p) { return isNear(p, color, tolerance); });
}

POINT OverlayTest::seenAt(Vec3 point) {
    const float scale = kViewSize / 2.0f / (10.0f - point.z);
    POINT pixel{};
    pixel.x = static_cast<int>(std::floor(kViewSize / 2.0f + point.x * scale));
    pixel.y = static_cast<int>(std::floor(kViewSize / 2.0f - point.y * scale));
    return pixel;
}

namespace {

/// The colour lies over at least two fifths of a pixel of the ground.
bool covers(Pixel pixel, Pixel ground, Pixel color) {
    const auto mixed = [](int a, int b, float share) {
        return static_cast<int>(
            std::lround(static_cast<float>(a) * (1.0f - share) + static_cast<float>(b) * share));
    };
    for (int share = 8; share <= 20; ++share) {
        const float t = static_cast<float>(share) * 0.05f;
        if (isNear(pixel,
                   {mixed(ground.red, color.red, t), mixed(ground.green, color.green, t),
                    mixed(ground.blue, color.blue, t)},
                   6))
            return true;
    }
    return false;
}

} // namespace

bool OverlayTest::isLineAt(const Picture& picture, int x, int y, Pixel color) {
    const int row = picture.height() - 1 - y;
    return picture.count(x - 1, row - 1, x + 2, row + 2,
                         [&](Pixel p) { return covers(p, kGround, color); }) > 0;
}

bool OverlayTest::isLineSeen(const Picture& picture, Vec3 point, Pixel color) {
    const POINT p = seenAt(point);
    return isLineAt(picture, static_cast<int>(p.x), static_cast<int>(p.y), color);
}

Ptr32<uint8_t> OverlayTest::hostText(const std::string& text) {
    auto* copy = static_cast<uint8_t*>(memory_.allocate(text.size() + 1));
    std::memcpy(copy, text.c_str(), text.size() + 1);
    return {copy};
}

Picture OverlayTest::expectedFrame(const std::function<void()>& draw) {
    const uint32_t flags = view().flags;
    view().flags = flags | kViewNoOverlays | kViewNoHud;
    frame();
    view().flags = flags;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, kViewSize, kViewSize, 0, -1, 1);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_MULTISAMPLE);
    draw();
    glEnable(GL_DEPTH_TEST);
    return Picture::read(kViewSize, kViewSize);
}

void OverlayTest::drawGlyphs(const std::string& text, int x, int y, Pixel color) const {
    glColor3ub(static_cast<GLubyte>(color.red), static_cast<GLubyte>(color.green),
               static_cast<GLubyte>(color.blue));
    glRasterPos2i(x, y);
    for (const char character : text)
        glCallList(context_->fontListBase + static_cast<unsigned>(character - kFontFirstCharacter));
}

int differingPixels(const Picture& a, const Picture& b) {
    return differences(a, b, a.width(), a.height(), 1);
}

} // namespace ogl::test
