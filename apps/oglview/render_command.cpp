// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/antialias.h"
#include "oglview/commands.h"
#include "oglview/dib_section.h"
#include "oglview/loaded_scene.h"
#include "oglview/scene_style.h"
#include "oglview/user_error.h"
#include "oglview/view_choice.h"

#include <cstdio>
#include <string>

namespace oglview {

int renderCommand(const std::string& program, const RenderOptions& options) {
    checkPictureName(options.output);
    const Size limit{kLargestSide, kLargestSide};
    if (options.size.width > limit.width || options.size.height > limit.height)
        throw UserError("this system draws pictures up to " + std::to_string(limit.width) + " x " +
                        std::to_string(limit.height) + " pixels");
    const Progress progress(options.model.progress);
    LoadedScene scene = loadScene(program, options.model, progress);

    progress.step("choosing the view");
    const double aspect = static_cast<double>(options.size.width) / options.size.height;
    scene.builder.setCamera(chooseCamera(scene, options.view, aspect));
    scene.builder.setViewWindow(options.view.zoomWindow);

    const int factor = drawingFactor(options.antialias, options.size, limit);
    StyleOptions style = options.style;
    style.lineWeight = widenedLineWeight(style.lineWeight, factor);
    applyStyle(scene.builder, style);

    progress.step("drawing");
    DibSection bitmap(options.size.width * factor, options.size.height * factor);
    {
        DrawingView view(nullptr, options.library);
        view.loadTextures(scene.builder);
        d3_DrawInDibSection(view.get(), scene.builder.scene(), ogl::kDrawFullQuality, bitmap.get());
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
