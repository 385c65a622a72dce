// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The message loop's functions.
#include "platform/x11/device_context.h"
#include "platform/x11/window_record.h"

#include <chrono>

using namespace ogl::x11;

namespace {

bool supportedFilter(HWND window, UINT first, UINT last) {
    if (!window && first == 0 && last == 0)
        return true;
    sayOnce("GetMessageA and PeekMessageA take all messages of the thread only");
    return false;
}

DWORD milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

MSG makeMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    MSG made{window, message, wParam, lParam, milliseconds(), {0, 0}};
    return made;
}

} // namespace

BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last) {
    if (!message || !supportedFilter(window, first, last))
        return -1;
    const auto next = MessageQueue::current().next(true, true);
    if (!next)
        return -1;
    *message = *next;
    return message->message == WM_QUIT ? FALSE : TRUE;
}

BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove) {
    if (!message || !supportedFilter(window, first, last))
        return FALSE;
    const auto next = MessageQueue::current().next(false, (remove & PM_REMOVE) != 0);
    if (!next)
        return FALSE;
    *message = *next;
    return TRUE;
}

BOOL TranslateMessage(const MSG* message) {
    if (!message || message->message != WM_KEYDOWN)
        return FALSE;
    MessageQueue& queue = MessageQueue::current();
    for (const char character : queue.lastText())
        queue.post(makeMessage(message->hwnd, WM_CHAR, static_cast<unsigned char>(character),
                               message->lParam));
    return TRUE;
}

LRESULT DispatchMessageA(const MSG* message) {
    if (!message)
        return 0;
    const WindowPointer record = findWindow(toWindow(message->hwnd));
    if (!record)
        return 0;
    return sendMessage(*record, message->message, message->wParam, message->lParam);
}

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!window)
        return PostThreadMessageA(GetCurrentThreadId(), message, wParam, lParam);
    const WindowPointer record = findWindow(toWindow(window));
    const auto queue = record ? record->queue.lock() : nullptr;
    if (!queue)
        return FALSE;
    queue->post(makeMessage(window, message, wParam, lParam));
    return TRUE;
}

BOOL PostThreadMessageA(DWORD threadId, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto queue = threadId == GetCurrentThreadId() ? MessageQueue::currentShared()
                                                        : MessageQueue::of(threadId);
    if (!queue)
        return FALSE;
    if (message == WM_QUIT)
        queue->postQuit(static_cast<int>(wParam));
    else
        queue->post(makeMessage(nullptr, message, wParam, lParam));
    return TRUE;
}

void PostQuitMessage(int exitCode) {
    MessageQueue::current().postQuit(exitCode);
}

LRESULT DefWindowProcA(HWND window, UINT message, WPARAM, LPARAM) {
    if (message == WM_PAINT)
        ValidateRect(window, nullptr);
    else if (message == WM_CLOSE)
        DestroyWindow(window);
    return 0;
}

BOOL InvalidateRect(HWND window, const RECT*, BOOL) {
    const WindowPointer record = findWindow(toWindow(window));
    const auto queue = record ? record->queue.lock() : nullptr;
    if (!queue)
        return FALSE;
    record->needsPaint = true;
    if (queue != MessageQueue::currentShared())
        queue->post(makeMessage(nullptr, WM_NULL, 0, 0));
    return TRUE;
}

BOOL ValidateRect(HWND window, const RECT*) {
    const WindowPointer record = findWindow(toWindow(window));
    if (!record)
        return FALSE;
    record->needsPaint = false;
    return TRUE;
}

HDC BeginPaint(HWND window, PAINTSTRUCT* paint) {
    if (!paint || !findWindow(toWindow(window)))
        return nullptr;
    *paint = {};
    GetClientRect(window, &paint->rcPaint);
    paint->hdc = GetDC(window);
    ValidateRect(window, nullptr);
    return paint->hdc;
}

BOOL EndPaint(HWND window, const PAINTSTRUCT* paint) {
    if (paint && paint->hdc)
        ReleaseDC(window, paint->hdc);
    return TRUE;
}
