// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/frame_target_set.h"

namespace ogl {

namespace {

std::unique_ptr<RenderTarget> makeTarget(const void* owner, const TargetLayout& layout) {
    auto target = std::make_unique<RenderTarget>(owner);
    target->create(layout);
    return target;
}

} // namespace

void FrameTargetSet::ensure(int newWidth, int newHeight, const void* owner, int samples) {
    if (gBuffer != nullptr && lightTarget != nullptr && edgeTarget != nullptr &&
        width == newWidth && height == newHeight)
        return;
    width = newWidth;
    height = newHeight;
    lightTarget.reset(); // all of the old size go before any of the new one comes
    edgeTarget.reset();
    gBuffer.reset();
    noiseTexture.reset();
    lightTarget = makeTarget(owner, {.kind = TargetKind::Rectangle,
                                     .width = width,
                                     .height = height,
                                     .colorCount = 2,
                                     .format = ColorFormat::Rgba16f});
    edgeTarget = makeTarget(owner, {.kind = TargetKind::Texture2D,
                                    .width = width,
                                    .height = height,
                                    .format = ColorFormat::Rgba8});
    gBuffer = makeTarget(owner, {.kind = TargetKind::Texture2D,
                                 .width = width,
                                 .height = height,
                                 .colorCount = 3,
                                 .depth = DepthMode::Shared,
                                 .samples = samples,
                                 .format = ColorFormat::Rgba16f});
}

} // namespace ogl
