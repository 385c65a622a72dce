// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/add_option.h"
#include "oglview/scene_style.h"
#include "oglview/subcommand.h"
#include "oglview/view_choice.h"
#include "oglview/viewer_window.h"

#include <cstdio>
#include <string>

namespace oglview {
namespace {

constexpr Range kWindowSide{1, 16384};

Size parseWindowSize(const std::string& text) {
    const Size size = parseSize(text);
    checkRange("--size", size.width, kWindowSide);
    checkRange("--size", size.height, kWindowSide);
    return size;
}

struct Show {
    ModelOptions model;
    ViewOptions view;
    StyleOptions style;
    LibraryOptions library;
    Size size{1280, 800};

    void addTo(CLI::App& command);
    int run(const std::string& program) const;
};

void Show::addTo(CLI::App& command) {
    addModelOptions(command, model);
    addText(command, "--size", size, parseWindowSize, "Size of the window in pixels (1280x800)")
        ->type_name("WxH");
    addViewOptions(command, view);
    addStyleOptions(command, style, library, Canvas::Window);
    addPhotoOptions(command, style.photo, library);
}

int Show::run(const std::string& program) const {
    LoadedScene scene = loadScene(program, model, Progress(model.progress));
    const ogl::host::Camera camera = setView(scene, view, size);
    printNotes(scene);

    std::printf("%s\n", ViewerWindow::help().c_str());
    std::fflush(stdout);
    StyleOptions completed = style;
    completeStyle(completed, scene, camera);
    ViewerWindow window(size, library, completed, scene, camera);
    window.run();
    return 0;
}

} // namespace

Subcommand showCommand() {
    return makeSubcommand<Show>("show", "Show a model in a window to move around in");
}

} // namespace oglview
