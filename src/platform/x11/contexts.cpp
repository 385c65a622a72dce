// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// OpenGL contexts over GLX. Every context shares its objects with all that live beside it.
#include "platform/x11/device_context.h"
#include "platform/x11/pixel_formats.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <mutex>
#include <vector>

namespace ogl::x11 {
namespace {

struct Context {
    GLXContext glx;
    int format;
};

struct Contexts {
    std::mutex mutex;
    std::vector<std::unique_ptr<Context>> live;
};

Contexts& contexts() {
    static auto* const instance = new Contexts;
    return *instance;
}

thread_local Context* currentContext = nullptr;
thread_local HDC currentDC = nullptr;

Context* find(HGLRC handle) {
    Contexts& all = contexts();
    const std::lock_guard lock(all.mutex);
    for (const auto& context : all.live)
        if (context.get() == reinterpret_cast<Context*>(handle))
            return context.get();
    return nullptr;
}

GLXContext shareContext() {
    Contexts& all = contexts();
    const std::lock_guard lock(all.mutex);
    return all.live.empty() ? nullptr : all.live.front()->glx;
}

HGLRC keep(GLXContext glx, int format) {
    Contexts& all = contexts();
    const std::lock_guard lock(all.mutex);
    all.live.push_back(std::make_unique<Context>(Context{glx, format}));
    return reinterpret_cast<HGLRC>(all.live.back().get());
}

// Creates a context for the format of `dc`; null on any error that the server or driver reports.
template <class Create> HGLRC createFor(HDC handle, Create create) {
    Display* const x = display();
    const DeviceContext* const dc = findDeviceContext(handle);
    const PixelFormat* const format = dc ? pixelFormat(dc->format) : nullptr;
    if (!x || !format)
        return nullptr;
    const ErrorScope scope(x);
    const GLXContext glx = create(x, format->config, shareContext());
    if (!scope.failed())
        return glx ? keep(glx, dc->format) : nullptr;
    if (glx)
        glXDestroyContext(x, glx);
    return nullptr;
}

void setCurrent(Context* context, DeviceContext* dc, HDC handle) {
    if (DeviceContext* const before = findDeviceContext(currentDC))
        before->currentOn = 0;
    currentContext = context;
    currentDC = handle;
    if (dc)
        dc->currentOn = GetCurrentThreadId();
}

/// A host that calls GLX itself makes other contexts current behind this layer.
void noticeOthers() {
    if (currentContext && glXGetCurrentContext() != currentContext->glx)
        setCurrent(nullptr, nullptr, nullptr);
}

bool bind(Display* x, GLXDrawable drawable, GLXContext glx) {
    const ErrorScope scope(x);
    return glXMakeContextCurrent(x, drawable, drawable, glx) && !scope.failed();
}

bool hasExtension(Display* x, const char* name) {
    const char* const all = glXQueryExtensionsString(x, DefaultScreen(x));
    const size_t length = std::strlen(name);
    for (const char* at = all; at && (at = std::strstr(at, name)); at += length)
        if ((at == all || at[-1] == ' ') && (at[length] == ' ' || at[length] == '\0'))
            return true;
    return false;
}

template <class Function> Function extension(const char* name) {
    return reinterpret_cast<Function>(glXGetProcAddressARB(reinterpret_cast<const GLubyte*>(name)));
}

// WGL_ARB_create_context and GLX_ARB_create_context use the same names and values for versions,
// flags and profiles.
HGLRC createWithAttributes(HDC dc, HGLRC share, const int* attributes) {
    Display* const x = display();
    if (!x || !hasExtension(x, "GLX_ARB_create_context") || (share && !find(share)))
        return nullptr;
    const auto create = extension<PFNGLXCREATECONTEXTATTRIBSARBPROC>("glXCreateContextAttribsARB");
    return createFor(dc, [&](Display* connection, GLXFBConfig config, GLXContext shared) {
        return create(connection, config, shared, True, attributes);
    });
}

BOOL swapInterval(int interval) {
    Display* const x = display();
    const DeviceContext* const dc = currentDeviceContext();
    if (!x || !dc || interval < 0)
        return FALSE;
    if (hasExtension(x, "GLX_EXT_swap_control")) {
        extension<PFNGLXSWAPINTERVALEXTPROC>("glXSwapIntervalEXT")(x, dc->drawable, interval);
        return TRUE;
    }
    if (hasExtension(x, "GLX_MESA_swap_control"))
        return extension<PFNGLXSWAPINTERVALMESAPROC>("glXSwapIntervalMESA")(
                   static_cast<unsigned>(interval)) == 0;
    if (interval == 0)
        return TRUE; // a driver without swap control waits for nothing
    sayOnce("wglSwapIntervalEXT: the driver has no swap control");
    return FALSE;
}

} // namespace

DeviceContext* currentDeviceContext() {
    noticeOthers();
    return currentDC ? findDeviceContext(currentDC) : nullptr;
}

bool renewDrawable(DeviceContext& dc) {
    noticeOthers();
    const PixelFormat* const format = pixelFormat(dc.format);
    const bool isMine = dc.currentOn == GetCurrentThreadId() && currentDC == dc.handle;
    if (!format || (dc.currentOn && !isMine))
        return false;
    Display* const x = display();
    if (isMine)
        glXMakeContextCurrent(x, None, None, nullptr);
    const ErrorScope scope(x);
    glXDestroyWindow(x, dc.drawable);
    dc.drawable = glXCreateWindow(x, format->config, dc.child, nullptr);
    const bool renewed = !scope.failed();
    if (isMine && !(renewed && bind(x, dc.drawable, currentContext->glx)))
        wglMakeCurrent(nullptr, nullptr);
    return renewed;
}

void unbind(const DeviceContext& dc) {
    noticeOthers();
    if (currentDC == dc.handle)
        wglMakeCurrent(nullptr, nullptr);
}

} // namespace ogl::x11

