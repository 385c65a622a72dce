// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/ray_drawing.h"

#include "oglview/user_error.h"
#include "raytrace/traced_picture.h"

#include <algorithm>

namespace oglview {

namespace {

constexpr int kPercentPerStep = 5;

/// Blue, green, red, rows padded, from red, green, blue, alpha.
void copyColors(const std::vector<uint8_t>& rgba, DibSection& bitmap) {
    const Picture& picture = bitmap.picture();
    const uint8_t* from = rgba.data();
    for (int y = 0; y < picture.height; ++y) {
        uint8_t* to = bitmap.pixels() + static_cast<size_t>(y) * picture.rowBytes();
        for (int x = 0; x < picture.width; ++x, from += 4, to += 3) {
            to[0] = from[2];
            to[1] = from[1];
            to[2] = from[0];
        }
    }
}

} // namespace

void drawRayPreview(const DrawingView& view, ogl::SCENE* scene, uint32_t drawFlags,
                    DibSection& bitmap) {
    const Picture& picture = bitmap.picture();
    if (static_cast<int64_t>(picture.width) * picture.height > ogl::kLargestTracedPixels)
        throw UserError("a ray-trace preview has at most 4096 x 4096 pixels");
    // The bitmap is not drawn into, but the view's own window takes its size.
    d3_DrawInDibSection(view.get(), scene, drawFlags, bitmap.get());
    d3_DrawInWindow(view.get(), scene, drawFlags, 1, nullptr, bitmap.get());
}

void drawTraced(const LoadedScene& scene, int samples, DibSection& bitmap,
                const Progress& progress) {
    const Picture& picture = bitmap.picture();
    int shown = 0;
    const ogl::TracedPicture traced = ogl::traceScene(
        *scene.builder.scene(),
        {.width = picture.width, .height = picture.height, .samples = samples, .seed = 1},
        [&](double part) {
            const int percent = static_cast<int>(part * 100.0) / kPercentPerStep * kPercentPerStep;
            if (percent > shown)
                progress.step("tracing: " + std::to_string(percent) + " %");
            shown = std::max(shown, percent);
        });
    if (!traced.problem.empty())
        throw UserError(traced.problem);
    copyColors(traced.rgba, bitmap);
}

} // namespace oglview
