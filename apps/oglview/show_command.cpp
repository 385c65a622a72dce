// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/commands.h"
#include "oglview/picture_drawing.h"
#include "oglview/view_choice.h"
#include "oglview/viewer_window.h"

#include <cstdio>

namespace oglview {

int showCommand(const std::string& program, const ShowOptions& options) {
    const Progress progress(options.model.progress);
    LoadedScene scene = loadScene(program, options.model, progress);
    const double aspect = static_cast<double>(options.size.width) / options.size.height;
    const ogl::host::Camera camera = chooseCamera(scene, options.view, aspect);
    for (const std::string& note : scene.notes)
        std::fprintf(stderr, "oglview: note: %s\n", note.c_str());
    scene.builder.setViewWindow(options.view.zoomWindow);

    std::printf("%s\n", ViewerWindow::help().c_str());
    std::fflush(stdout);
    ShowOptions completed = options;
    completeStyle(completed.style, scene, camera);
    ViewerWindow window(completed, scene, camera);
    window.run();
    return 0;
}

} // namespace oglview
