// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/frame_timer.h"

#include "platform/win32.h"

namespace ogl {

namespace {

int64_t performanceCounter() {
    LARGE_INTEGER count{};
    QueryPerformanceCounter(&count);
    return count.QuadPart;
}

} // namespace

int64_t performanceFrequency() {
    LARGE_INTEGER frequency{};
    if (!QueryPerformanceFrequency(&frequency) || frequency.QuadPart <= 0)
        throw FrequencyError();
    return frequency.QuadPart;
}

FrameTimer::FrameTimer() : frequency_(performanceFrequency()) {}

void FrameTimer::start() {
    started_ = performanceCounter();
}

void FrameTimer::stop() {
    stopped_ = performanceCounter();
}

double FrameTimer::milliseconds() const {
    return static_cast<double>(stopped_ - started_) / static_cast<double>(frequency_) * 1000.0;
}

} // namespace ogl
