// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/message_queue.h"

#include <memory>
#include <string>

namespace ogl::x11 {

/// A window made by CreateWindowExA. Its X window exists as long as the record is registered.
struct WindowRecord {
    Window window = None;
    std::string className;
    WNDPROC procedure = nullptr;
    LONG_PTR userData = 0;
    const MessageQueue* owner = nullptr; // of the thread that made it, which removes the record
    std::weak_ptr<MessageQueue> queue;   // the same, for other threads
    Size size{0, 0};                     // as its procedure was told last
    bool isChild = false;
    bool wasShown = false;
    std::atomic<bool> isShown = false; // hidden windows are never painted
    std::atomic<bool> needsPaint = false;
};

using WindowPointer = std::shared_ptr<WindowRecord>;

/// The record of a window that was made here; null for any other.
WindowPointer findWindow(Window window);
void addWindow(const WindowPointer& record);
void removeWindow(Window window);

/// The next window of the thread that wants to be painted.
Window windowToPaint(const MessageQueue& queue);
/// Drops the records of a thread that ends.
void forgetWindowsOf(const MessageQueue& queue);
bool classHasWindows(const std::string& className);

/// Calls the window's procedure.
LRESULT sendMessage(WindowRecord& record, UINT message, WPARAM wParam, LPARAM lParam);
/// Tells the procedure the window's size when it is new.
void sendSize(WindowRecord& record, Size size);

struct WindowClass {
    WNDPROC procedure = nullptr;
    HCURSOR cursor = nullptr; ///< a shape of the X server's cursor font
    bool background = false;
};
bool findClass(const std::string& name, WindowClass& found);

} // namespace ogl::x11
