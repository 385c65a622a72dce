// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "raytrace/traced_picture.h"

#include "platform/own_window.h"
#include "raytrace/path_tracer.h"
#include "raytrace/ray_trace_renderer.h"
#include "render/render_context.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace ogl {

namespace {

// No such file: defaults, and nothing is logged.
constexpr const char* kNoSettings = "no-such-folder\\space.ini";
constexpr float kByteScale = 255.0f;

/// A view on the hidden window, its context current.
class TraceView {
  public:
    TraceView(int width, int height) {
        if (!ensureOwnWindow(GetModuleHandleA(nullptr)))
            return;
        auto context = std::make_unique<RenderContext>(ownWindow(), 0u, kNoSettings);
        if (!context->initializeOpenGL())
            return;
        wglMakeCurrent(context->primary.dc, context->primary.glContext);
        resizeOwnWindow(width, height);
        context_ = std::move(context);
    }
    ~TraceView() {
        context_.reset();
        tearDownOwnWindow();
    }
    TraceView(const TraceView&) = delete;
    TraceView& operator=(const TraceView&) = delete;

    RenderContext* context() { return context_.get(); }

  private:
    std::unique_ptr<RenderContext> context_;
};

/// Packs the scene and sets the camera; the frame itself is of no use.
void prepare(RayTraceRenderer& renderer, SCENE& scene, const TraceOrder& order) {
    renderer.scene = &scene;
    renderer.resetGLState();
    renderer.createResources();
    renderer.setSize(order.width, order.height);
    renderer.setupCamera(scene);
    renderer.drawToWindow(renderer.context->primary);
}

std::vector<uint8_t> bytesOf(const std::vector<float>& pixels) {
    std::vector<uint8_t> bytes;
    bytes.reserve(pixels.size());
    for (const float value : pixels)
        bytes.push_back(
            static_cast<uint8_t>(std::lround(std::clamp(value, 0.0f, 1.0f) * kByteScale)));
    return bytes;
}

TracedPicture trace(RayTraceRenderer& renderer, const TraceOrder& order,
                    const TraceProgress& progress) {
    PathTracer tracer(renderer);
    if (!tracer.isReady())
        return {"this OpenGL driver cannot trace a picture of this size", {}};
    RaySampler sampler(order.seed);
    for (int done = 0; done < order.samples; ++done)
        tracer.trace(sampler.next(order.width, order.height), [&](double part) {
            if (progress)
                progress((done + part) / order.samples);
        });
    return {{}, bytesOf(tracer.readShown())};
}

} // namespace

TracedPicture traceScene(SCENE& scene, const TraceOrder& order, const TraceProgress& progress) {
    if (order.width < 1 || order.height < 1 ||
        static_cast<int64_t>(order.width) * order.height > kLargestTracedPixels)
        return {"a traced picture has at most 4096 x 4096 pixels", {}};
    TraceView view(order.width, order.height);
    if (view.context() == nullptr)
        return {"cannot draw with OpenGL here", {}};
    RayTraceRenderer renderer(*view.context());
    prepare(renderer, scene, order);
    if (!renderer.isPacked())
        return {"the scene is too large to ray trace", {}};
    return trace(renderer, order, progress);
}

} // namespace ogl
