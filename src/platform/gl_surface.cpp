// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/gl_surface.h"

#include "platform/dummy_context.h"
#include "platform/fault_guard.h"
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
int searchFormat(HDC dc, int samples, int& format, char (&aaName)[32]) {
    DummyContext dummy;
    bool loaded = false;
    const bool survived = runGuarded([&] {
        dummy.open();
        loaded = glewInit() == GLEW_OK;
        if (loaded)
            chooseMultisampleFormat(dc, samples, format, aaName);
    });
    if (!survived)
        return kFormatSearchFaulted;
    return loaded ? kContextCreated : kGlewInitFailed;
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

unsigned generation = 0; ///< of the share group

/// Before the context is current for the first time: some drivers share nothing afterwards.
bool joinShareGroup(HGLRC context) {
    static unsigned last = 0;
    if (!shareGroup().empty() && !wglShareLists(shareGroup().front().handle, context))
        return false;
    shareGroup().push_back({context, ++last});
    return true;
}

void leaveShareGroup(HGLRC context) {
    const auto isThis = [=](const OpenContext& open) { return open.handle == context; };
    if (std::erase_if(shareGroup(), isThis) != 0 && shareGroup().empty())
        ++generation;
}

/// A window takes one pixel format for its life: one that has a format keeps it.
int setPixelFormat(HDC dc, int format, const PIXELFORMATDESCRIPTOR& descriptor, bool& kept) {
    int existing = 0;
    BOOL set = FALSE;
    const bool survived = runGuarded([&] {
        existing = GetPixelFormat(dc);
        set = existing != 0 || SetPixelFormat(dc, format, &descriptor);
    });
    kept = existing != 0 && existing != format;
    if (!survived)
        return kSetPixelFormatFaulted;
    return set ? kContextCreated : kSetPixelFormatFailed;
}

/// Gives the surface a context for its device context's format, and makes it current.
int openContext(GLSurface& surface) {
    if (!runGuarded([&] { surface.glContext = makeContext(surface.dc); }))
        return kCreateContextFaulted;
    if (surface.glContext == nullptr)
        return kCreateContextFailed;
    if (!joinShareGroup(surface.glContext))
        return kSharingFailed;
    BOOL current = FALSE;
    if (!runGuarded([&] { current = wglMakeCurrent(surface.dc, surface.glContext); }))
        return kMakeCurrentFaulted;
    return current ? kContextCreated : kMakeCurrentFailed;
}

bool systemVersion(OSVERSIONINFOA& version) {
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(&version) != FALSE;
}

} // namespace

int createContext(GLSurface& surface, int requestedSamples, int isSecondary, HDC dc) {
    surface.dc = dc;
    surface.isSecondary = isSecondary;
    PIXELFORMATDESCRIPTOR descriptor = windowPixelFormat();
    int format = 0;
    if (!runGuarded([&] { format = ChoosePixelFormat(dc, &descriptor); }))
        return kChoosePixelFormatFaulted;
    int result = searchFormat(dc, sampleCountFor(requestedSamples), format, surface.aaName);
    wglMakeCurrent(nullptr, nullptr);
    if (result != kContextCreated)
        return result;

    OSVERSIONINFOA version{};
    if (!systemVersion(version))
        return kVersionUnknown;
    if (version.dwMajorVersion >= 6)
        descriptor.dwFlags |= PFD_SUPPORT_COMPOSITION;
    bool keptFormat = false;
    result = setPixelFormat(dc, format, descriptor, keptFormat);
    if (result == kContextCreated)
        result = openContext(surface);
    if (result != kContextCreated)
        return result;
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

unsigned contextGeneration() {
    return generation;
}

void tearDown(GLSurface& surface) {
    if (surface.glContext != nullptr) {
        leaveShareGroup(surface.glContext);
        // A driver that faulted as it made the context may do so again.
        runGuarded([&] {
            wglMakeCurrent(surface.dc, nullptr);
            wglDeleteContext(surface.glContext);
        });
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
