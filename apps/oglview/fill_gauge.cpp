// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/fill_gauge.h"

#include "oglview/image_file.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <string>

namespace oglview {
namespace {

/// Marks in each direction.
constexpr int kMarks = 32;
/// Hardly ever the colour of a drawn pixel; three bytes.
constexpr uint8_t kMark[3] = {0x03, 0x01, 0x02};
constexpr auto kInterval = std::chrono::milliseconds(250);
constexpr int kPercentPerStep = 10;

bool isMark(const uint8_t* pixel) {
    for (size_t k = 0; k < 3; ++k)
        if (std::atomic_ref(*const_cast<uint8_t*>(pixel + k)).load(std::memory_order_relaxed) !=
            kMark[k])
            return false;
    return true;
}

} // namespace

FillGauge::FillGauge(uint8_t* pixels, int width, int height) {
    const size_t rowBytes = Picture{width, height, pixels}.rowBytes();
    const int columns = std::min(width, kMarks);
    const int rows = std::min(height, kMarks);
    const auto middle = [](int part, int parts, int total) {
        return static_cast<size_t>((2 * part + 1) * static_cast<int64_t>(total) / (2 * parts));
    };
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            marks_.push_back(pixels + rowBytes * middle(row, rows, height) +
                             3 * middle(column, columns, width));
            std::copy_n(kMark, 3, marks_.back());
        }
}

FillGauge::~FillGauge() {
    for (uint8_t* mark : marks_)
        if (isMark(mark))
            std::fill_n(mark, 3, uint8_t{0});
}

int FillGauge::percent() const {
    const auto left = std::count_if(marks_.begin(), marks_.end(), isMark);
    return static_cast<int>(100 - left * 100 / std::max<std::ptrdiff_t>(std::ssize(marks_), 1));
}

FillProgress::FillProgress(const Progress& progress, uint8_t* pixels, int width, int height)
    : progress_(progress), gauge_(pixels, width, height), thread_([this] { watch(); }) {}

FillProgress::~FillProgress() {
    {
        const std::lock_guard lock(mutex_);
        end_ = true;
    }
    ended_.notify_one();
    thread_.join();
}

void FillProgress::watch() {
    int shown = 0;
    std::unique_lock lock(mutex_);
    while (!ended_.wait_for(lock, kInterval, [this] { return end_; })) {
        const int percent = gauge_.percent() / kPercentPerStep * kPercentPerStep;
        if (percent > shown)
            progress_.step("drawing: " + std::to_string(percent) + " %");
        shown = std::max(shown, percent);
    }
}

} // namespace oglview
