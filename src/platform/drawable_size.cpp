// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/drawable_size.h"

#include <array>
#include <chrono>

namespace ogl {

namespace {

using Pixel = std::array<GLubyte, 4>;

/// Whether a clear with `color` reaches the pixel. Reading outside the buffer gives undefined
/// bytes, so the caller tries two colours.
bool clearReaches(int x, int y, const Pixel& color) {
    glClearColor(static_cast<float>(color[0]) / 255.0f, static_cast<float>(color[1]) / 255.0f,
                 static_cast<float>(color[2]) / 255.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    Pixel read{0x55, 0xaa, 0x55, 0xaa};
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, read.data());
    return read[0] == color[0] && read[1] == color[1] && read[2] == color[2];
}

bool drawableCovers(int width, int height) {
    glViewport(0, 0, width, height);
    constexpr Pixel kFirst{255, 0, 0, 255};
    constexpr Pixel kSecond{0, 0, 255, 255};
    return clearReaches(width - 1, height - 1, kFirst) &&
           clearReaches(width - 1, height - 1, kSecond);
}

} // namespace

bool waitForDrawableSize(HDC dc, int width, int height) {
    glPushAttrib(GL_COLOR_BUFFER_BIT | GL_ENABLE_BIT | GL_PIXEL_MODE_BIT | GL_SCISSOR_BIT |
                 GL_VIEWPORT_BIT);
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    GLint framebuffer = 0;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    glDrawBuffer(GL_BACK);
    glReadBuffer(GL_BACK);
    glDisable(GL_SCISSOR_TEST);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);

    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(1);
    bool covered = false;
    do {
        SwapBuffers(dc);
        covered = drawableCovers(width, height);
        if (!covered)
            Sleep(1);
    } while (!covered && std::chrono::steady_clock::now() < limit);

    glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(framebuffer));
    glPopClientAttrib();
    glPopAttrib();
    return covered;
}

} // namespace ogl
