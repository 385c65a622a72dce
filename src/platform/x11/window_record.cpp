// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/x11/window_record.h"

#include "platform/x11/device_context.h"

#include <map>
#include <vector>

namespace ogl::x11 {
namespace {

struct Windows {
    std::mutex mutex;
    std::map<Window, WindowPointer> records;
    std::map<std::string, WindowClass> classes;
};

Windows& windows() {
    static auto* const instance = new Windows;
    return *instance;
}

ATOM registerClass(LPCSTR name, const WindowClass& windowClass) {
    if (!name || !*name || !windowClass.procedure)
        return 0;
    Windows& all = windows();
    const std::lock_guard lock(all.mutex);
    if (!all.classes.emplace(name, windowClass).second)
        return 0;
    static ATOM last = 0xc000;
    return ++last;
}

} // namespace

WindowPointer findWindow(Window window) {
    Windows& all = windows();
    const std::lock_guard lock(all.mutex);
    const auto found = all.records.find(window);
    return found == all.records.end() ? nullptr : found->second;
}

void addWindow(const WindowPointer& record) {
    Windows& all = windows();
    const std::lock_guard lock(all.mutex);
    all.records[record->window] = record;
}

void removeWindow(Window window) {
    forgetDeviceContext(toHandle(window));
    Windows& all = windows();
    const std::lock_guard lock(all.mutex);
    all.records.erase(window);
}

Window windowToPaint(const MessageQueue& queue) {
    Windows& all = windows();
    const std::lock_guard lock(all.mutex);
    for (const auto& [window, record] : all.records)
        if (record->owner == &queue && record->isShown && record->needsPaint)
            return window;
    return None;
}

void forgetWindowsOf(const MessageQueue& queue) {
    std::vector<Window> mine;
    Windows& all = windows();
    {
        const std::lock_guard lock(all.mutex);
        for (const auto& [window, record] : all.records)
            if (record->owner == &queue)
                mine.push_back(window);
    }
    for (const Window window : mine)
        removeWindow(window);
}

bool classHasWindows(const std::string& className) {
    Windows& all = windows();
    const std::lock_guard lock(all.mutex);
    for (const auto& [window, record] : all.records)
        if (record->className == className)
            return true;
    return false;
}

LRESULT sendMessage(WindowRecord& record, UINT message, WPARAM wParam, LPARAM lParam) {
    return record.procedure(toHandle(record.window), message, wParam, lParam);
}

void sendSize(WindowRecord& record, Size size) {
    if (record.size == size)
        return;
    record.size = size;
    sendMessage(record, WM_SIZE, 0, MAKELPARAM(size.width, size.height));
}

bool findClass(const std::string& name, WindowClass& found) {
    Windows& all = windows();
    const std::lock_guard lock(all.mutex);
    const auto entry = all.classes.find(name);
    if (entry == all.classes.end())
        return false;
    found = entry->second;
    return true;
}

} // namespace ogl::x11

using namespace ogl::x11;

ATOM RegisterClassA(const WNDCLASSA* c) {
    if (!c)
        return 0;
    return registerClass(c->lpszClassName,
                         {c->lpfnWndProc, c->hCursor, c->hbrBackground != nullptr});
}

ATOM RegisterClassExA(const WNDCLASSEXA* c) {
    if (!c || c->cbSize != sizeof *c)
        return 0;
    return registerClass(c->lpszClassName,
                         {c->lpfnWndProc, c->hCursor, c->hbrBackground != nullptr});
}

BOOL UnregisterClassA(LPCSTR name, HINSTANCE) {
    if (!name || classHasWindows(name))
        return FALSE;
    Windows& all = windows();
    const std::lock_guard lock(all.mutex);
    return all.classes.erase(name) ? TRUE : FALSE;
}
