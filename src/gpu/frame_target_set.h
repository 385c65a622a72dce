// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"
#include "gpu/render_target.h"

#include <memory>

namespace ogl {

/// The targets of a deferred frame, made for one size of the drawing surface.
struct FrameTargetSet {
    int width = 0; ///< pixels
    int height = 0;
    /// Three multisampled half-float colours with depth: position and shininess; normal, object
    /// and specular; diffuse and reflection.
    std::unique_ptr<RenderTarget> gBuffer;
    /// Rectangles of half floats: the light, and the ambient occlusion.
    std::unique_ptr<RenderTarget> lightTarget;
    /// 8-bit colour: the edges in alpha.
    std::unique_ptr<RenderTarget> edgeTarget;
    /// Sketch noise; whoever needs it makes it, and notes its size.
    GLTexture noiseTexture;
    int noiseWidth = 0;
    int noiseHeight = 0;

    /// Makes the targets for a surface of `newWidth` x `newHeight` pixels and drops the noise,
    /// unless there are targets of that size already: then `samples`, of the G-buffer, counts for
    /// nothing. `owner` is remembered by the targets.
    void ensure(int newWidth, int newHeight, const void* owner, int samples);
};

} // namespace ogl
