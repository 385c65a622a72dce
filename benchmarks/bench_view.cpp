// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_view.h"

#include "platform/own_window.h"

namespace ogl::bench {

// No such file: four samples per pixel are the default, and nothing is logged.
constexpr const char* kNoSettings = "no-such-folder\\space.ini";

BenchView::BenchView(int width, int height) {
    if (!ensureOwnWindow(GetModuleHandleA(nullptr)))
        return;
    auto context = std::make_unique<RenderContext>(ownWindow(), 0u, kNoSettings);
    if (!context->initializeOpenGL())
        return;
    wglMakeCurrent(context->primary.dc, context->primary.glContext);
    resizeOwnWindow(width, height);
    context_ = std::move(context);
}

BenchView::~BenchView() {
    context_.reset();
    tearDownOwnWindow();
}

} // namespace ogl::bench
