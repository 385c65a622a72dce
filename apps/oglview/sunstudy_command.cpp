// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/add_option.h"
#include "oglview/picture_drawing.h"
#include "oglview/scene_style.h"
#include "oglview/subcommand.h"
#include "oglview/user_error.h"
#include "oglview/view_choice.h"

#include <algorithm>
#include <cmath>
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

/// The pictures of a day.
struct SunStudy {
    ModelOptions model;
    ViewOptions view;
    StyleOptions style; ///< with the day and the place
    LibraryOptions library;
    std::string output; ///< numbers are put before its extension
    Size size{1280, 800};
    int fromMinutes = 0; ///< of the day, universal time
    int toMinutes = 0;
    int stepMinutes = 60;

    void addTo(CLI::App& command);
    int run(const std::string& program) const;
};

void SunStudy::addTo(CLI::App& command) {
    addModelOptions(command, model);
    command
        .add_option(
            "-o,--output", output,
            "Pictures to write, .png or .bmp; study.png makes study-01.png, study-02.png ...")
        ->type_name("FILE")
        ->required();
    addMomentOptions(command, style.sunMoment, MomentUse::WithoutTime);
    addText(command, "--from", fromMinutes, parseTimeOfDay, "First time of day, universal time")
        ->type_name("HH:MM")
        ->required();
    addText(command, "--to", toMinutes, parseTimeOfDay, "Last time of day")
        ->type_name("HH:MM")
        ->required();
    addNumber<int>(command, "--step", stepMinutes, {1, 1440},
                   "Minutes from picture to picture (60)")
        ->type_name("MINUTES");
    addSize(command, size, "Size in pixels (1280x800)");
    addViewOptions(command, view);
    addPhotoOptions(command, style.photo, library);
    addLibraryOptions(command, library);
}

int SunStudy::run(const std::string& program) const {
    if (toMinutes < fromMinutes)
        throw UserError("--to is earlier than --from");
    checkPictureName(output);
    const Progress progress(model.progress);
    LoadedScene scene = loadScene(program, model, progress);
    const ogl::host::Camera camera = setView(scene, view, size);

    DibSection bitmap(size.width, size.height);
    StyleOptions now = style;
    now.mode = ogl::kRenderModePhoto;
    DrawingView drawing(nullptr, library);
    drawing.loadTextures(scene.builder);
    const int count = (toMinutes - fromMinutes) / stepMinutes + 1;
    for (int number = 1; number <= count; ++number) {
        const int minutes = fromMinutes + (number - 1) * stepMinutes;
        now.sunMoment->minutes = minutes;
        completeStyle(now, scene, camera);
        const std::string name = numberedName(output, number, count);
        progress.step("drawing " + std::to_string(number) + " of " + std::to_string(count));
        drawPicture(drawing, scene, now, bitmap, progress);
        writePicture(name, bitmap.picture());
        const double elevation = now.sun.elevationDegrees;
        std::printf("%s  %s  sun %.1f degrees %s the horizon\n", name.c_str(),
                    clockText(minutes).c_str(), std::abs(elevation),
                    elevation < 0.0 ? "below" : "above");
        std::fflush(stdout);
    }
    drawing.releaseScene(scene.builder);
    printNotes(scene);
    return 0;
}

} // namespace

Subcommand sunStudyCommand() {
    return makeSubcommand<SunStudy>("sunstudy", "Draw the hours of a day, a picture each");
}

} // namespace oglview
