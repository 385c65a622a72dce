// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/loaded_scene.h"

#include "host/import/import_model.h"
#include "host/import/model_to_scene.h"
#include "host/sample_flat.h"
#include "oglview/parse_values.h"
#include "oglview/user_error.h"
#include "oglview/view_fit.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace oglview {
namespace {

using ogl::host::Box;
using ogl::host::Model;
using ogl::host::SceneBuilder;

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", value);
    return text;
}

LoadedScene loadSample() {
    ogl::host::SampleScene sample = ogl::host::makeSampleFlat();
    return {.name = sample.name,
            .builder = std::move(sample.builder),
            .views = std::move(sample.views),
            .hasPortals = true,
            .format = {},
            .lengthUnit = {},
            .moved = {},
            .notes = {}};
}

void noteOddities(const Model& model, const ogl::host::SoupReport& report, LoadedScene& scene) {
    scene.notes = model.warnings;
    if (model.lengthUnitGuessed && model.lengthUnit != "m")
        scene.notes.push_back("the file names no unit of length; by its size it is in " +
                              model.lengthUnit + " (--unit says otherwise)");
    if (length(model.moved) > 0.0)
        scene.notes.push_back("the model lies far from its origin and was moved by " +
                              number(model.moved.x) + ", " + number(model.moved.y) + ", " +
                              number(model.moved.z) + " m");
    if (scene.scale != 1.0)
        scene.notes.push_back("the model is drawn " + number(scene.scale) +
                              " times its size, to fit the depth range of 0.4 to 1000 m");
    if (report.invalid > 0)
        scene.notes.push_back(std::to_string(report.invalid) +
                              " triangles with unusable coordinates were left out");
}

LoadedScene loadFile(const std::string& program, const ModelOptions& options,
                     const Progress& progress) {
    progress.step("importing " + options.model);
    Model model;
    const std::string problem =
        ogl::host::importModel(program, options.model, options.import, model);
    if (!problem.empty())
        throw UserError(problem);

    progress.step("building a scene of " + std::to_string(model.objects.size()) + " objects, " +
                  std::to_string(triangleCount(model)) + " triangles");
    LoadedScene scene;
    scene.name = std::filesystem::path(options.model).filename().string();
    scene.format = model.format;
    scene.lengthUnit = model.lengthUnit;
    scene.lengthUnitGuessed = model.lengthUnitGuessed;
    scene.moved = model.moved;
    const Box box = boundsOf(model);
    scene.scale = drawingScale(length(box.high - box.low));
    const auto report = addModel(scene.builder, model, scene.scale, options.bothSides);
    if (report.triangles == 0)
        throw UserError("cannot draw '" + options.model + "': no triangle in it has an area");
    noteOddities(model, report, scene);
    return scene;
}

bool matchesAny(const std::string& name, const std::vector<std::string>& patterns) {
    return std::ranges::any_of(patterns,
                               [&](const std::string& pattern) { return matches(name, pattern); });
}

void checkPatterns(const SceneBuilder& builder, const std::vector<std::string>& patterns) {
    for (const std::string& pattern : patterns) {
        bool found = false;
        for (int k = 0; k < builder.objectCount() && !found; ++k)
            found = matches(builder.objectName(k), pattern);
        if (!found)
            throw UserError("no object is named like '" + pattern +
                            "' (oglview info MODEL --objects lists the names)");
    }
}

void hideObjects(SceneBuilder& builder, const ModelOptions& options) {
    checkPatterns(builder, options.hide);
    checkPatterns(builder, options.only);
    int visible = 0;
    for (int k = 0; k < builder.objectCount(); ++k) {
        const std::string& name = builder.objectName(k);
        if (matchesAny(name, options.hide) ||
            (!options.only.empty() && !matchesAny(name, options.only)))
            builder.setObjectVisible(k, false);
        else
            ++visible;
    }
    if (visible == 0)
        throw UserError("nothing is left to draw: every object is hidden");
}

} // namespace

LoadedScene loadScene(const std::string& program, const ModelOptions& options,
                      const Progress& progress) {
    LoadedScene scene =
        options.model == "flat" ? loadSample() : loadFile(program, options, progress);
    scene.builder.build();
    hideObjects(scene.builder, options);
    return scene;
}

void printNotes(const LoadedScene& scene) {
    for (const std::string& note : scene.notes)
        std::fprintf(stderr, "oglview: note: %s\n", note.c_str());
}

} // namespace oglview
