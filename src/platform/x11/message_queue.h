// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/display.h"

#include <atomic>
#include <bitset>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>

namespace ogl::x11 {

/// The messages of one thread: those posted from anywhere, and those made from the events of the
/// thread's windows, which arrive over a connection of its own.
class MessageQueue {
  public:
    ~MessageQueue();
    MessageQueue(const MessageQueue&) = delete;
    MessageQueue& operator=(const MessageQueue&) = delete;

    /// The calling thread's queue.
    static MessageQueue& current();
    static const std::shared_ptr<MessageQueue>& currentShared();
    /// Ends the calling thread's queue, and with it the thread's windows.
    static void endCurrent();
    /// The queue of a thread, null when it has none.
    static std::shared_ptr<MessageQueue> of(DWORD threadId);

    /// The next message, waiting for it when `wait`. None: nothing is there, or, when `wait`, the
    /// connection broke.
    std::optional<MSG> next(bool wait, bool remove);
    /// The characters typed by the key message taken last.
    const std::string& lastText() const { return lastText_; }

    void post(const MSG& message, const std::string& text = {});
    void postQuit(int exitCode);

    /// The connection of this thread's windows; null without an X server.
    Display* connection();
    DWORD threadId() const { return threadId_; }

    // State of the event translation; used by the owning thread only.
    Window active = None;  ///< the thread's window with the keyboard focus
    Window capture = None; ///< the window that SetCapture named
    std::bitset<256> pressedKeys;
    std::unordered_map<Window, Window> drawingChildren; ///< child with the GL visual -> window

  private:
    MessageQueue();
    void wake() const;
    void drainConnection();
    std::optional<MSG> take(bool remove);

    struct Entry {
        MSG message;
        std::string text;
    };
    std::mutex mutex_;
    std::deque<Entry> entries_;
    bool quit_ = false;
    int exitCode_ = 0;
    std::string lastText_;
    Display* connection_ = nullptr;
    int wakeEvent_;
    DWORD threadId_;
};

/// Turns one X event into messages of `queue`.
void translateEvent(MessageQueue& queue, XEvent& event);

} // namespace ogl::x11
