// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/render_context.h"

#include <memory>

namespace ogl::bench {

/// A view on the library's own hidden window, its context current, for drawing without a host's
/// window. It has the default settings, logs nothing, and takes the window down with it.
class HiddenView {
  public:
    /// `width` and `height` are the window's, in pixels.
    HiddenView(int width, int height);
    ~HiddenView();
    HiddenView(const HiddenView&) = delete;
    HiddenView& operator=(const HiddenView&) = delete;

    /// False without a display or a driver that will do.
    bool isReady() const { return context_ != nullptr; }
    RenderContext& context() { return *context_; }

  private:
    std::unique_ptr<RenderContext> context_;
};

} // namespace ogl::bench
