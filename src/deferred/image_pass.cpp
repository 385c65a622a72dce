// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/image_pass.h"

#include "gpu/texture.h"

namespace ogl {

void bindSurfaces(const FrameView& frame, int unit, int attachment) {
    bindTexture(unit, TextureKind::Multisample, frame.targets.gBuffer->colorTexture(attachment),
                GL_NEAREST, 1.0f);
}

void bindLight(const FrameView& frame, int unit, int attachment, int filter) {
    bindTexture(unit, TextureKind::Rectangle, frame.targets.lightTarget->colorTexture(attachment),
                filter, 1.0f);
}

void bindEdges(const FrameView& frame, int unit) {
    bindTexture(unit, TextureKind::Repeating, frame.targets.edgeTarget->colorTexture(0), GL_NEAREST,
                1.0f);
}

void bindEnvironment(const GLTexture& environment, int unit) {
    bindTexture(unit, TextureKind::Repeating, environment.exists() ? environment.name() : 0,
                GL_LINEAR, 1.0f);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_MIRRORED_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_MIRRORED_REPEAT);
}

void clampAtBorder() {
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
}

void setPixelSize(const ShaderProgram& program, const FrameView& frame) {
    program.setVec2("rcpFrame", 1.0f / static_cast<float>(frame.width),
                    1.0f / static_cast<float>(frame.height));
}

void copyLight(const FrameView& frame, int from, int to) {
    frame.targets.lightTarget->setReadBuffer(from);
    bindLight(frame, 0, to, GL_NEAREST);
    glCopyTexSubImage2D(GL_TEXTURE_RECTANGLE, 0, 0, 0, 0, 0, frame.width, frame.height);
    resetTextureUnit(0);
}

void endImagePass(int lastUnit) {
    ShaderProgram::useNone();
    for (int unit = lastUnit; unit >= 0; --unit)
        resetTextureUnit(unit);
}

} // namespace ogl
