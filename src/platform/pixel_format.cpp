// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/pixel_format.h"

#include <cstdio>
#include <initializer_list>

namespace ogl {

int sampleCountFor(int requested) {
    int samples = 1;
    for (const int rung : {4, 8, 16})
        if (rung <= requested)
            samples = rung;
    return samples;
}

PIXELFORMATDESCRIPTOR windowPixelFormat() {
    PIXELFORMATDESCRIPTOR descriptor{};
    descriptor.nSize = sizeof descriptor;
    descriptor.nVersion = 1;
    descriptor.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
    descriptor.iPixelType = PFD_TYPE_RGBA;
    descriptor.cColorBits = 24;
    descriptor.cAlphaBits = 8;
    descriptor.cDepthBits = 32;
    descriptor.cStencilBits = 8;
    descriptor.iLayerType = PFD_MAIN_PLANE;
    return descriptor;
}

int multisampleFormat(HDC dc, int samples) {
    const int attributes[] = {WGL_DRAW_TO_WINDOW_ARB,
                              1,
                              WGL_ACCELERATION_ARB,
                              WGL_FULL_ACCELERATION_ARB,
                              WGL_COLOR_BITS_ARB,
                              24,
                              WGL_ALPHA_BITS_ARB,
                              8,
                              WGL_DEPTH_BITS_ARB,
                              24,
                              WGL_STENCIL_BITS_ARB,
                              8,
                              WGL_DOUBLE_BUFFER_ARB,
                              1,
                              WGL_SAMPLE_BUFFERS_ARB,
                              1,
                              WGL_SAMPLES_ARB,
                              samples,
                              0};
    int found = 0;
    UINT count = 0;
    const bool ok = wglChoosePixelFormatARB != nullptr &&
                    wglChoosePixelFormatARB(dc, attributes, nullptr, 1, &found, &count) &&
                    count != 0;
    return ok ? found : 0;
}

void chooseMultisampleFormat(HDC dc, int samples, int& format, char (&aaName)[32]) {
    aaName[0] = '\0';
    for (int n = samples; n > 0; n /= 2) {
        const int found = multisampleFormat(dc, n);
        if (found == 0)
            continue;
        format = found;
        std::snprintf(aaName, sizeof aaName, "%dx MSAA", n);
        return;
    }
}

} // namespace ogl
