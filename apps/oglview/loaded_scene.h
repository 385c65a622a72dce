// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_builder.h"
#include "oglview/model_options.h"
#include "oglview/progress.h"

#include <string>
#include <vector>

namespace oglview {

/// A built scene and what is known about where it came from.
struct LoadedScene {
    std::string name;                        ///< of the sample, or the file's name
    ogl::host::SceneBuilder builder;         ///< built
    std::vector<ogl::host::NamedView> views; ///< the sample's own; the first is its default
    bool hasPortals = false;                 ///< windows let light and sky in
    double scale = 1.0;                      ///< model metres times this = scene units
    std::string format;                      ///< of the file; empty for samples
    std::string lengthUnit;                  ///< of the file; empty for samples
    bool lengthUnitGuessed = false;
    ogl::host::Vec3 moved;          ///< added to the file's coordinates, metres
    std::vector<std::string> notes; ///< what the user should know, one line each
};

/// Loads and builds a model and hides what is to be hidden. `program`: this program's file, started
/// once more to import. Throws UserError.
LoadedScene loadScene(const std::string& program, const ModelOptions& options,
                      const Progress& progress);

/// Writes what the user should know to standard error.
void printNotes(const LoadedScene& scene);

} // namespace oglview
