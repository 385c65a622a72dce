// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/render_target.h"

#include "gpu/texture.h"

#include <algorithm>

namespace ogl {

namespace {

struct FormatRow {
    unsigned internal, format, type;
    int minification, magnification;
};
constexpr FormatRow kFormats[] = {
    {GL_RGB, GL_RGB, GL_UNSIGNED_BYTE, GL_LINEAR, GL_LINEAR},
    {GL_RGBA, GL_RGBA, GL_UNSIGNED_BYTE, GL_LINEAR, GL_LINEAR},
    {GL_RGBA16, GL_RGBA, GL_UNSIGNED_SHORT, GL_LINEAR_MIPMAP_LINEAR, GL_LINEAR},
    {GL_RGBA16F, GL_RGBA, GL_HALF_FLOAT, GL_LINEAR_MIPMAP_LINEAR, GL_LINEAR},
    {GL_RGBA16F, GL_RGBA, GL_HALF_FLOAT, GL_LINEAR, GL_LINEAR},
    {GL_RGBA32F, GL_RGBA, GL_FLOAT, GL_NEAREST, GL_NEAREST},
    {GL_LUMINANCE32F_ARB, GL_LUMINANCE, GL_FLOAT, GL_NEAREST, GL_NEAREST},
    {GL_LUMINANCE, GL_LUMINANCE, GL_UNSIGNED_BYTE, GL_NEAREST, GL_NEAREST},
};

const FormatRow& rowOf(ColorFormat format) {
    return kFormats[static_cast<size_t>(format)];
}

template <class Enum> bool isWithin(Enum value, Enum last) {
    return static_cast<int>(value) >= 0 && value <= last;
}

bool isValid(const TargetLayout& layout) {
    return layout.width >= 1 && layout.height >= 1 &&
           isWithin(layout.kind, TargetKind::DepthOnly) &&
           isWithin(layout.depth, DepthMode::PerAttachment) &&
           isWithin(layout.format, ColorFormat::Luminance8) && layout.colorCount >= 0 &&
           layout.colorCount <= kMaxColorAttachments;
}

/// The samples that a target's attachments get: 0 = they are not multisampled.
int usableSamples(const TargetLayout& layout) {
    GLint largest = 0;
    switch (layout.kind) {
    case TargetKind::Texture2D:
        glGetIntegerv(GL_MAX_COLOR_TEXTURE_SAMPLES, &largest);
        return std::clamp(layout.samples, 0, std::max(largest, 1));
    case TargetKind::Renderbuffer:
        glGetIntegerv(GL_MAX_SAMPLES, &largest);
        return layout.samples > 1 ? std::min(layout.samples, largest) : 0;
    default:
        return 0;
    }
}

bool isMipmapped(const FormatRow& row) {
    return row.minification == GL_LINEAR_MIPMAP_LINEAR ||
           row.minification == GL_NEAREST_MIPMAP_LINEAR;
}

void attach(unsigned attachment, unsigned target, const GLTexture& texture, int level = 0) {
    glFramebufferTexture2D(GL_FRAMEBUFFER, attachment, target, texture.name(), level);
}

void allocateRenderbuffer(unsigned attachment, unsigned format, const TargetLayout& layout,
                          GLRenderbuffer& buffer) {
    buffer.create();
    glBindRenderbuffer(GL_RENDERBUFFER, buffer.name());
    // No samples means an ordinary renderbuffer.
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, layout.samples, format, layout.width,
                                     layout.height);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, buffer.name());
    glBindRenderbuffer(GL_RENDERBUFFER, 0);
}

