// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// How a model is drawn.
#pragma once

#include "host/scene_parts.h"
#include "oglview/drawing_view.h"
#include "oglview/sun_moment.h"

#include <optional>

namespace CLI {
class App;
}

namespace oglview {

/// What surfaces look like in shadow mode.
enum class SurfaceLook { Colored, Grey, White };

/// Light and tone of photo mode. What is not given is chosen.
struct PhotoLook {
    std::optional<double> exposure;
    std::optional<double> gamma;
    std::optional<double> saturation;
    std::optional<int> ambientPercent;
    std::optional<int> occlusionPercent;
    std::optional<int> sketchPercent; ///< none = no sketch edges
    bool monochrome = false;
    std::optional<bool> interior; ///< sunlight through the windows alone
};

struct StyleOptions {
    int32_t mode = ogl::kRenderModeDrawing;
    bool throughFile = false; ///< the library draws into a file, which is read and written anew
    bool rayPreview = false;  ///< in mode kRenderModePhoto: what the library packs for tracing rays
    SunPosition sun;
    std::optional<DayAndPlace> sunMoment; ///< where `sun` comes from
    PhotoLook photo;
    bool shadows = true; ///< in shadow and photo mode
    SurfaceLook surfaces = SurfaceLook::Colored;
    bool hiddenEdges = false;
    bool roundEnds = false;
    int lineWeight = ogl::host::DrawingStyle{}.lineWeight;
    std::optional<int> edgeOpacityPercent;
    std::optional<ogl::host::Color> background;
};

/// What is drawn into decides which modes there are.
enum class Canvas { Window, Picture };

/// Adds --mode, the sun and how the surfaces and edges of every mode look. What the options are
/// read into must stay.
void addStyleOptions(CLI::App& command, StyleOptions& style, LibraryOptions& library,
                     Canvas canvas);
/// Adds light and tone of photo mode.
void addPhotoOptions(CLI::App& command, PhotoLook& photo, LibraryOptions& library);
/// Adds --ini.
void addLibraryOptions(CLI::App& command, LibraryOptions& library);

/// The name of a render mode, as the command line has it.
const char* modeName(int32_t mode);

} // namespace oglview
