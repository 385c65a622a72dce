// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "api/draw_calls.h"

#include "api/renderer_selection.h"
#include "platform/own_window.h"
#include "render/render_context.h"
#include "render/renderer.h"
#include "render/view_size.h"
#include "scene/record_views.h"

#include <string>
#include <utility>

namespace ogl {

namespace {

/// Shortest time between two buffer swaps of a paced view.
constexpr double kPacedFrameMilliseconds = 40.0;

int64_t readCounter() {
    LARGE_INTEGER value{};
    QueryPerformanceCounter(&value);
    return value.QuadPart;
}

bool isPaced(const SCENE& scene) {
    const VIEW* view = viewOf(scene);
    return view != nullptr && (view->flags & kViewPaced) != 0;
}

void paceFrame(Renderer& renderer, const SCENE& scene) {
    renderer.previousCounter = renderer.counter;
    renderer.counter = readCounter();
    if (!isPaced(scene))
        return;
    const auto elapsed = [&] {
        return static_cast<double>(renderer.counter - renderer.previousCounter) * 1000.0 /
               static_cast<double>(renderer.frequency);
    };
    while (elapsed() < kPacedFrameMilliseconds) {
        Sleep(0);
        renderer.counter = readCounter();
    }
}

/// Makes the surface current and ready to be drawn into. One that is not open changes nothing.
bool enter(Renderer& renderer, GLSurface& surface) {
    if (surface.glContext == nullptr || !makeCurrent(surface))
        return false;
    if (!std::exchange(surface.stateReset, true))
        renderer.resetGLState();
    glReadBuffer(GL_BACK);
    glDrawBuffer(GL_BACK);
    return true;
}

/// Draws the frame into the surface's back buffer, if it has one.
bool drawSurface(Renderer& renderer, GLSurface& surface, SCENE& scene) {
    if (!enter(renderer, surface))
        return false;
    renderer.setSizeFromWindow(surface);
    renderer.setupCamera(scene);
    renderer.drawToWindow(surface);
    glFlush();
    return true;
}

/// Whether the driver has room for a picture of this size, if it is one.
bool isDrawnAtOnce(ViewSize picture, int64_t bytesPerPixel) {
    return picture.width > 0 && picture.height > 0 &&
           viewSizeFor(picture, bytesPerPixel, frameLimits()) == picture;
}

/// Gives the own window the size of the picture, or of a tile of it. The view's size.
ViewSize fitOwnWindow(RenderContext& context, const Renderer& renderer, ViewSize picture) {
    const ViewSize view = viewSizeFor(
        picture, frameBytesPerPixel(context.primary.samples, givenSamples(renderer.targetSamples)),
        frameLimits());
    resizeOwnWindow(view.width, view.height);
    if (renderer.kind == kDeferredRenderer && view != picture)
        context.errorLog.writeOnce("Error", "Photo too large to draw at once",
                                   std::to_string(picture.width) + " x " +
                                       std::to_string(picture.height));
    return view;
}

/// The own window takes the bitmap's size, or a tile's; a host's window keeps its own.
void setSizeForBitmap(RenderContext& context, Renderer& renderer, const BITMAP& bitmap) {
    if (context.window == ownWindow()) {
        const ViewSize view = fitOwnWindow(context, renderer, {bitmap.bmWidth, bitmap.bmHeight});
        renderer.setSize(view.width, view.height);
        return;
    }
    renderer.setSizeFromWindow(context.primary);
    if (renderer.width < 1 || renderer.height < 1)
        context.errorLog.writeOnce("Error", "No bitmap while the window has no size", "");
}

} // namespace

void drawInWindow(RenderContext& context, SCENE& scene, uint32_t drawFlags,
                  const WindowTargets& targets) {
    context.setSecondWindow(
        targets.secondWindow); // all there is when the view's own window is gone
    Renderer* renderer = selectRenderer(context, scene, drawFlags);
    if (renderer == nullptr)
        return;
    if (targets.drawMain && drawSurface(*renderer, context.primary, scene)) {
        if (targets.capture != nullptr)
            renderer->copyToBitmap(targets.capture);
        paceFrame(*renderer, scene);
        SwapBuffers(context.primary.dc);
    }
    if (targets.secondWindow != nullptr && drawSurface(*renderer, context.secondary, scene))
        SwapBuffers(context.secondary.dc);
}

namespace {

/// No context is current once it ends, however it does.
struct ContextRelease {
    ContextRelease() = default;
    ~ContextRelease() { wglMakeCurrent(nullptr, nullptr); }
    ContextRelease(const ContextRelease&) = delete;
    ContextRelease& operator=(const ContextRelease&) = delete;
};

} // namespace

void drawInDibSection(RenderContext& context, SCENE& scene, uint32_t drawFlags, HBITMAP dib) {
    const ContextRelease release;
    Renderer* renderer = selectRenderer(context, scene, drawFlags);
    DIBSECTION section{};
    if (renderer != nullptr && enter(*renderer, context.primary) &&
        GetObjectA(dib, sizeof section, &section) == sizeof section) {
        setSizeForBitmap(context, *renderer, section.dsBm);
        renderer->setupCamera(scene);
        renderer->drawToBitmap(dib);
    }
}

void drawInFile(RenderContext& context, SCENE& scene, uint32_t drawFlags, int width, int height,
                const char* fileName) {
    Renderer* renderer = selectFileRenderer(context, scene, drawFlags);
    if (renderer == nullptr || !enter(*renderer, context.primary))
        return;
    if (!isDrawnAtOnce({width, height}, frameBytesPerPixel(context.primary.samples, 0))) {
        context.errorLog.write("Error", "No picture of this size",
                               std::to_string(width) + " x " + std::to_string(height));
        return;
    }
    if (context.window == ownWindow())
        resizeOwnWindow(width, height);
    renderer->setSize(width, height);
    renderer->setupCamera(scene);
    renderer->drawToFile(fileName);
}

} // namespace ogl