bool isComplete() {
    switch (glCheckFramebufferStatus(GL_FRAMEBUFFER)) {
    case GL_FRAMEBUFFER_INCOMPLETE_ATTACHMENT:
    case GL_FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT:
    case GL_FRAMEBUFFER_INCOMPLETE_DIMENSIONS_EXT:
    case GL_FRAMEBUFFER_INCOMPLETE_FORMATS_EXT:
    case GL_FRAMEBUFFER_INCOMPLETE_DRAW_BUFFER:
    case GL_FRAMEBUFFER_INCOMPLETE_READ_BUFFER:
    case GL_FRAMEBUFFER_INCOMPLETE_MULTISAMPLE:
    case GL_FRAMEBUFFER_UNSUPPORTED:
        return false;
    default:
        return true;
    }
}

} // namespace

bool RenderTarget::create(const TargetLayout& layout) {
    if (exists() || !isValid(layout))
        return false;
    layout_ = layout;
    layout_.samples = usableSamples(layout);
    attachments_.clear();
    framebuffer_.create();
    bind();
    glDrawBuffers(0, nullptr);
    createAttachments();
    if (attachments_.empty())
        glReadBuffer(GL_NONE); // else older drivers miss the first colour attachment
    const bool complete = isComplete();
    unbind();
    return complete;
}

void RenderTarget::createAttachments() {
    glActiveTexture(GL_TEXTURE0);
    switch (layout_.kind) {
    case TargetKind::Renderbuffer:
        createRenderbuffers();
        break;
    case TargetKind::Texture2D:
        createTextures2D();
        break;
    case TargetKind::Rectangle:
        createRectangles();
        break;
    case TargetKind::CubeMap:
        createCubeMaps();
        break;
    case TargetKind::DepthOnly:
        createDepthOnly();
        break;
    }
}

void RenderTarget::createTextures2D() {
    const FormatRow& row = rowOf(layout_.format);
    const unsigned target = layout_.samples < 1 ? GL_TEXTURE_2D : GL_TEXTURE_2D_MULTISAMPLE;
    for (int i = 0; i < layout_.colorCount; ++i) {
        GLTexture& texture = colorTextures_[static_cast<size_t>(i)];
        texture.create();
        attachments_.push_back(i);
        glBindTexture(target, texture.name());
        if (layout_.samples < 1) {
            setFilters(target, row.minification, row.magnification);
            setWrap(target, GL_CLAMP_TO_EDGE);
            glTexImage2D(target, 0, static_cast<int>(row.internal), layout_.width, layout_.height,
                         0, row.format, row.type, nullptr);
            if (isMipmapped(row))
                glGenerateMipmap(target);
        } else {
            glTexImage2DMultisample(target, layout_.samples, row.internal, layout_.width,
                                    layout_.height, GL_TRUE);
        }
        glBindTexture(target, 0);
        attach(attachmentEnum(i), target, texture);
        if (layout_.depth == DepthMode::PerAttachment)
            createDepthTexture(i, GL_TEXTURE_2D, GL_CLAMP_TO_EDGE);
    }
    if (layout_.depth == DepthMode::Shared)
        createDepthTexture(0, target, GL_REPEAT);
}

void RenderTarget::createRectangles() {
    const FormatRow& row = rowOf(layout_.format);
    for (int i = 0; i < layout_.colorCount; ++i) {
        GLTexture& texture = colorTextures_[static_cast<size_t>(i)];
        texture.create();
        attachments_.push_back(i);
        glBindTexture(GL_TEXTURE_RECTANGLE, texture.name());
        glTexImage2D(GL_TEXTURE_RECTANGLE, 0, static_cast<int>(row.internal), layout_.width,
                     layout_.height, 0, row.format, row.type, nullptr);
        glBindTexture(GL_TEXTURE_RECTANGLE, 0);
        attach(attachmentEnum(i), GL_TEXTURE_RECTANGLE, texture);
        if (layout_.depth == DepthMode::PerAttachment)
            createDepthTexture(i, GL_TEXTURE_RECTANGLE, GL_CLAMP_TO_EDGE);
    }
    if (layout_.depth == DepthMode::Shared)
        createDepthTexture(0, GL_TEXTURE_RECTANGLE, GL_CLAMP_TO_EDGE);
}

