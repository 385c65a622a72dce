// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/add_option.h"
#include "oglview/antialias.h"
#include "oglview/picture_drawing.h"
#include "oglview/scene_style.h"
#include "oglview/subcommand.h"
#include "oglview/view_choice.h"

#include <optional>
#include <string>
#include <vector>

namespace oglview {
namespace {

struct Render {
    ModelOptions model;
    ViewOptions view;
    StyleOptions style;
    LibraryOptions library;
    std::string output;
    Size size{1600, 1200};
    std::optional<int> antialias; ///< drawn so many times larger and averaged

    void addTo(CLI::App& command);
    int run(const std::string& program) const;
    int factorFor(LoadedScene& scene) const;
};

void Render::addTo(CLI::App& command) {
    addModelOptions(command, model);
    command.add_option("-o,--output", output, "Picture to write, .png or .bmp")
        ->type_name("FILE")
        ->required();
    addSize(command, size, "Size in pixels (1600x1200)");
    addNumber<int>(command, "--antialias", antialias, {1, kLargestFactor},
                   "Draw N times as large and average, 1 to 4 (2; in photo mode 1)")
        ->type_name("N");
    addViewOptions(command, view);
    addStyleOptions(command, style, library, Canvas::Picture);
    addPhotoOptions(command, style.photo, library);
}

/// How many times larger to draw. Notes when that is less than asked for.
int Render::factorFor(LoadedScene& scene) const {
    const int wanted = antialias.value_or(style.mode == ogl::kRenderModePhoto ? 1 : 2);
    const int factor = drawingFactor(wanted, size);
    if (factor < wanted)
        scene.notes.push_back("so large a picture is smoothed less than asked for: --antialias " +
                              std::to_string(factor));
    return factor;
}

int Render::run(const std::string& program) const {
    checkPictureName(output);
    const Progress progress(model.progress);
    LoadedScene scene = loadScene(program, model, progress);

    progress.step("choosing the view");
    const ogl::host::Camera camera = setView(scene, view, size);
    const int factor = factorFor(scene);
    StyleOptions completed = style;
    completed.lineWeight = widenedLineWeight(style.lineWeight, factor);
    completeStyle(completed, scene, camera);

    progress.step("drawing");
    DibSection bitmap(size.width * factor, size.height * factor);
    LibraryOptions configuration = library;
    configuration.surroundings =
        style.mode != ogl::kRenderModeDrawing && style.mode != ogl::kRenderModeEdges;
    DrawingView drawing(nullptr, configuration);
    drawing.loadTextures(scene.builder);
    drawPicture(drawing, scene, completed, bitmap, progress);
    drawing.releaseScene(scene.builder);

    progress.step("writing " + output);
    std::vector<uint8_t> pixels;
    writePicture(output, factor > 1 ? shrunk(bitmap.picture(), factor, pixels) : bitmap.picture());
    printNotes(scene);
    return 0;
}

} // namespace

Subcommand renderCommand() {
    return makeSubcommand<Render>("render", "Draw a model into a picture file");
}

} // namespace oglview
