// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/style_options.h"

#include "oglview/add_option.h"
#include "oglview/user_error.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string_view>

namespace oglview {
namespace {

struct Mode {
    const char* name;
    int32_t renderMode;
    bool throughFile = false;
    bool rayPreview = false;
};
constexpr Mode kModes[] = {{"drawing", ogl::kRenderModeDrawing},
                           {"edges", ogl::kRenderModeEdges},
                           {"shadow", ogl::kRenderModeShadow},
                           {"photo", ogl::kRenderModePhoto},
                           {"file", ogl::kRenderModeShadow, true, false},
                           {"raytrace", ogl::kRenderModePhoto, false, true}};
constexpr size_t kWindowModes = 4; // the first ones

const Mode& parseMode(const std::string& name, Canvas canvas) {
    const std::span modes(kModes, canvas == Canvas::Window ? kWindowModes : std::size(kModes));
    std::string known;
    for (const Mode& mode : modes) {
        if (mode.name == name)
            return mode;
        known += known.empty() ? "" : ", ";
        known += mode.name;
    }
    throw UserError("there is no mode '" + name + "'; modes are: " + known);
}

void addMode(CLI::App& command, StyleOptions& style, LibraryOptions& library, Canvas canvas) {
    const auto read = [&command, &style, &library, canvas](const std::string& name) {
        const Mode& mode = parseMode(name, canvas);
        style.mode = mode.renderMode;
        style.throughFile = mode.throughFile;
        style.rayPreview = mode.rayPreview;
        library.rayTracing = mode.rayPreview;
        if (mode.rayPreview && command.count("--ini") != 0)
            throw UserError("--mode " + name + " brings its own configuration");
    };
    std::string what = "drawing (default), edges, shadow or photo";
    if (canvas == Canvas::Picture)
        what += "; file: what the library draws into files, lit without shadows; raytrace: what "
                "the library packs for tracing rays, in one grey";
    command.add_option_function<std::string>("--mode", read, what)->type_name("NAME");
}

void addSun(CLI::App& command, StyleOptions& style) {
    const auto read = [&command](const std::string& text) -> SunPosition {
        if (command.count("--date") != 0)
            throw UserError("--sun and --date both say where the sun stands");
        const std::vector<double> n = parseNumbers(text, 2, "--sun");
        checkRange("the sun's azimuth", n[0], {-360.0, 360.0});
        checkRange("the sun's elevation", n[1], {-90.0, 90.0});
        return {n[0], n[1]};
    };
    addText(command, "--sun", style.sun, read,
            "Where the sun stands, in degrees: counter-clockwise from +x seen from above, "
            "and above the horizon (230,42). --date, --time, --lat and --lon put it where "
            "it is at that moment")
        ->type_name("AZIMUTH,ELEVATION");
    addMomentOptions(command, style.sunMoment, MomentUse::MayBeGiven);
}

SurfaceLook parseSurfaces(const std::string& name) {
    if (name == "color")
        return SurfaceLook::Colored;
    if (name == "grey")
        return SurfaceLook::Grey;
    if (name == "white")
        return SurfaceLook::White;
    throw UserError("--surfaces takes color, grey or white");
}

bool parseInterior(const std::string& text) {
    if (text != "yes" && text != "no")
        throw UserError("--interior takes yes or no");
    return text == "yes";
}

} // namespace

void addLibraryOptions(CLI::App& command, LibraryOptions& library) {
    command
        .add_option("--ini", library.iniPath,
                    "Configuration of the library; its log is written beside it")
        ->type_name("PATH");
}

void addStyleOptions(CLI::App& command, StyleOptions& style, LibraryOptions& library,
                     Canvas canvas) {
    addMode(command, style, library, canvas);
    addSun(command, style);
    command.add_flag_callback(
        "--no-shadows", [&style] { style.shadows = false; },
        "Light without shadows in shadow and photo mode");
    addText(command, "--surfaces", style.surfaces, parseSurfaces,
            "color (default), grey or white, in shadow and photo mode")
        ->type_name("LOOK");
    command.add_flag("--hidden-edges", style.hiddenEdges, "Draw hidden edges dashed");
    command.add_flag("--round-ends", style.roundEnds, "Mark the ends of edges");
    addNumber<int>(command, "--line-weight", style.lineWeight, {0, 100},
                   "Weight of the edges, 0 to 100")
        ->type_name("N");
    addNumber<int>(command, "--edge-opacity", style.edgeOpacityPercent, {0, 100},
                   "0 to 100 percent")
        ->type_name("P");
    addText(command, "--background", style.background, parseColor, "Background")
        ->type_name("RRGGBB");
    addNumber<int>(command, "--samples", library.samples, {1, 16},
                   "Samples per pixel of windows, 1 to 16 (8)")
        ->type_name("N");
    addLibraryOptions(command, library);
}

void addPhotoOptions(CLI::App& command, PhotoLook& photo, LibraryOptions& library) {
    const char* group = "Photo mode";
    const auto number = [&](const char* name, std::optional<double>& value, Range range,
                            const char* what) {
        addNumber<double>(command, name, value, range, what)->type_name("F")->group(group);
    };
    const auto percent = [&](const char* name, std::optional<int>& value, double most,
                             const char* what) {
        addNumber<int>(command, name, value, {0.0, most}, what)->type_name("P")->group(group);
    };
    number("--exposure", photo.exposure, {0.0, 100.0},
           "Brightness of the picture (0.8, inside 0.42)");
    number("--gamma", photo.gamma, {0.05, 20.0},
           "Exponent of the tone curve (1, inside 0.9); below 1 lifts the dark");
    number("--saturation", photo.saturation, {0.0, 10.0}, "Strength of the colours (1)");
    percent("--ambient", photo.ambientPercent, 1000, "Light that comes from everywhere, percent");
    // The library has directions for no more.
    percent("--occlusion", photo.occlusionPercent, 350, "Darkening of corners, percent, 0 to 350");
    percent("--sketch", photo.sketchPercent, 100, "Edges drawn as if by hand, percent, 0 to 100");
    command.add_flag("--mono", photo.monochrome, "One colour on white")->group(group);
    addText(command, "--interior", photo.interior, parseInterior,
            "yes or no: let sunlight in through the windows alone. Without it, what the "
            "camera's place suggests")
        ->type_name("YES|NO")
        ->group(group);
    addNumber<int>(command, "--photo-samples", library.photoSamples, {1, 16},
                   "Samples per pixel, 1 to 16 (4)")
        ->type_name("N")
        ->group(group);
    command.add_flag("--fxaa", library.fxaa, "Smooth the picture's edges after it is drawn")
        ->group(group);
}

const char* modeName(int32_t mode) {
    return std::ranges::find(kModes, mode, &Mode::renderMode)->name;
}

} // namespace oglview
