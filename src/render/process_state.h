// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

namespace ogl {

class Renderer;
class WebGLExporter;

/// What the whole process shares: one copy per loaded library, all zero at load.
struct ProcessState {
    HINSTANCE moduleInstance = nullptr;  ///< the library's own instance
    Renderer* currentRenderer = nullptr; ///< the one renderer that draws for all views
    WebGLExporter* exporter = nullptr;   ///< writes all documents; made for the first one
    int sceneChanged = 0;                ///< 1 = the next frame rebuilds the batches
};

/// The one copy.
ProcessState& processState();

} // namespace ogl
