// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/frame_target_set.h"
#include "gpu/shader_program.h"
#include "math/vector3.h"

namespace ogl {

/// Where a frame lies in a picture that is drawn in parts.
struct PicturePart {
    float left = 0.0f; ///< in parts of the picture's width and height, from its lower left corner
    float bottom = 0.0f;
    float width = 1.0f;
    float height = 1.0f;
    /// Height of the picture by its width; 0 when the frame is the whole picture.
    float aspect = 0.0f;
};

/// What the image passes of a frame share.
struct FrameView {
    FrameTargetSet& targets;
    int width; ///< of the frame, pixels
    int height;
    int samples; ///< of the G-buffer
    Vec3 eye;    ///< of the view, scene coordinates
    PicturePart part{};
};

/// Attachments of the G-buffer.
inline constexpr int kPlaces = 0;   ///< place in the scene, shininess
inline constexpr int kSurfaces = 1; ///< encoded normal, object id, specular factor
inline constexpr int kColors = 2;   ///< diffuse colour, reflection factor

/// Binds an attachment of the G-buffer, of the light target (filter: GL_LINEAR or GL_NEAREST), or
/// the edge target on a unit.
void bindSurfaces(const FrameView& frame, int unit, int attachment);
void bindLight(const FrameView& frame, int unit, int attachment, int filter);
void bindEdges(const FrameView& frame, int unit);

/// Binds the environment that surfaces reflect; none when it does not exist: reflections are black
/// then.
void bindEnvironment(const GLTexture& environment, int unit);

/// Makes reads beyond the border of the 2D texture that was bound last read the border.
void clampAtBorder();

/// Tells the program in use the size of a pixel in texture coordinates, "rcpFrame".
void setPixelSize(const ShaderProgram& program, const FrameView& frame);

/// Copies attachment `from` of the light target, which must be bound, into attachment `to`.
/// Leaves unit 0 reset.
void copyLight(const FrameView& frame, int from, int to);

/// No program any more, and units `lastUnit` to 0 reset.
void endImagePass(int lastUnit);

} // namespace ogl