void RenderTarget::createCubeMaps() {
    const FormatRow& row = rowOf(layout_.format);
    for (int i = 0; i < layout_.colorCount; ++i) {
        GLTexture& texture = colorTextures_[static_cast<size_t>(i)];
        texture.create();
        attachments_.push_back(i);
        glBindTexture(GL_TEXTURE_CUBE_MAP, texture.name());
        setFilters(GL_TEXTURE_CUBE_MAP, row.minification, row.magnification);
        setWrap(GL_TEXTURE_CUBE_MAP, GL_CLAMP_TO_EDGE);
        glTexParameteri(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_WRAP_R, GL_CLAMP_TO_EDGE);
        for (unsigned face = 0; face < 6; ++face)
            glTexImage2D(GL_TEXTURE_CUBE_MAP_POSITIVE_X + face, 0, static_cast<int>(row.internal),
                         layout_.width, layout_.height, 0, row.format, row.type, nullptr);
        glBindTexture(GL_TEXTURE_CUBE_MAP, 0);
        attach(attachmentEnum(i), GL_TEXTURE_CUBE_MAP_NEGATIVE_Z, texture);
    }
}

void RenderTarget::createDepthOnly() {
    GLTexture& texture = depthTextures_[0];
    texture.create();
    glBindTexture(GL_TEXTURE_2D, texture.name());
    setFilters(GL_TEXTURE_2D, GL_NEAREST, GL_NEAREST);
    setWrap(GL_TEXTURE_2D, GL_CLAMP);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_DEPTH_COMPONENT24, layout_.width, layout_.height, 0,
                 GL_DEPTH_COMPONENT, GL_FLOAT, nullptr);
    glBindTexture(GL_TEXTURE_2D, 0);
    attach(GL_DEPTH_ATTACHMENT, GL_TEXTURE_2D, texture);
}

void RenderTarget::createRenderbuffers() {
    if (layout_.colorCount > 0) {
        attachments_.push_back(0);
        allocateRenderbuffer(GL_COLOR_ATTACHMENT0, rowOf(layout_.format).internal, layout_,
                             colorRenderbuffer_);
    }
    if (layout_.depth == DepthMode::Shared)
        allocateRenderbuffer(GL_DEPTH_STENCIL_ATTACHMENT, GL_DEPTH24_STENCIL8, layout_,
                             depthRenderbuffer_);
}

void RenderTarget::createDepthTexture(int index, unsigned target, int wrap) {
    GLTexture& texture = depthTextures_[static_cast<size_t>(index)];
    texture.create();
    glBindTexture(target, texture.name());
    if (target == GL_TEXTURE_2D_MULTISAMPLE) {
        glTexImage2DMultisample(target, layout_.samples, GL_DEPTH24_STENCIL8, layout_.width,
                                layout_.height, GL_TRUE);
    } else {
        setFilters(target, GL_NEAREST, GL_NEAREST);
        if (target == GL_TEXTURE_2D)
            setWrap(target, wrap);
        glTexImage2D(target, 0, GL_DEPTH24_STENCIL8, layout_.width, layout_.height, 0,
                     GL_DEPTH_STENCIL, GL_UNSIGNED_INT_24_8, nullptr);
    }
    glGetError(); // a texture that the driver refuses shows as an incomplete framebuffer
    glBindTexture(target, 0);
    attach(GL_DEPTH_STENCIL_ATTACHMENT, target, texture);
}

void RenderTarget::bind() {
    if (!bound_) {
        glGetIntegerv(GL_DRAW_BUFFER, &savedDrawBuffer_);
        glGetIntegerv(GL_READ_BUFFER, &savedReadBuffer_);
        glGetIntegerv(GL_FRAMEBUFFER_BINDING, &savedFramebuffer_);
    }
    if (exists())
        glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_.name());
    bound_ = true;
}

