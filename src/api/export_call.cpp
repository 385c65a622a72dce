// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "api/export_call.h"

#include "render/process_state.h"
#include "scene/webgl/webgl_exporter.h"

#include <utility>

namespace ogl {

int exportDocument(const SCENE& scene, const char* path, int width, int height) {
    WebGLExporter*& exporter = processState().exporter;
    if (exporter == nullptr)
        exporter = new WebGLExporter;
    return exporter->write(scene, path, width, height) ? 1 : 0;
}

void releaseExporter() {
    delete std::exchange(processState().exporter, nullptr);
}

} // namespace ogl
