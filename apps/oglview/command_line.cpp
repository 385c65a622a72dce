// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/command_line.h"

#include "oglview/antialias.h"
#include "oglview/style_options.h"
#include "oglview/system.h"
#include "oglview/user_error.h"

#include <CLI/CLI.hpp>

#include <cstdio>

namespace oglview {
namespace {

using ogl::host::Vec3;

constexpr const char* kDescription =
    "Draws models of buildings with the ogl rendering library.\n\n"
    "MODEL is a built-in sample (flat) or a file: IFC, glTF, OBJ, FBX, COLLADA, 3DS, STL, PLY and\n"
    "what else the import library reads. Models are drawn in metres with z up. IFC, glTF and\n"
    "COLLADA files say what they mean. Where a file names no unit, its size decides: up to 100\n"
    "units wide and 40 high are metres, up to 10,000 centimetres, more millimetres. STL, PLY, "
    "OFF,\n"
    "AMF and 3MF files have z up, all others y. --unit and --up say otherwise.";

/// What the options are read into before they are understood.
struct Texts {
    std::string unit;
    std::string up;
    std::string eye;
    std::string target;
    std::string cameraUp;
    std::string camera;
    std::string zoomWindow;
    std::string background;
    std::string size;
    std::string from;
    std::string to;
    double fieldOfView = 0.0;
};

struct Parsed {
    Texts texts;
    ModelOptions model;
    ViewOptions view;
    StyleTexts style;
    std::string output;
    int antialias = 0;
    int step = StudyOptions{}.stepMinutes;
    bool listObjects = false;
    int pickX = 0;
    int pickY = 0;
    bool json = false;
    MomentTexts moment;
};

void addModelOptions(CLI::App& command, Parsed& parsed) {
    command.add_option("MODEL", parsed.model.model, "Model file, or flat")->required();
    command.add_option("--unit", parsed.texts.unit, "Unit of the file: m, cm, mm, in or ft")
        ->type_name("UNIT");
    command.add_option("--up", parsed.texts.up, "Axis of the file that points up: y or z")
        ->type_name("AXIS");
    command.add_flag("--all", parsed.model.import.keepHelpers,
                     "Keep spaces, openings and grids of IFC files");
    command.add_flag("--both-sides", parsed.model.bothSides,
                     "Show surfaces from behind too, for models with loose orientation");
    command
        .add_option("--hide", parsed.model.hide,
                    "Hide the objects whose name fits PATTERN (* and ?); may be given again")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command
        .add_option("--only", parsed.model.only,
                    "Hide all objects but those whose name fits PATTERN; may be given again")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    command.add_flag("--progress", parsed.model.progress,
                     "Say what is going on, also when not at a terminal");
}

void addViewOptions(CLI::App& command, Parsed& parsed) {
    command
        .add_option("--view", parsed.view.view,
                    "outside, inside, plan, front, back, left, right, or a sample's own view")
        ->type_name("NAME");
    command
        .add_option("--camera", parsed.texts.camera, "Eye and target in metres: EX,EY,EZ,TX,TY,TZ")
        ->type_name("POINTS");
    command.add_option("--eye", parsed.texts.eye, "Where the camera stands, metres")
        ->type_name("X,Y,Z");
    command.add_option("--target", parsed.texts.target, "What it looks at, metres")
        ->type_name("X,Y,Z");
    command.add_option("--camera-up", parsed.texts.cameraUp, "Direction that is up in the picture")
        ->type_name("X,Y,Z");
    command
        .add_option("--fov", parsed.texts.fieldOfView, "Vertical field of view, 1 to 150 degrees")
        ->type_name("DEGREES");
    command
        .add_option("--zoom-window", parsed.texts.zoomWindow,
                    "Show a part of the view: its centre, counted from the middle to the right "
                    "and upwards, and its size, all in heights of the view")
        ->type_name("X,Y,W,H");
}

void addStudyOptions(CLI::App& command, Parsed& parsed) {
    addModelOptions(command, parsed);
    command
        .add_option(
            "-o,--output", parsed.output,
            "Pictures to write, .png or .bmp; study.png makes study-01.png, study-02.png ...")
        ->type_name("FILE")
        ->required();
    parsed.style.moment.addTo(command, true, false);
    command.add_option("--from", parsed.texts.from, "First time of day, universal time")
        ->type_name("HH:MM")
        ->required();
    command.add_option("--to", parsed.texts.to, "Last time of day")->type_name("HH:MM")->required();
    command.add_option("--step", parsed.step, "Minutes from picture to picture (60)")
        ->type_name("MINUTES");
    command.add_option("--size", parsed.texts.size, "Size in pixels (1280x800)")->type_name("WxH");
    addViewOptions(command, parsed);
    parsed.style.addPhotoTo(command);
    command
        .add_option("--ini", parsed.style.library.iniPath,
                    "Configuration of the library; its log is written beside it")
        ->type_name("PATH");
}

void addExportOptions(CLI::App& command, Parsed& parsed) {
    addModelOptions(command, parsed);
    command
        .add_option("OUTPUT", parsed.output,
                    "FOLDER/Sessions/NAME/scene.js; the page goes into FOLDER")
        ->required();
    command.add_option("--size", parsed.texts.size, "Size of the view in pixels (1280x800)")
        ->type_name("WxH");
    addViewOptions(command, parsed);
    command.add_option("--background", parsed.texts.background, "Background of the page")
        ->type_name("RRGGBB");
}

void understandModel(const CLI::App& command, Parsed& parsed) {
    if (command.count("--unit") != 0) {
        const std::string& unit = parsed.texts.unit;
        if (unit != "m" && unit != "cm" && unit != "mm" && unit != "in" && unit != "ft")
            throw UserError("there is no unit '" + unit + "'; units are: m, cm, mm, in, ft");
        parsed.model.import.lengthUnit = unit;
    }
    if (command.count("--up") != 0) {
        if (parsed.texts.up != "y" && parsed.texts.up != "z")
            throw UserError("--up takes y or z");
        parsed.model.import.up = parsed.texts.up.front();
    }
    parsed.model.progress = parsed.model.progress || errorOutputIsTerminal();
}

void understandView(const CLI::App& command, Parsed& parsed) {
    const Texts& texts = parsed.texts;
    if (command.count("--camera") != 0) {
        if (command.count("--eye") != 0 || command.count("--target") != 0)
            throw UserError("--camera gives eye and target already");
        const std::vector<double> n = parseNumbers(texts.camera, 6, "--camera");
        parsed.view.eye = Vec3{n[0], n[1], n[2]};
        parsed.view.target = Vec3{n[3], n[4], n[5]};
    }
    if (command.count("--eye") != 0)
        parsed.view.eye = parsePoint(texts.eye, "--eye");
    if (command.count("--target") != 0)
        parsed.view.target = parsePoint(texts.target, "--target");
    if (command.count("--camera-up") != 0) {
        parsed.view.up = parsePoint(texts.cameraUp, "--camera-up");
        if (length(*parsed.view.up) == 0.0)
            throw UserError("--camera-up has no direction");
    }
    if (command.count("--fov") != 0) {
        checkRange("--fov", texts.fieldOfView, 1.0, 150.0);
        parsed.view.fieldOfViewDegrees = texts.fieldOfView;
    }
    if (command.count("--zoom-window") != 0) {
        const std::vector<double> n = parseNumbers(texts.zoomWindow, 4, "--zoom-window");
        if (n[2] <= 0.0 || n[3] <= 0.0)
            throw UserError("the zoom window has no size");
        parsed.view.zoomWindow = ogl::host::ViewWindow{n[0], n[1], n[2], n[3]};
    }
}

ExportOptions exportOptions(const CLI::App& command, const Parsed& parsed) {
    ExportOptions options;
    options.model = parsed.model;
    options.view = parsed.view;
    options.output = parsed.output;
    if (command.count("--size") != 0)
        options.size = parseSize(parsed.texts.size);
    if (command.count("--background") != 0)
        options.background = parseColor(parsed.texts.background);
    return options;
}

StudyOptions studyOptions(const CLI::App& command, Parsed& parsed) {
    parsed.style.mode = "photo";
    parsed.style.understandPictures(command);
    StudyOptions options;
    options.model = parsed.model;
    options.view = parsed.view;
    options.style = parsed.style.style;
    options.style.sunMoment = parsed.style.moment.understand();
    options.library = parsed.style.library;
    options.output = parsed.output;
    if (command.count("--size") != 0)
        options.size = parseSize(parsed.texts.size);
    options.fromMinutes = parseTimeOfDay(parsed.texts.from);
    options.toMinutes = parseTimeOfDay(parsed.texts.to);
    if (options.toMinutes < options.fromMinutes)
        throw UserError("--to is earlier than --from");
    checkRange("--step", parsed.step, 1, 1440);
    options.stepMinutes = parsed.step;
    return options;
}

/// The first line of a message of the command-line library.
std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

/// True when help or version was asked for and printed.
bool parse(CLI::App& app, int argc, const char* const* argv) {
    try {
        app.parse(argc, argv);
        return false;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() != 0)
            throw UserError(firstLine(error.what()) + " (oglview --help tells more)");
        app.exit(error);
        return true;
    }
}

} // namespace

