// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/antialias.h"
#include "oglview/commands.h"
#include "oglview/dib_section.h"
#include "oglview/file_drawing.h"
#include "oglview/fill_gauge.h"
#include "oglview/loaded_scene.h"
#include "oglview/scene_style.h"
#include "oglview/user_error.h"
#include "oglview/view_choice.h"

#include <cstdio>
#include <optional>
#include <string>

namespace oglview {

int renderCommand(const std::string& program, const RenderOptions& options) {
    checkPictureName(options.output);
    const Progress progress(options.model.progress);
    LoadedScene scene = loadScene(program, options.model, progress);

    progress.step("choosing the view");
    const double aspect = static_cast<double>(options.size.width) / options.size.height;
    scene.builder.setCamera(chooseCamera(scene, options.view, aspect));
    scene.builder.setViewWindow(options.view.zoomWindow);

    const int factor = drawingFactor(options.antialias, options.size);
    if (factor < options.antialias)
        scene.notes.push_back("so large a picture is smoothed less than asked for: --antialias " +
                              std::to_string(factor));
    StyleOptions style = options.style;
    style.lineWeight = widenedLineWeight(style.lineWeight, factor);
    applyStyle(scene.builder, style);

    progress.step("drawing");
    DibSection bitmap(options.size.width * factor, options.size.height * factor);
    {
        DrawingView view(nullptr, options.library);
        view.loadTextures(scene.builder);
        std::optional<FillProgress> filling;
        if (options.model.progress)
            filling.emplace(progress, bitmap.pixels(), bitmap.picture().width,
                            bitmap.picture().height);
        const uint32_t flags = drawFlagsOf(style);
        if (style.throughFile)
            drawThroughFile(view, scene.builder.scene(), flags, bitmap);
        else
            d3_DrawInDibSection(view.get(), scene.builder.scene(), flags, bitmap.get());
        view.releaseScene(scene.builder);
    }
    progress.step("writing " + options.output);
    std::vector<uint8_t> pixels;
    writePicture(options.output,
                 factor > 1 ? shrunk(bitmap.picture(), factor, pixels) : bitmap.picture());
    for (const std::string& note : scene.notes)
        std::fprintf(stderr, "oglview: note: %s\n", note.c_str());
    return 0;
}

} // namespace oglview