void RenderTarget::unbind() {
    if (!bound_)
        return;
    glBindFramebuffer(GL_FRAMEBUFFER, static_cast<unsigned>(savedFramebuffer_));
    glDrawBuffer(static_cast<unsigned>(savedDrawBuffer_));
    glReadBuffer(static_cast<unsigned>(savedReadBuffer_));
    bound_ = false;
}

void RenderTarget::setDrawBuffer(int index, int level) {
    if (!exists() || layout_.kind == TargetKind::DepthOnly)
        return;
    if (layout_.kind == TargetKind::CubeMap) {
        if (attachments_.empty() || index < 0 || index >= 6)
            return;
        attach(GL_COLOR_ATTACHMENT0, GL_TEXTURE_CUBE_MAP_POSITIVE_X + static_cast<unsigned>(index),
               colorTextures_[0], level);
        glDrawBuffer(GL_COLOR_ATTACHMENT0);
        return;
    }
    if (!hasColor(index))
        return;
    glDrawBuffer(attachmentEnum(index));
    if (layout_.depth == DepthMode::PerAttachment)
        attachDepth(index);
}

void RenderTarget::setReadBuffer(int index) {
    if (!exists())
        return;
    if (layout_.kind == TargetKind::DepthOnly) {
        if (depthTexture(index) != 0)
            attach(GL_DEPTH_ATTACHMENT, GL_TEXTURE_2D, depthTextures_[static_cast<size_t>(index)]);
        return;
    }
    if (layout_.kind == TargetKind::CubeMap || !hasColor(index))
        return;
    glReadBuffer(attachmentEnum(index));
    if (layout_.depth == DepthMode::PerAttachment)
        attachDepth(index);
}

void RenderTarget::setAllDrawBuffers() {
    if (!exists() || layout_.kind == TargetKind::CubeMap)
        return;
    std::vector<unsigned> buffers;
    for (const int index : attachments_)
        buffers.push_back(attachmentEnum(index));
    if (buffers.empty())
        buffers.push_back(GL_NONE);
    glDrawBuffers(static_cast<int>(buffers.size()), buffers.data());
    if (layout_.depth == DepthMode::PerAttachment)
        attachDepth(0);
}

unsigned RenderTarget::attachmentEnum(int index) {
    return static_cast<unsigned>(GL_COLOR_ATTACHMENT0 + index);
}

/// Attaches the stencil bits too: drivers refuse depth and stencil from two textures.
void RenderTarget::attachDepth(int index) {
    if (depthTexture(index) != 0)
        attach(GL_DEPTH_STENCIL_ATTACHMENT, depthTarget(),
               depthTextures_[static_cast<size_t>(index)]);
}

unsigned RenderTarget::depthTarget() const {
    return layout_.kind == TargetKind::Rectangle ? GL_TEXTURE_RECTANGLE : GL_TEXTURE_2D;
}

bool RenderTarget::hasColor(int index) const {
    return std::find(attachments_.begin(), attachments_.end(), index) != attachments_.end();
}

void RenderTarget::release() {
    if (wglGetCurrentContext() != nullptr)
        unbind();
    bound_ = false;
    framebuffer_.reset();
    colorRenderbuffer_.reset();
    depthRenderbuffer_.reset();
    for (int i = 0; i < kMaxColorAttachments; ++i) {
        colorTextures_[static_cast<size_t>(i)].reset();
        depthTextures_[static_cast<size_t>(i)].reset();
    }
    attachments_.clear();
}

unsigned RenderTarget::colorTexture(int index) const {
    if (index < 0 || index >= kMaxColorAttachments)
        return 0;
    const GLTexture& texture = colorTextures_[static_cast<size_t>(index)];
    return texture.exists() ? texture.name() : 0;
}

unsigned RenderTarget::depthTexture(int index) const {
    if (index < 0 || index >= kMaxColorAttachments)
        return 0;
    const GLTexture& texture = depthTextures_[static_cast<size_t>(index)];
    return texture.exists() ? texture.name() : 0;
}

} // namespace ogl
