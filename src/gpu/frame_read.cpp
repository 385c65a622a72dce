// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/frame_read.h"

#include "gpu/driver_quirks.h"
#include "gpu/gl_objects.h"

namespace ogl {

namespace {

bool isMultisampledWindow() {
    GLint framebuffer = 0;
    GLint sampleBuffers = 0;
    glGetIntegerv(GL_READ_FRAMEBUFFER_BINDING, &framebuffer);
    glGetIntegerv(GL_SAMPLE_BUFFERS, &sampleBuffers);
    return framebuffer == 0 && sampleBuffers > 0;
}

/// A resolving copy needs the window's own format.
unsigned windowFormat() {
    GLint alphaBits = 0;
    glGetIntegerv(GL_ALPHA_BITS, &alphaBits);
    return alphaBits > 0 ? GL_RGBA8 : GL_RGB8;
}

/// A single-sample copy of a part of the window's picture, bound for reading until it goes.
class ResolvedFrame {
  public:
    explicit ResolvedFrame(const PixelRect& rect) {
        const unsigned format = windowFormat();
        glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &drawBinding_);
        color_.create();
        framebuffer_.create();
        glBindRenderbuffer(GL_RENDERBUFFER, color_.name());
        glRenderbufferStorage(GL_RENDERBUFFER, format, rect.width, rect.height);
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer_.name());
        glFramebufferRenderbuffer(GL_DRAW_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER,
                                  color_.name());
        complete_ = glCheckFramebufferStatus(GL_DRAW_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
        if (!complete_)
            return;
        glBlitFramebuffer(rect.x, rect.y, rect.x + rect.width, rect.y + rect.height, 0, 0,
                          rect.width, rect.height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
        glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer_.name());
    }
    ~ResolvedFrame() {
        glBindRenderbuffer(GL_RENDERBUFFER, 0);
        glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<unsigned>(drawBinding_));
    }
    ResolvedFrame(const ResolvedFrame&) = delete;
    ResolvedFrame& operator=(const ResolvedFrame&) = delete;

    /// False where the driver has no room for the copy: the window is still bound for reading.
    bool isComplete() const { return complete_; }

  private:
    GLRenderbuffer color_;
    GLFramebuffer framebuffer_;
    GLint drawBinding_ = 0;
    bool complete_ = false;
};

} // namespace

void readPixels(const PixelRect& rect, unsigned format, unsigned type, void* pixels) {
    if (readsOneSampleOfWindows() && isMultisampledWindow()) {
        const ResolvedFrame resolved(rect); // a copy averages the samples
        if (resolved.isComplete()) {
            glReadPixels(0, 0, rect.width, rect.height, format, type, pixels);
            return;
        }
    }
    glReadPixels(rect.x, rect.y, rect.width, rect.height, format, type, pixels);
}

void readPixels(int width, int height, unsigned format, void* pixels) {
    readPixels({0, 0, width, height}, format, GL_UNSIGNED_BYTE, pixels);
}

} // namespace ogl
