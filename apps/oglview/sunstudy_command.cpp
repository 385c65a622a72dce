// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/commands.h"
#include "oglview/picture_drawing.h"
#include "oglview/view_choice.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace oglview {
namespace {

std::string clockText(int minutes) {
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d", minutes / 60, minutes % 60);
    return text;
}

/// The name of picture `number` of `count`: all have as many digits, at least two.
std::string numberedName(const std::string& output, int number, int count) {
    const size_t digits = std::max<size_t>(2, std::to_string(count).size());
    const std::string text = std::to_string(number);
    const size_t dot = output.rfind('.');
    return output.substr(0, dot) + "-" + std::string(digits - std::min(digits, text.size()), '0') +
           text + output.substr(dot);
}

} // namespace

int sunStudyCommand(const std::string& program, const StudyOptions& options) {
    checkPictureName(options.output);
    const Progress progress(options.model.progress);
    LoadedScene scene = loadScene(program, options.model, progress);
    const double aspect = static_cast<double>(options.size.width) / options.size.height;
    const ogl::host::Camera camera = chooseCamera(scene, options.view, aspect);
    scene.builder.setCamera(camera);
    scene.builder.setViewWindow(options.view.zoomWindow);

    DibSection bitmap(options.size.width, options.size.height);
    StyleOptions style = options.style;
    DrawingView view(nullptr, options.library);
    view.loadTextures(scene.builder);
    const int count = (options.toMinutes - options.fromMinutes) / options.stepMinutes + 1;
    for (int number = 1; number <= count; ++number) {
        style.sunMoment->minutes = options.fromMinutes + (number - 1) * options.stepMinutes;
        completeStyle(style, scene, camera);
        const std::string name = numberedName(options.output, number, count);
        progress.step("drawing " + std::to_string(number) + " of " + std::to_string(count));
        drawPicture(view, scene, style, bitmap, progress);
        writePicture(name, bitmap.picture());
        std::printf("%s  %s  sun %.1f degrees %s the horizon\n", name.c_str(),
                    clockText(style.sunMoment->minutes).c_str(),
                    style.sun.elevationDegrees < 0.0 ? -style.sun.elevationDegrees
                                                     : style.sun.elevationDegrees,
                    style.sun.elevationDegrees < 0.0 ? "below" : "above");
        std::fflush(stdout);
    }
    view.releaseScene(scene.builder);
    for (const std::string& note : scene.notes)
        std::fprintf(stderr, "oglview: note: %s\n", note.c_str());
    return 0;
}

} // namespace oglview
