// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/x11/message_queue.h"

#include "platform/x11/window_record.h"

#include <X11/XKBlib.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>

namespace ogl::x11 {
namespace {

struct Threads {
    std::mutex mutex;
    std::unordered_map<DWORD, std::weak_ptr<MessageQueue>> queues;
};

Threads& threads() {
    static auto* const instance = new Threads;
    return *instance;
}

thread_local std::shared_ptr<MessageQueue> currentQueue;

} // namespace

MessageQueue::MessageQueue()
    : wakeEvent_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), threadId_(GetCurrentThreadId()) {}

MessageQueue::~MessageQueue() {
    // The server destroys the windows of a closed connection, as Windows those of an ended thread.
    forgetWindowsOf(*this);
    if (connection_)
        closeConnection(connection_);
    close(wakeEvent_);
    Threads& all = threads();
    const std::lock_guard lock(all.mutex);
    all.queues.erase(threadId_);
}

const std::shared_ptr<MessageQueue>& MessageQueue::currentShared() {
    if (!currentQueue) {
        currentQueue.reset(new MessageQueue);
        Threads& all = threads();
        const std::lock_guard lock(all.mutex);
        all.queues[currentQueue->threadId_] = currentQueue;
    }
    return currentQueue;
}

void MessageQueue::endCurrent() {
    currentQueue.reset();
}

MessageQueue& MessageQueue::current() {
    return *currentShared();
}

std::shared_ptr<MessageQueue> MessageQueue::of(DWORD threadId) {
    Threads& all = threads();
    const std::lock_guard lock(all.mutex);
    const auto found = all.queues.find(threadId);
    return found == all.queues.end() ? nullptr : found->second.lock();
}

Display* MessageQueue::connection() {
    if (!connection_) {
        connection_ = openConnection();
        if (connection_)
            XkbSetDetectableAutoRepeat(connection_, True, nullptr);
    }
    return connection_;
}

void MessageQueue::wake() const {
    const uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(wakeEvent_, &one, sizeof one);
}

void MessageQueue::post(const MSG& message, const std::string& text) {
    {
        const std::lock_guard lock(mutex_);
        // Of moves without anything between them only the last counts.
        if (message.message == WM_MOUSEMOVE && !entries_.empty() &&
            entries_.back().message.message == WM_MOUSEMOVE &&
            entries_.back().message.hwnd == message.hwnd)
            entries_.pop_back();
        entries_.push_back({message, text});
    }
    wake();
}

void MessageQueue::postQuit(int exitCode) {
    {
        const std::lock_guard lock(mutex_);
        quit_ = true;
        exitCode_ = exitCode;
    }
    wake();
}

// Posted messages first, then the end, painting when nothing else is left.
std::optional<MSG> MessageQueue::take(bool remove) {
    const std::lock_guard lock(mutex_);
    if (!entries_.empty()) {
        const MSG message = entries_.front().message;
        if (remove) {
            lastText_ = entries_.front().text;
            entries_.pop_front();
        }
        return message;
    }
    MSG message{};
    if (quit_) {
        message.message = WM_QUIT;
        message.wParam = static_cast<WPARAM>(exitCode_);
        quit_ = !remove;
        return message;
    }
    message.hwnd = toHandle(windowToPaint(*this));
    if (!message.hwnd)
        return std::nullopt;
    message.message = WM_PAINT;
    return message;
}

void MessageQueue::drainConnection() {
    while (connection_ && XPending(connection_) > 0) {
        XEvent event;
        XNextEvent(connection_, &event);
        translateEvent(*this, event);
    }
}

std::optional<MSG> MessageQueue::next(bool wait, bool remove) {
    for (;;) {
        drainConnection();
        if (std::optional<MSG> message = take(remove))
            return message;
        if (!wait)
            return std::nullopt;
        pollfd sources[2] = {{wakeEvent_, POLLIN, 0},
                             {connection_ ? ConnectionNumber(connection_) : -1, POLLIN, 0}};
        if (poll(sources, 2, -1) < 0 && errno != EINTR)
            return std::nullopt;
        if (sources[0].revents) {
            uint64_t count;
            [[maybe_unused]] const ssize_t got = read(wakeEvent_, &count, sizeof count);
        }
    }
}

} // namespace ogl::x11
