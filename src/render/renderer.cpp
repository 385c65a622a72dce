// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/renderer.h"

#include "gpu/gl_state.h"
#include "gpu/texture.h"
#include "render/bitmap_target.h"
#include "render/render_context.h"

#include <algorithm>

namespace ogl {

namespace {

constexpr float kViewFarPlane = 1000.0f;

} // namespace

Renderer::Renderer(RenderContext& creator)
    : context(&creator), fontLists(&creator.fontListBase), errorLog(&creator.errorLog),
      vendor(creator.vendor), settings(&creator.settings), frequency(performanceFrequency()),
      generation(contextGeneration()), viewSamples(creator.primary.samples) {}

Renderer::~Renderer() {
    if (quadric != nullptr)
        gluDeleteQuadric(quadric);
}

int Renderer::clearBackground() {
    clearToSceneBackground();
    return 1;
}

void Renderer::clearToSceneBackground() {
    if (scene == nullptr)
        return;
    const uint32_t color = scene->geometry.backgroundColor;
    uint32_t channels[3] = {color & 0xffu, color >> 8 & 0xffu, color >> 16 & 0xffu};
    if ((choices.drawFlags & kDrawGrey) != 0)
        std::fill_n(channels, 3, (channels[0] + channels[1] + channels[2]) / 3);
    for (int i = 0; i < 3; ++i)
        clearColor[i] = static_cast<float>(channels[i]) / 255.0f;
    clearTo(clearColor[0], clearColor[1], clearColor[2]);
}

void Renderer::clearTo(float red, float green, float blue) {
    glClearColor(red, green, blue, 1.0f);
    glClearDepth(1.0);
    glDepthMask(GL_TRUE);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    for (int unit = 3; unit >= 0; --unit)
        resetTextureUnit(unit);
}

void Renderer::resetGLState() {
    pointSizeMax = resetGLDefaults();
}

void Renderer::setSize(int newWidth, int newHeight) {
    width = std::max(newWidth, 0);
    height = std::max(newHeight, 0);
}

void Renderer::setSizeFromWindow(const GLSurface& surface) {
    RECT client{};
    GetClientRect(surface.window, &client);
    setSize(client.right - client.left, client.bottom - client.top);
}

void Renderer::setupCamera(const SCENE& newScene) {
    setViewCamera(camera, newScene, width, height, kViewFarPlane);
}

void Renderer::copyToBitmap(HBITMAP bitmap) const {
    glFinish();
    readFrame(bitmapTarget(bitmap), width, height);
}

} // namespace ogl
