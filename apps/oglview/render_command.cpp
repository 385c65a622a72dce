// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/antialias.h"
#include "oglview/commands.h"
#include "oglview/picture_drawing.h"
#include "oglview/scene_style.h"
#include "oglview/view_choice.h"

#include <cstdio>
#include <string>

namespace oglview {

int renderCommand(const std::string& program, const RenderOptions& options) {
    checkPictureName(options.output);
    const Progress progress(options.model.progress);
    LoadedScene scene = loadScene(program, options.model, progress);

    progress.step("choosing the view");
    const double aspect = static_cast<double>(options.size.width) / options.size.height;
    const ogl::host::Camera camera = chooseCamera(scene, options.view, aspect);
    scene.builder.setCamera(camera);
    scene.builder.setViewWindow(options.view.zoomWindow);

    const int wanted =
        options.antialias.value_or(options.style.mode == ogl::kRenderModePhoto ? 1 : 2);
    const int factor = drawingFactor(wanted, options.size);
    if (factor < wanted)
        scene.notes.push_back("so large a picture is smoothed less than asked for: --antialias " +
                              std::to_string(factor));
    StyleOptions style = options.style;
    style.lineWeight = widenedLineWeight(style.lineWeight, factor);
    completeStyle(style, scene, camera);

    progress.step("drawing");
    DibSection bitmap(options.size.width * factor, options.size.height * factor);
    LibraryOptions library = options.library;
    library.surroundings =
        style.mode != ogl::kRenderModeDrawing && style.mode != ogl::kRenderModeEdges;
    DrawingView view(nullptr, library);
    view.loadTextures(scene.builder);
    drawPicture(view, scene, style, bitmap, progress);
    view.releaseScene(scene.builder);
    progress.step("writing " + options.output);
    std::vector<uint8_t> pixels;
    writePicture(options.output,
                 factor > 1 ? shrunk(bitmap.picture(), factor, pixels) : bitmap.picture());
    for (const std::string& note : scene.notes)
        std::fprintf(stderr, "oglview: note: %s\n", note.c_str());
    return 0;
}

} // namespace oglview
