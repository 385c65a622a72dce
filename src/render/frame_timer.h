// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <stdexcept>

namespace ogl {

/// The one error that leaves the library: there is no performance counter to pace frames with.
struct FrequencyError : std::runtime_error {
    FrequencyError() : std::runtime_error("Error with QueryPerformanceFrequency") {}
};

/// Time between two marks, from the performance counter.
class FrameTimer {
  public:
    /// Throws FrequencyError when the counter's frequency cannot be read.
    FrameTimer();

    void start();
    void stop();
    /// Milliseconds from the last start() to the last stop().
    double milliseconds() const;

  private:
    int64_t frequency_;
    int64_t started_ = 0;
    int64_t stopped_ = 0;
};

/// Counts per second of the performance counter. Throws as FrameTimer's constructor does.
int64_t performanceFrequency();

} // namespace ogl
