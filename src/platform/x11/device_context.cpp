// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/x11/device_context.h"

#include "platform/x11/pixel_formats.h"
#include "platform/x11/window_record.h"

#include <mutex>
#include <unordered_map>

namespace ogl::x11 {
namespace {

struct DeviceContexts {
    std::recursive_mutex mutex;
    std::unordered_map<Window, std::unique_ptr<DeviceContext>> byWindow;
    uintptr_t lastHandle = 0;
};

DeviceContexts& deviceContexts() {
    static auto* const instance = new DeviceContexts;
    return *instance;
}

void destroyChild(DeviceContext& dc) {
    Display* const x = display();
    if (!x || !dc.child)
        return;
    unbind(dc);
    const ErrorScope scope(x);
    glXDestroyWindow(x, dc.drawable);
    XDestroyWindow(x, dc.child);
    (void)scope.failed(); // the child went with its window when a host destroyed that first
    dc.drawable = None;
    dc.child = None;
    dc.format = 0;
}

// A host may have destroyed its window, and a new window may have got its number since.
bool childIsAlive(const DeviceContext& dc) {
    Window root, parent;
    Window* children = nullptr;
    unsigned count;
    if (!XQueryTree(display(), dc.child, &root, &parent, &children, &count))
        return false;
    if (children)
        XFree(children);
    return parent == dc.window;
}

Window createChild(Display* x, Window parent, Size size, const XVisualInfo& visual) {
    XSetWindowAttributes attributes{};
    attributes.colormap =
        XCreateColormap(x, RootWindow(x, visual.screen), visual.visual, AllocNone);
    // No background: the server must not paint over a frame before the next one.
    const Window child = XCreateWindow(
        x, parent, 0, 0, static_cast<unsigned>(size.width), static_cast<unsigned>(size.height), 0,
        visual.depth, InputOutput, visual.visual, CWColormap | CWBorderPixel, &attributes);
    XMapWindow(x, child);
    XFreeColormap(x, attributes.colormap);
    return child;
}

} // namespace

DeviceContext* findDeviceContext(HDC handle) {
    DeviceContexts& all = deviceContexts();
    const std::lock_guard lock(all.mutex);
    for (const auto& [window, dc] : all.byWindow)
        if (dc->handle == handle)
            return dc.get();
    return nullptr;
}

void fitDrawingChild(HWND window) {
    DeviceContexts& all = deviceContexts();
    const std::lock_guard lock(all.mutex);
    const auto found = all.byWindow.find(toWindow(window));
    Size size;
    if (found == all.byWindow.end() || !found->second->child || !windowSize(toWindow(window), size))
        return;
    DeviceContext& dc = *found->second;
    if (dc.childSize == size)
        return;
    Display* const x = display();
    const ErrorScope scope(x);
    XResizeWindow(x, dc.child, static_cast<unsigned>(size.width),
                  static_cast<unsigned>(size.height));
    if (scope.failed())
        return;
    dc.childSize = size;
    renewDrawable(dc);
}

void forgetDeviceContext(HWND window) {
    DeviceContexts& all = deviceContexts();
    const std::lock_guard lock(all.mutex);
    const auto found = all.byWindow.find(toWindow(window));
    if (found == all.byWindow.end())
        return;
    destroyChild(*found->second);
    all.byWindow.erase(found);
}

} // namespace ogl::x11

using namespace ogl::x11;

HDC GetDC(HWND window) {
    if (!IsWindow(window))
        return nullptr;
    DeviceContexts& all = deviceContexts();
    const std::lock_guard lock(all.mutex);
    auto& dc = all.byWindow[toWindow(window)];
    if (!dc) {
        dc = std::make_unique<DeviceContext>();
        dc->window = toWindow(window);
        dc->handle = reinterpret_cast<HDC>(++all.lastHandle << 4);
    }
    if (dc->child && !childIsAlive(*dc))
        destroyChild(*dc);
    ++dc->references;
    return dc->handle;
}

int ReleaseDC(HWND window, HDC handle) {
    DeviceContexts& all = deviceContexts();
    const std::lock_guard lock(all.mutex);
    DeviceContext* const dc = findDeviceContext(handle);
    if (!dc || dc->window != toWindow(window) || dc->references == 0)
        return 0;
    // A window of ours keeps its pixel format for life; a window of some other toolkit is handed
    // back as it was, without the child.
    if (--dc->references == 0 && !findWindow(dc->window)) {
        destroyChild(*dc);
        all.byWindow.erase(toWindow(window));
    }
    return 1;
}

int GetPixelFormat(HDC handle) {
    const DeviceContext* dc = findDeviceContext(handle);
    return dc ? dc->format : 0;
}

BOOL SetPixelFormat(HDC handle, int format, const PIXELFORMATDESCRIPTOR*) {
    Display* const x = display();
    DeviceContexts& all = deviceContexts();
    const std::lock_guard lock(all.mutex);
    DeviceContext* const dc = findDeviceContext(handle);
    const PixelFormat* const wanted = pixelFormat(format);
    Size size;
    if (!x || !dc || !wanted || !windowSize(dc->window, size))
        return FALSE;
    if (dc->format)
        return dc->format == format ? TRUE : FALSE;
    const ErrorScope scope(x);
    dc->child = createChild(x, dc->window, size, wanted->visual);
    dc->drawable = glXCreateWindow(x, wanted->config, dc->child, nullptr);
    if (scope.failed()) {
        destroyChild(*dc);
        return FALSE;
    }
    dc->childSize = size;
    dc->format = format;
    return TRUE;
}

BOOL SwapBuffers(HDC handle) {
    const DeviceContext* dc = findDeviceContext(handle);
    if (!dc || !dc->drawable)
        return FALSE;
    glXSwapBuffers(display(), dc->drawable);
    return TRUE;
}
