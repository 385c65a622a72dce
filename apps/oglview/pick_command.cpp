// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/commands.h"
#include "oglview/loaded_scene.h"
#include "oglview/picked_objects.h"
#include "oglview/view_choice.h"

#include <nlohmann/json.hpp>

#include <cstdio>

namespace oglview {
namespace {

using ogl::host::SceneBuilder;

void printLines(const SceneBuilder& builder, const std::vector<int>& objects) {
    if (objects.empty())
        std::printf("nothing\n");
    for (const int object : objects)
        std::printf("%6d  %s\n", object, builder.objectName(object).c_str());
}

void printJson(const SceneBuilder& builder, const PickOptions& options,
               const std::vector<int>& objects) {
    auto list = nlohmann::ordered_json::array();
    for (const int object : objects)
        list.push_back({{"number", object}, {"name", builder.objectName(object)}});
    const nlohmann::ordered_json document = {
        {"x", options.x}, {"y", options.y}, {"objects", std::move(list)}};
    // Names come from model files: what is not UTF-8 in them is replaced.
    std::printf("%s\n",
                document.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace).c_str());
}

} // namespace

int pickCommand(const std::string& program, const PickOptions& options) {
    LoadedScene scene = loadScene(program, options.model, Progress(options.model.progress));
    const double aspect = static_cast<double>(options.size.width) / options.size.height;
    scene.builder.setCamera(chooseCamera(scene, options.view, aspect));
    scene.builder.setViewWindow(options.view.zoomWindow);
    const std::vector<int> objects =
        pickedObjects(*scene.builder.scene(), options.size, options.x, options.y);
    if (options.json)
        printJson(scene.builder, options, objects);
    else
        printLines(scene.builder, objects);
    return 0;
}

} // namespace oglview
