// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/add_option.h"
#include "oglview/loaded_scene.h"
#include "oglview/picked_objects.h"
#include "oglview/subcommand.h"
#include "oglview/view_choice.h"

#include <nlohmann/json.hpp>

#include <cstdio>

namespace oglview {
namespace {

using ogl::host::SceneBuilder;

struct Pick {
    ModelOptions model;
    ViewOptions view;
    Size size{1600, 1200}; ///< of the view, as a picture of it has
    int x = 0;             ///< pixel, from the top left corner
    int y = 0;
    bool json = false;

    void addTo(CLI::App& command);
    int run(const std::string& program) const;
    void printJson(const SceneBuilder& builder, const std::vector<int>& objects) const;
};

void Pick::addTo(CLI::App& command) {
    addModelOptions(command, model);
    command.add_option("X", x, "Pixel, counted from the left")->required();
    command.add_option("Y", y, "Pixel, counted from the top")->required();
    addSize(command, size, "Size of the view in pixels (1600x1200)");
    command.add_flag("--json", json, "Print one JSON object");
    addViewOptions(command, view);
}

void printLines(const SceneBuilder& builder, const std::vector<int>& objects) {
    if (objects.empty())
        std::printf("nothing\n");
    for (const int object : objects)
        std::printf("%6d  %s\n", object, builder.objectName(object).c_str());
}

void Pick::printJson(const SceneBuilder& builder, const std::vector<int>& objects) const {
    auto list = nlohmann::ordered_json::array();
    for (const int object : objects)
        list.push_back({{"number", object}, {"name", builder.objectName(object)}});
    const nlohmann::ordered_json document = {{"x", x}, {"y", y}, {"objects", std::move(list)}};
    // Names come from model files: what is not UTF-8 in them is replaced.
    std::printf("%s\n",
                document.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace).c_str());
}

int Pick::run(const std::string& program) const {
    LoadedScene scene = loadScene(program, model, Progress(model.progress));
    setView(scene, view, size);
    const std::vector<int> objects = pickedObjects(*scene.builder.scene(), size, x, y);
    if (json)
        printJson(scene.builder, objects);
    else
        printLines(scene.builder, objects);
    return 0;
}

} // namespace

Subcommand pickCommand() {
    return makeSubcommand<Pick>("pick", "Tell which objects lie under a pixel");
}

} // namespace oglview
