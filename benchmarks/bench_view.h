// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/render_context.h"

#include <memory>

namespace ogl::bench {

/// A view on the library's own hidden window, its context current, with four samples per pixel.
class BenchView {
  public:
    BenchView(int width, int height);
    ~BenchView();
    BenchView(const BenchView&) = delete;
    BenchView& operator=(const BenchView&) = delete;

    /// False without a display or a driver that will do.
    bool isReady() const { return context_ != nullptr; }
    RenderContext& context() { return *context_; }

  private:
    std::unique_ptr<RenderContext> context_;
};

} // namespace ogl::bench
