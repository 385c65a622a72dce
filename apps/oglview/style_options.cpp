// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/style_options.h"

#include "oglview/user_error.h"

#include <CLI/CLI.hpp>

#include <cstdio>

namespace oglview {
namespace {

/// Mode 7 by way of a file.
constexpr const char* kFileMode = "file";
/// Mode 8 with enableGPUrt.
constexpr const char* kRayPreviewMode = "raytrace";

SurfaceLook parseSurfaces(const std::string& name) {
    if (name == "color")
        return SurfaceLook::Colored;
    if (name == "grey")
        return SurfaceLook::Grey;
    if (name == "white")
        return SurfaceLook::White;
    throw UserError("--surfaces takes color, grey or white");
}

/// Whether an option that a command may lack was given.
bool given(const CLI::App& command, const char* option) {
    return command.get_option_no_throw(option) != nullptr && command.count(option) != 0;
}

template <class T>
void checkOptional(const char* name, const std::optional<T>& value, double low, double high) {
    if (value)
        checkRange(name, static_cast<double>(*value), low, high);
}

int32_t modeOf(const std::string& name) {
    if (name == kFileMode)
        return ogl::kRenderModeShadow;
    return name == kRayPreviewMode ? ogl::kRenderModePhoto : parseMode(name);
}

void understandLibrary(const CLI::App& command, StyleTexts& texts) {
    texts.style.rayPreview = texts.mode == kRayPreviewMode;
    texts.library.rayTracing = texts.style.rayPreview;
    if (texts.library.rayTracing && given(command, "--ini"))
        throw UserError("--mode " + texts.mode + " brings its own configuration");
    checkRange("--samples", texts.library.samples, 1, 16);
    checkRange("--photo-samples", texts.library.photoSamples, 1, 16);
}

void understandSun(const CLI::App& command, const StyleTexts& texts, StyleOptions& style) {
    if (given(command, "--sun")) {
        if (given(command, "--date"))
            throw UserError("--sun and --date both say where the sun stands");
        const std::vector<double> n = parseNumbers(texts.sun, 2, "--sun");
        checkRange("the sun's azimuth", n[0], -360.0, 360.0);
        checkRange("the sun's elevation", n[1], -90.0, 90.0);
        style.sun = {n[0], n[1]};
        return;
    }
    int parts = 0;
    for (const char* option : {"--date", "--time", "--lat", "--lon"})
        parts += given(command, option) ? 1 : 0;
    if (parts == 4)
        style.sunMoment = texts.moment.understand();
    else if (parts != 0 || given(command, "--north"))
        throw UserError("the sun of a day takes --date, --time, --lat and --lon");
}

void understandPhoto(const CLI::App& command, const StyleTexts& texts, StyleOptions& style) {
    PhotoLook& photo = style.photo;
    photo = texts.photo;
    checkOptional("--exposure", photo.exposure, 0.0, 100.0);
    checkOptional("--gamma", photo.gamma, 0.05, 20.0);
    checkOptional("--saturation", photo.saturation, 0.0, 10.0);
    checkOptional("--ambient", photo.ambientPercent, 0, 1000);
    // The library has directions for no more.
    checkOptional("--occlusion", photo.occlusionPercent, 0, 350);
    checkOptional("--sketch", photo.sketchPercent, 0, 100);
    if (!given(command, "--interior"))
        return;
    if (texts.interior != "yes" && texts.interior != "no")
        throw UserError("--interior takes yes or no");
    photo.interior = texts.interior == "yes";
}

} // namespace

void checkRange(const char* name, double value, double low, double high) {
    if (value >= low && value <= high)
        return;
    char text[96];
    std::snprintf(text, sizeof text, "%s takes %g to %g", name, low, high);
    throw UserError(text);
}

void MomentTexts::addTo(CLI::App& command, bool required, bool withTime) {
    command.add_option("--date", date, "Day, as 2025-06-21")
        ->type_name("YYYY-MM-DD")
        ->required(required);
    if (withTime)
        command.add_option("--time", time, "Time of day, universal time")
            ->type_name("HH:MM")
            ->required(required);
    command.add_option("--lat", moment.latitude, "Latitude, degrees, north positive")
        ->type_name("DEGREES")
        ->required(required);
    command.add_option("--lon", moment.longitude, "Longitude, degrees, east positive")
        ->type_name("DEGREES")
        ->required(required);
    command
        .add_option("--north", moment.north,
                    "Direction of north in the model, from +x towards +y (90)")
        ->type_name("DEGREES");
}

DayAndPlace MomentTexts::understand() const {
    DayAndPlace result = moment;
    result.day = parseDay(date);
    if (!time.empty())
        result.minutes = parseTimeOfDay(time);
    checkRange("--lat", result.latitude, -90.0, 90.0);
    checkRange("--lon", result.longitude, -180.0, 180.0);
    checkRange("--north", result.north, -360.0, 360.0);
    return result;
}

void StyleTexts::addTo(CLI::App& command) {
    command
        .add_option("--mode", mode,
                    "drawing (default), edges, shadow or photo; render also takes file: what the "
                    "library draws into files, lit without shadows; raytrace: what the library "
                    "packs for tracing rays, in one grey")
        ->type_name("NAME");
    command
        .add_option("--sun", sun,
                    "Where the sun stands, in degrees: counter-clockwise from +x seen from above, "
                    "and above the horizon (230,42). --date, --time, --lat and --lon put it where "
                    "it is at that moment")
        ->type_name("AZIMUTH,ELEVATION");
    moment.addTo(command, false, true);
    command.add_flag("--no-shadows", noShadows, "Light without shadows in shadow and photo mode");
    command
        .add_option("--surfaces", surfaces,
                    "color (default), grey or white, in shadow and photo mode")
        ->type_name("LOOK");
    command.add_flag("--hidden-edges", style.hiddenEdges, "Draw hidden edges dashed");
    command.add_flag("--round-ends", style.roundEnds, "Mark the ends of edges");
    command.add_option("--line-weight", lineWeight, "Weight of the edges, 0 to 100")
        ->type_name("N");
    command.add_option("--edge-opacity", edgeOpacity, "0 to 100 percent")->type_name("P");
    command.add_option("--background", background, "Background")->type_name("RRGGBB");
    command.add_option("--samples", library.samples, "Samples per pixel of windows, 1 to 16 (8)")
        ->type_name("N");
    command
        .add_option("--ini", library.iniPath,
                    "Configuration of the library; its log is written beside it")
        ->type_name("PATH");
}

void StyleTexts::addPhotoTo(CLI::App& command) {
    const char* group = "Photo mode";
    const auto number = [&](const char* name, auto& value, const char* what, const char* type) {
        command.add_option(name, value, what)->type_name(type)->group(group);
    };
    number("--exposure", photo.exposure, "Brightness of the picture (0.8, inside 0.42)", "F");
    number("--gamma", photo.gamma,
           "Exponent of the tone curve (1, inside 0.9); below 1 lifts the dark", "F");
    number("--saturation", photo.saturation, "Strength of the colours (1)", "F");
    number("--ambient", photo.ambientPercent, "Light that comes from everywhere, percent", "P");
    number("--occlusion", photo.occlusionPercent, "Darkening of corners, percent, 0 to 350", "P");
    number("--sketch", photo.sketchPercent, "Edges drawn as if by hand, percent, 0 to 100", "P");
    command.add_flag("--mono", photo.monochrome, "One colour on white")->group(group);
    command
        .add_option("--interior", interior,
                    "yes or no: let sunlight in through the windows alone. Without it, what the "
                    "camera's place suggests")
        ->type_name("YES|NO")
        ->group(group);
    number("--photo-samples", library.photoSamples, "Samples per pixel, 1 to 16 (4)", "N");
    command.add_flag("--fxaa", library.fxaa, "Smooth the picture's edges after it is drawn")
        ->group(group);
}

void StyleTexts::understand(const CLI::App& command) {
    understandSun(command, *this, style);
    understandPictures(command);
}

void StyleTexts::understandPictures(const CLI::App& command) {
    style.mode = modeOf(mode);
    style.throughFile = mode == kFileMode;
    style.shadows = !noShadows;
    style.surfaces = parseSurfaces(surfaces);
    understandPhoto(command, *this, style);
    if (given(command, "--line-weight")) {
        checkRange("--line-weight", lineWeight, 0, 100);
        style.lineWeight = lineWeight;
    }
    if (given(command, "--edge-opacity")) {
        checkRange("--edge-opacity", edgeOpacity, 0, 100);
        style.edgeOpacityPercent = edgeOpacity;
    }
    if (given(command, "--background"))
        style.background = parseColor(background);
    understandLibrary(command, *this);
}

} // namespace oglview
