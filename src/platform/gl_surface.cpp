// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/gl_surface.h"

#include "platform/dummy_context.h"
#include "platform/own_window.h"
#include "platform/pixel_format.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace ogl {

namespace {

bool debugContextWanted() {
    const char* value = std::getenv("OGL_DEBUG");
    return value != nullptr && std::strcmp(value, "1") == 0;
}

HGLRC makeContext(HDC dc) {
    if (debugContextWanted() && wglCreateContextAttribsARB != nullptr) {
        const int attributes[] = {WGL_CONTEXT_FLAGS_ARB, WGL_CONTEXT_DEBUG_BIT_ARB,
                                  WGL_CONTEXT_PROFILE_MASK_ARB,
                                  WGL_CONTEXT_COMPATIBILITY_PROFILE_BIT_ARB, 0};
        if (const HGLRC context = wglCreateContextAttribsARB(dc, nullptr, attributes))
            return context;
    }
    return wglCreateContext(dc);
}

/// Loads the extension entry points and finds the best format while some context is current.
bool searchFormat(HDC dc, int samples, int& format, char (&aaName)[32]) {
    const DummyContext dummy;
    if (glewInit() != GLEW_OK)
        return false;
    chooseMultisampleFormat(dc, samples, format, aaName);
    return true;
}

struct OpenContext {
    HGLRC handle;
    unsigned number;
};

/// The contexts that exist.
std::vector<OpenContext>& shareGroup() {
    static std::vector<OpenContext> contexts;
    return contexts;
}

/// Before the context is current for the first time: some drivers share nothing afterwards.
void joinShareGroup(HGLRC context) {
    static unsigned last = 0;
    if (!shareGroup().empty())
        wglShareLists(shareGroup().front().handle, context);
    shareGroup().push_back({context, ++last});
}

/// A window takes one pixel format for its life: one that has a format keeps it.
bool setPixelFormat(HDC dc, int format, const PIXELFORMATDESCRIPTOR& descriptor, bool& kept) {
    const int existing = GetPixelFormat(dc);
    kept = existing != 0 && existing != format;
    return existing != 0 || SetPixelFormat(dc, format, &descriptor);
}

} // namespace

int createContext(GLSurface& surface, int requestedSamples, int isSecondary, HDC dc) {
    surface.dc = dc;
    surface.isSecondary = isSecondary;
    PIXELFORMATDESCRIPTOR descriptor = windowPixelFormat();
    int format = ChoosePixelFormat(dc, &descriptor);
    const bool searched =
        searchFormat(dc, sampleCountFor(requestedSamples), format, surface.aaName);
    wglMakeCurrent(nullptr, nullptr);
    if (!searched)
        return kGlewInitFailed;

    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (!GetVersionExA(&version))
        return kVersionUnknown;
    if (version.dwMajorVersion >= 6)
        descriptor.dwFlags |= PFD_SUPPORT_COMPOSITION;
    bool keptFormat = false;
    if (!setPixelFormat(dc, format, descriptor, keptFormat))
        return kSetPixelFormatFailed;
    surface.glContext = makeContext(dc);
    if (surface.glContext == nullptr)
        return kCreateContextFailed;
    joinShareGroup(surface.glContext);
    if (!wglMakeCurrent(dc, surface.glContext))
        return kMakeCurrentFailed;
    surface.samples = 0;
    glGetIntegerv(GL_SAMPLES, &surface.samples);
    if (keptFormat) {
        surface.aaName[0] = '\0';
        if (surface.samples > 0)
            std::snprintf(surface.aaName, sizeof surface.aaName, "%dx MSAA", surface.samples);
    }
    return kContextCreated;
}

bool makeCurrent(const GLSurface& surface) {
    // A context that is current already would stay so on a window that is gone.
    if (surface.glContext != nullptr && !isLost(surface) &&
        wglMakeCurrent(surface.dc, surface.glContext))
        return true;
    wglMakeCurrent(nullptr, nullptr);
    return false;
}

bool isLost(const GLSurface& surface) {
    return surface.glContext != nullptr && !IsWindow(surface.window);
}

unsigned currentContextNumber() {
    const HGLRC current = wglGetCurrentContext();
    const auto found = std::ranges::find(shareGroup(), current, &OpenContext::handle);
    return current != nullptr && found != shareGroup().end() ? found->number : 0;
}

bool isContextOpen(unsigned number) {
    return std::ranges::find(shareGroup(), number, &OpenContext::number) != shareGroup().end();
}

void tearDown(GLSurface& surface) {
    if (surface.glContext != nullptr) {
        wglMakeCurrent(surface.dc, nullptr);
        std::erase_if(shareGroup(),
                      [&](const OpenContext& open) { return open.handle == surface.glContext; });
        wglDeleteContext(surface.glContext);
    }
    if (surface.window != nullptr && surface.dc != nullptr && surface.dc != ownWindowDC())
        ReleaseDC(surface.window, surface.dc);
    surface.window = nullptr;
    surface.dc = nullptr;
    surface.glContext = nullptr;
    surface.isSecondary = -1;
    surface.samples = -1;
    surface.stateReset = false;
}

} // namespace ogl