Request readCommandLine(int argc, const char* const* argv) {
    CLI::App app(kDescription, "oglview");
    app.set_version_flag("--version", "oglview " OGLVIEW_VERSION);
    app.require_subcommand(1);

    Parsed parsed;
    CLI::App& render = *app.add_subcommand("render", "Draw a model into a picture file");
    addModelOptions(render, parsed);
    render.add_option("-o,--output", parsed.output, "Picture to write, .png or .bmp")
        ->type_name("FILE")
        ->required();
    render.add_option("--size", parsed.texts.size, "Size in pixels (1600x1200)")->type_name("WxH");
    render
        .add_option("--antialias", parsed.antialias,
                    "Draw N times as large and average, 1 to 4 (2; in photo mode 1)")
        ->type_name("N");
    addViewOptions(render, parsed);
    parsed.style.addTo(render);
    parsed.style.addPhotoTo(render);

    CLI::App& show = *app.add_subcommand("show", "Show a model in a window to move around in");
    addModelOptions(show, parsed);
    show.add_option("--size", parsed.texts.size, "Size of the window in pixels (1280x800)")
        ->type_name("WxH");
    addViewOptions(show, parsed);
    parsed.style.addTo(show);
    parsed.style.addPhotoTo(show);

    CLI::App& exported = *app.add_subcommand("export", "Write a model as a page for web browsers");
    addExportOptions(exported, parsed);

    ServeOptions serving;
    CLI::App& serve =
        *app.add_subcommand("serve", "Show exported models in this machine's browser");
    serve.add_option("FOLDER", serving.folder, "Folder of the page")->required();
    serve.add_option("--port", serving.port, "Port to listen on; 0 takes any (8000)")
        ->type_name("N");

    CLI::App& info = *app.add_subcommand("info", "Tell what is in a model");
    addModelOptions(info, parsed);
    info.add_flag("--objects", parsed.listObjects, "List the objects with their sizes in metres");

    CLI::App& pick = *app.add_subcommand("pick", "Tell which objects lie under a pixel");
    addModelOptions(pick, parsed);
    pick.add_option("X", parsed.pickX, "Pixel, counted from the left")->required();
    pick.add_option("Y", parsed.pickY, "Pixel, counted from the top")->required();
    pick.add_option("--size", parsed.texts.size, "Size of the view in pixels (1600x1200)")
        ->type_name("WxH");
    pick.add_flag("--json", parsed.json, "Print one JSON object");
    addViewOptions(pick, parsed);

    CLI::App& sun = *app.add_subcommand("sun", "Tell where the sun stands");
    parsed.moment.addTo(sun, true, true);
    sun.add_flag("--json", parsed.json, "Print one JSON object");

    CLI::App& study = *app.add_subcommand("sunstudy", "Draw the hours of a day, a picture each");
    addStudyOptions(study, parsed);

    if (parse(app, argc, argv))
        return NothingToDo{};
    const CLI::App& command = *app.get_subcommands().front();
    if (&command == &serve) {
        checkRange("--port", serving.port, 0, 65535);
        return serving;
    }
    if (&command == &sun)
        return SunOptions{parsed.moment.understand(), parsed.json};
    understandModel(command, parsed);
    if (&command == &info)
        return InfoOptions{parsed.model, parsed.listObjects};
    understandView(command, parsed);
    if (&command == &exported)
        return exportOptions(command, parsed);
    const bool sized = command.count("--size") != 0;
    if (&command == &pick) {
        PickOptions options{parsed.model, parsed.view};
        options.size = sized ? parseSize(parsed.texts.size) : options.size;
        options.x = parsed.pickX;
        options.y = parsed.pickY;
        options.json = parsed.json;
        return options;
    }
    if (&command == &study)
        return studyOptions(command, parsed);
    parsed.style.understand(command);
    const StyleOptions& style = parsed.style.style;
    if (&command == &show) {
        if (style.throughFile)
            throw UserError("show cannot draw into files");
        if (style.rayPreview)
            throw UserError("show cannot show the ray-trace preview");
        ShowOptions options{parsed.model, parsed.view, style, parsed.style.library};
        options.size = sized ? parseSize(parsed.texts.size) : options.size;
        checkRange("--size", options.size.width, 1, kLargestWindowSide);
        checkRange("--size", options.size.height, 1, kLargestWindowSide);
        return options;
    }
    RenderOptions options{parsed.model, parsed.view, style, parsed.style.library, parsed.output};
    options.size = sized ? parseSize(parsed.texts.size) : options.size;
    if (command.count("--antialias") != 0) {
        checkRange("--antialias", parsed.antialias, 1, kLargestFactor);
        options.antialias = parsed.antialias;
    }
    return options;
}

} // namespace oglview
