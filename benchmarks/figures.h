// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <limits>

namespace ogl::bench {

/// Prints one figure.
inline void printFigure(const char* name, double value, const char* unit) {
    std::printf("%-44s %10.3f %s\n", name, value, unit);
    std::fflush(stdout);
}

/// What a piece of work took, milliseconds.
struct Cost {
    double time = std::numeric_limits<double>::max();
    double processorTime = std::numeric_limits<double>::max(); ///< of all threads; what others on
                                                               ///< the machine do hardly shows
};

/// The least cost of `rounds` runs.
template <class Work> Cost leastCost(int rounds, const Work& work) {
    Cost least;
    for (int i = 0; i < rounds; ++i) {
        const auto start = std::chrono::steady_clock::now();
        const std::clock_t processorStart = std::clock();
        work();
        const double processorTime =
            static_cast<double>(std::clock() - processorStart) * 1000.0 / CLOCKS_PER_SEC;
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - start;
        least.time = std::min(least.time, time.count());
        least.processorTime = std::min(least.processorTime, processorTime);
    }
    return least;
}

/// Lowers each of the two costs to that of another run.
inline void keepLeast(Cost& least, const Cost& cost) {
    least.time = std::min(least.time, cost.time);
    least.processorTime = std::min(least.processorTime, cost.processorTime);
}

/// Prints how much processor time one piece of work takes of another's.
inline void printRatio(const char* name, const Cost& cost, const Cost& yardstick) {
    printFigure(name, cost.processorTime / yardstick.processorTime, "ratio");
}

} // namespace ogl::bench
