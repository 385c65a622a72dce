// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "raytrace/traced_picture.h"

#include "raytrace/path_tracer.h"
#include "raytrace/ray_trace_renderer.h"
#include "render/hidden_view.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

constexpr float kByteScale = 255.0f;

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
    HiddenView view(order.width, order.height);
    if (!view.isReady())
        return {"cannot draw with OpenGL here", {}};
    RayTraceRenderer renderer(view.context());
    prepare(renderer, scene, order);
    if (!renderer.isPacked())
        return {"the scene is too large to ray trace", {}};
    return trace(renderer, order, progress);
}

} // namespace ogl
