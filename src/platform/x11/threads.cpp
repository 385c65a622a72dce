// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Threads, time and the system's version.
#include "platform/win32.h"

#include "platform/x11/message_queue.h"

#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace {

constexpr uint32_t kThreadMagic = 0x54485244;

// Shared by the running thread and its handle: either may go first.
struct Thread {
    pthread_t system{};
    std::mutex mutex;
    std::condition_variable change;
    LPTHREAD_START_ROUTINE start;
    LPVOID parameter;
    DWORD id = 0;
    bool ended = false;
    DWORD exitCode = STILL_ACTIVE;
};

struct ThreadHandle {
    uint32_t magic = kThreadMagic;
    std::shared_ptr<Thread> thread;
    std::once_flag joined;
    std::atomic<bool> gone = false; ///< joined: the system has nothing left of the thread
};

ThreadHandle* fromHandle(HANDLE handle) {
    auto* thread = static_cast<ThreadHandle*>(handle);
    return thread && thread->magic == kThreadMagic ? thread : nullptr;
}

void* runThread(void* argument) {
    const std::unique_ptr<std::shared_ptr<Thread>> owned(
        static_cast<std::shared_ptr<Thread>*>(argument));
    Thread& thread = **owned;
    {
        const std::lock_guard lock(thread.mutex);
        thread.id = GetCurrentThreadId();
    }
    thread.change.notify_all();
    const DWORD exitCode = thread.start(thread.parameter);
    // Whoever waits for the thread finds its windows gone.
    ogl::x11::MessageQueue::endCurrent();
    {
        const std::lock_guard lock(thread.mutex);
        thread.ended = true;
        thread.exitCode = exitCode;
    }
    thread.change.notify_all();
    return nullptr;
}

bool startThread(size_t stackSize, std::unique_ptr<std::shared_ptr<Thread>> thread) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    if (stackSize >= 65536)
        pthread_attr_setstacksize(&attributes, stackSize);
    pthread_t& system = (*thread)->system;
    const bool started = pthread_create(&system, &attributes, runThread, thread.get()) == 0;
    pthread_attr_destroy(&attributes);
    if (started)
        (void)thread.release(); // now the thread's
    return started;
}

} // namespace

HANDLE CreateThread(LPSECURITY_ATTRIBUTES security, SIZE_T stackSize, LPTHREAD_START_ROUTINE start,
                    LPVOID parameter, DWORD flags, LPDWORD threadId) {
    if (security || flags) {
        ogl::x11::sayOnce("CreateThread: security attributes and flags are not supported");
        return nullptr;
    }
    if (!start)
        return nullptr;
    const auto thread = std::make_shared<Thread>();
    thread->start = start;
    thread->parameter = parameter;
    if (!startThread(stackSize, std::make_unique<std::shared_ptr<Thread>>(thread)))
        return nullptr;
    std::unique_lock lock(thread->mutex);
    thread->change.wait(lock, [&] { return thread->id != 0; });
    if (threadId)
        *threadId = thread->id;
    lock.unlock();
    auto* handle = new ThreadHandle;
    handle->thread = thread;
    return handle;
}

BOOL GetExitCodeThread(HANDLE handle, LPDWORD exitCode) {
    const ThreadHandle* owner = fromHandle(handle);
    if (!owner || !exitCode)
        return FALSE;
    const std::lock_guard lock(owner->thread->mutex);
    *exitCode = owner->thread->exitCode;
    return TRUE;
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) {
    ThreadHandle* owner = fromHandle(handle);
    if (!owner)
        return WAIT_FAILED;
    Thread& thread = *owner->thread;
    std::unique_lock lock(thread.mutex);
    const auto ended = [&] { return thread.ended; };
    if (milliseconds == INFINITE)
        thread.change.wait(lock, ended);
    else if (!thread.change.wait_for(lock, std::chrono::milliseconds(milliseconds), ended))
        return WAIT_TIMEOUT;
    lock.unlock();
    // A thread that a host has waited for is gone with its stack, not just about to go.
    std::call_once(owner->joined, [&] {
        pthread_join(thread.system, nullptr);
        owner->gone = true;
    });
    return WAIT_OBJECT_0;
}

BOOL CloseHandle(HANDLE handle) {
    ThreadHandle* owner = fromHandle(handle);
    if (!owner)
        return FALSE;
    owner->magic = 0;
    if (!owner->gone)
        pthread_detach(owner->thread->system);
    delete owner;
    return TRUE;
}

DWORD GetCurrentThreadId() {
    return static_cast<DWORD>(syscall(SYS_gettid));
}

void Sleep(DWORD milliseconds) {
    if (milliseconds == 0)
        std::this_thread::yield();
    else
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

BOOL QueryPerformanceCounter(LARGE_INTEGER* count) {
    if (!count)
        return FALSE;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    count->QuadPart = std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
    return TRUE;
}

BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency) {
    if (!frequency)
        return FALSE;
    frequency->QuadPart = 1000000000;
    return TRUE;
}

BOOL GetVersionExA(OSVERSIONINFOA* version) {
    if (!version || version->dwOSVersionInfoSize != sizeof *version)
        return FALSE;
    version->dwMajorVersion = 6;
    version->dwMinorVersion = 1;
    version->dwBuildNumber = 7601;
    version->dwPlatformId = 2;
    version->szCSDVersion[0] = '\0';
    return TRUE;
}