using namespace ogl::x11;

const PFNWGLCREATECONTEXTATTRIBSARBPROC wglCreateContextAttribsARB = createWithAttributes;
const PFNWGLSWAPINTERVALEXTPROC wglSwapIntervalEXT = swapInterval;

HGLRC wglCreateContext(HDC dc) {
    return createFor(dc, [](Display* x, GLXFBConfig config, GLXContext share) {
        return glXCreateNewContext(x, config, GLX_RGBA_TYPE, share, True);
    });
}

BOOL wglDeleteContext(HGLRC handle) {
    Context* const context = find(handle);
    if (!context)
        return FALSE;
    noticeOthers();
    if (context == currentContext)
        wglMakeCurrent(nullptr, nullptr);
    glXDestroyContext(display(), context->glx);
    Contexts& all = contexts();
    const std::lock_guard lock(all.mutex);
    std::erase_if(all.live, [&](const auto& live) { return live.get() == context; });
    return TRUE;
}

BOOL wglMakeCurrent(HDC handle, HGLRC contextHandle) {
    Display* const x = display();
    if (!x)
        return FALSE;
    noticeOthers();
    if (!contextHandle) {
        setCurrent(nullptr, nullptr, nullptr);
        return glXMakeContextCurrent(x, None, None, nullptr) ? TRUE : FALSE;
    }
    DeviceContext* const dc = findDeviceContext(handle);
    Context* const context = find(contextHandle);
    if (!dc || !context || !dc->drawable)
        return FALSE;
    if (currentContext == context && currentDC == handle)
        return TRUE;
    if (!bind(x, dc->drawable, context->glx))
        return FALSE;
    setCurrent(context, dc, handle);
    return TRUE;
}

HGLRC wglGetCurrentContext() {
    noticeOthers();
    return reinterpret_cast<HGLRC>(currentContext);
}

HDC wglGetCurrentDC() {
    noticeOthers();
    return currentDC;
}

BOOL wglShareLists(HGLRC first, HGLRC second) {
    return find(first) && find(second) ? TRUE : FALSE;
}

PROC wglGetProcAddress(LPCSTR name) {
    return name ? extension<PROC>(name) : nullptr;
}
