// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/model_options.h"

#include "oglview/add_option.h"
#include "oglview/user_error.h"

namespace oglview {
namespace {

std::string parseUnit(const std::string& unit) {
    if (unit != "m" && unit != "cm" && unit != "mm" && unit != "in" && unit != "ft")
        throw UserError("there is no unit '" + unit + "'; units are: m, cm, mm, in, ft");
    return unit;
}

char parseUp(const std::string& axis) {
    if (axis != "y" && axis != "z")
        throw UserError("--up takes y or z");
    return axis.front();
}

} // namespace

void addModelOptions(CLI::App& command, ModelOptions& model) {
    command.add_option("MODEL", model.model, "Model file, or flat")->required();
    addText(command, "--unit", model.import.lengthUnit, parseUnit,
            "Unit of the file: m, cm, mm, in or ft")
        ->type_name("UNIT");
    addText(command, "--up", model.import.up, parseUp, "Axis of the file that points up: y or z")
        ->type_name("AXIS");
    command.add_flag("--all", model.import.keepHelpers,
                     "Keep spaces, openings and grids of IFC files");
    command.add_flag("--both-sides", model.bothSides,
                     "Show surfaces from behind too, for models with loose orientation");
    command
        .add_option("--hide", model.hide,
                    "Hide the objects whose name fits PATTERN (* and ?); may be given again")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command
        .add_option("--only", model.only,
                    "Hide all objects but those whose name fits PATTERN; may be given again")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command.add_flag("--progress", model.progress,
                     "Say what is going on, also when not at a terminal");
}

} // namespace oglview
