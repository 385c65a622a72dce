// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// How far a picture is drawn. The library fills large bitmaps piece by piece and says nothing until
// all is done; but it fills them where they lie, so that one can look.
#pragma once

#include "oglview/progress.h"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

namespace oglview {

/// Marks spread over a bitmap, and how many are drawn over.
class FillGauge {
  public:
    /// Marks `width` x `height` pixels of 24 bits whose rows are padded to 4 bytes. They must stay
    /// as long as the gauge.
    FillGauge(uint8_t* pixels, int width, int height);
    /// Takes the marks that are left away: those pixels are black.
    ~FillGauge();
    FillGauge(const FillGauge&) = delete;
    FillGauge& operator=(const FillGauge&) = delete;

    /// Percent that is drawn over. May be called while another thread draws.
    int percent() const;

  private:
    std::vector<uint8_t*> marks_;
};

/// Shows on a thread of its own how far a bitmap is drawn, as long as it lives.
class FillProgress {
  public:
    FillProgress(const Progress& progress, uint8_t* pixels, int width, int height);
    ~FillProgress();
    FillProgress(const FillProgress&) = delete;
    FillProgress& operator=(const FillProgress&) = delete;

  private:
    void watch();

    const Progress& progress_;
    FillGauge gauge_;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool end_ = false;
    std::thread thread_;
};

} // namespace oglview
