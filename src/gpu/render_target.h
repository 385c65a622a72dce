// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"

#include <array>
#include <vector>

namespace ogl {

/// What the colours of a target are stored in.
enum class TargetKind : int {
    Renderbuffer = 0, ///< one colour attachment at most
    Texture2D = 1,    ///< multisample textures from one sample on
    Rectangle = 2,
    CubeMap = 3,   ///< no depth
    DepthOnly = 4, ///< a 2D depth texture
};

enum class DepthMode : int {
    None = 0,
    Shared = 1,        ///< one depth-stencil attachment for all colours
    PerAttachment = 2, ///< one depth-stencil texture for each colour; kinds Texture2D, Rectangle
};

enum class ColorFormat : int {
    Rgb8 = 0,
    Rgba8 = 1,
    Rgba16Mipmapped = 2,
    Rgba16fMipmapped = 3,
    Rgba16f = 4,
    Rgba32f = 5,
    Luminance32f = 6, ///< most drivers cannot draw into luminance
    Luminance8 = 7,
};

/// What a target is made of.
struct TargetLayout {
    TargetKind kind = TargetKind::Renderbuffer;
    int width = 0; ///< pixels
    int height = 0;
    int colorCount = 1; ///< 0 to kMaxColorAttachments; more than one only with textures
    DepthMode depth = DepthMode::None;
    /// Per pixel, at most what the driver has. Textures are multisampled from 1 on, renderbuffers
    /// from 2; the other kinds never.
    int samples = 0;
    ColorFormat format = ColorFormat::Rgba8;
};

inline constexpr int kMaxColorAttachments = 8;

/// Something to draw into other than the window. Attachments count from 0.
class RenderTarget {
  public:
    /// `owner`: the block of its renderer that the target belongs to; only remembered.
    explicit RenderTarget(const void* owner = nullptr) : owner_(owner) {}
    ~RenderTarget() { release(); }
    RenderTarget(const RenderTarget&) = delete;
    RenderTarget& operator=(const RenderTarget&) = delete;

    /// Makes the target. False when it exists already, or the layout is none (a side below 1, an
    /// unknown kind, format or depth mode, too many colours): nothing is made then. Also false
    /// when the driver cannot draw into what was made; it stays until release(). Leaves no texture
    /// bound, unit 0 active and the framebuffer and buffers as they were.
    bool create(const TargetLayout& layout);

    /// Draws go into the target until unbind(), reads come from it. Select buffers afterwards.
    void bind();
    /// Binds what was bound before, with the one draw and read buffer it had then.
    void unbind();

    /// Selects one attachment, and its own depth texture if it has one. `index` is the face
    /// (+X, -X, +Y, -Y, +Z, -Z) and `level` its mipmap for cube maps. The target must be bound.
    void setDrawBuffer(int index, int level = 0);
    void setReadBuffer(int index);
    /// Selects all attachments for drawing: fragment output k goes to attachment k. None for
    /// depth-only targets; changes nothing for cube maps.
    void setAllDrawBuffers();
    static unsigned attachmentEnum(int index);

    /// Deletes everything; unbinds the target if it is bound.
    void release();

    bool exists() const { return framebuffer_.exists(); }
    bool isBound() const { return bound_; }
    const TargetLayout& layout() const { return layout_; }
    int width() const { return layout_.width; }
    int height() const { return layout_.height; }
    /// Samples per pixel that its attachments really have.
    int samples() const { return layout_.samples; }
    /// Name of a colour texture, 0 when there is none.
    unsigned colorTexture(int index) const;
    /// Name of a depth texture; `index` is 0 unless each attachment has its own.
    unsigned depthTexture(int index = 0) const;
    const void* owner() const { return owner_; }

  private:
    void createAttachments();
    void createTextures2D();
    void createRectangles();
    void createCubeMaps();
    void createDepthOnly();
    void createRenderbuffers();
    void createDepthTexture(int index, unsigned target, int wrap);
    void attachDepth(int index);
    unsigned depthTarget() const;
    bool hasColor(int index) const;

    TargetLayout layout_;
    GLFramebuffer framebuffer_;
    GLRenderbuffer colorRenderbuffer_;
    GLRenderbuffer depthRenderbuffer_;
    std::array<GLTexture, kMaxColorAttachments> colorTextures_;
    std::array<GLTexture, kMaxColorAttachments> depthTextures_;
    std::vector<int> attachments_; ///< colour attachments in the order they were made
    bool bound_ = false;
    // What was bound before.
    int savedFramebuffer_ = 0;
    int savedDrawBuffer_ = GL_BACK;
    int savedReadBuffer_ = GL_BACK;
    const void* owner_;
};

} // namespace ogl
