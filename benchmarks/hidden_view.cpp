// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "hidden_view.h"

#include "platform/own_window.h"

namespace ogl::bench {

namespace {

// No such file: defaults, and nothing is logged.
constexpr const char* kNoSettings = "no-such-folder\\space.ini";

} // namespace

HiddenView::HiddenView(int width, int height) {
    if (!ensureOwnWindow(GetModuleHandleA(nullptr)))
        return;
    auto context = std::make_unique<RenderContext>(ownWindow(), 0u, kNoSettings);
    if (!context->initializeOpenGL() || !makeCurrent(context->primary))
        return;
    resizeOwnWindow(width, height);
    context_ = std::move(context);
}

HiddenView::~HiddenView() {
    context_.reset();
    tearDownOwnWindow();
}

} // namespace ogl::bench
