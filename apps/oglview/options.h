// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What the command line asks for.
#pragma once

#include "host/import/import_options.h"
#include "host/scene_parts.h"
#include "oglview/drawing_view.h"
#include "oglview/parse_values.h"

#include <optional>
#include <string>
#include <vector>

namespace oglview {

/// Which model, and what of it.
struct ModelOptions {
    std::string model; ///< file, or name of a built-in sample
    ogl::host::ImportOptions import;
    bool bothSides = false;
    std::vector<std::string> hide; ///< patterns of object names
    std::vector<std::string> only; ///< patterns; not empty = everything else is hidden
    bool progress = false;
};

/// Where to look from. What is not given is chosen.
struct ViewOptions {
    std::string view; ///< "outside", "inside", "plan", ... or a sample's own
    std::optional<ogl::host::Vec3> eye;
    std::optional<ogl::host::Vec3> target;
    std::optional<ogl::host::Vec3> up;
    std::optional<double> fieldOfViewDegrees; ///< vertical
    std::optional<ogl::host::ViewWindow> zoomWindow;
};

/// Where the sun stands.
struct SunPosition {
    double azimuthDegrees = 230.0; ///< counter-clockwise from +x, seen from above
    double elevationDegrees = 42.0;
};

/// What surfaces look like in shadow mode.
enum class SurfaceLook { Colored, Grey, White };

/// A day, a time of day and a place.
struct DayAndPlace {
    CalendarDay day;
    int minutes = 0;        ///< of the day, universal time
    double latitude = 0.0;  ///< degrees, north positive
    double longitude = 0.0; ///< degrees, east positive
    double north = 90.0;    ///< direction of north in the model, degrees; 90 = +y
};

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

/// How it is drawn.
struct StyleOptions {
    int32_t mode = ogl::kRenderModeDrawing;
    bool rayPreview = false; ///< in mode kRenderModePhoto: what the library packs for tracing rays
    SunPosition sun;
    std::optional<DayAndPlace> sunMoment; ///< where `sun` comes from
    PhotoLook photo;
    bool shadows = true; ///< in shadow and photo mode
    SurfaceLook surfaces = SurfaceLook::Colored;
    bool throughFile = false; ///< the library draws into a file, which is read and written anew
    bool hiddenEdges = false;
    bool roundEnds = false;
    int lineWeight = ogl::host::DrawingStyle{}.lineWeight;
    std::optional<int> edgeOpacityPercent;
    std::optional<ogl::host::Color> background;
};

struct RenderOptions {
    ModelOptions model;
    ViewOptions view;
    StyleOptions style;
    LibraryOptions library;
    std::string output;
    Size size{1600, 1200};
    std::optional<int> antialias{}; ///< drawn so many times larger and averaged
};

/// The pictures of a day.
struct StudyOptions {
    ModelOptions model;
    ViewOptions view;
    StyleOptions style; ///< with the day and the place
    LibraryOptions library;
    std::string output; ///< numbers are put before its extension
    Size size{1280, 800};
    int fromMinutes = 0; ///< of the day, universal time
    int toMinutes = 0;
    int stepMinutes = 60;
};

struct ShowOptions {
    ModelOptions model;
    ViewOptions view;
    StyleOptions style;
    LibraryOptions library;
    Size size{1280, 800};
};

struct PickOptions {
    ModelOptions model;
    ViewOptions view;
    Size size{1600, 1200}; ///< of the view, as a picture of it has
    int x = 0;             ///< pixel, from the top left corner
    int y = 0;
    bool json = false;
};

struct ExportOptions {
    ModelOptions model;
    ViewOptions view;
    std::string output; ///< FOLDER/Sessions/NAME/scene.js
    std::optional<ogl::host::Color> background;
    Size size{1280, 800};
};

struct ServeOptions {
    std::string folder;
    int port = 8000; ///< 0 = any that is free
};

struct SunOptions {
    DayAndPlace moment;
    bool json = false;
};

struct InfoOptions {
    ModelOptions model;
    bool listObjects = false;
};

} // namespace oglview
