// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/view_options.h"

#include "oglview/add_option.h"
#include "oglview/user_error.h"

namespace oglview {
namespace {

using ogl::host::Vec3;

Vec3 parseUpDirection(const std::string& text) {
    const Vec3 up = parsePoint(text, "--camera-up");
    if (length(up) == 0.0)
        throw UserError("--camera-up has no direction");
    return up;
}

ogl::host::ViewWindow parseZoomWindow(const std::string& text) {
    const std::vector<double> n = parseNumbers(text, 4, "--zoom-window");
    if (n[2] <= 0.0 || n[3] <= 0.0)
        throw UserError("the zoom window has no size");
    return {n[0], n[1], n[2], n[3]};
}

} // namespace

void addViewOptions(CLI::App& command, ViewOptions& view) {
    command
        .add_option("--view", view.view,
                    "outside, inside, plan, front, back, left, right, or a sample's own view")
        ->type_name("NAME");
    command
        .add_option_function<std::string>(
            "--camera",
            [&command, &view](const std::string& text) {
                if (command.count("--eye") != 0 || command.count("--target") != 0)
                    throw UserError("--camera gives eye and target already");
                const std::vector<double> n = parseNumbers(text, 6, "--camera");
                view.eye = Vec3{n[0], n[1], n[2]};
                view.target = Vec3{n[3], n[4], n[5]};
            },
            "Eye and target in metres: EX,EY,EZ,TX,TY,TZ")
        ->type_name("POINTS");
    const auto addPoint = [&](const char* name, std::optional<Vec3>& point, const char* what) {
        const auto read = [name](const std::string& text) { return parsePoint(text, name); };
        addText(command, name, point, read, what)->type_name("X,Y,Z");
    };
    addPoint("--eye", view.eye, "Where the camera stands, metres");
    addPoint("--target", view.target, "What it looks at, metres");
    addText(command, "--camera-up", view.up, parseUpDirection,
            "Direction that is up in the picture")
        ->type_name("X,Y,Z");
    addNumber<double>(command, "--fov", view.fieldOfViewDegrees, {1.0, 150.0},
                      "Vertical field of view, 1 to 150 degrees")
        ->type_name("DEGREES");
    addText(command, "--zoom-window", view.zoomWindow, parseZoomWindow,
            "Show a part of the view: its centre, counted from the middle to the right "
            "and upwards, and its size, all in heights of the view")
        ->type_name("X,Y,W,H");
}

} // namespace oglview
