// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/loaded_scene.h"
#include "oglview/subcommand.h"
#include "oglview/view_choice.h"

#include <CLI/CLI.hpp>

#include <cstdio>

namespace oglview {
namespace {

using ogl::host::Box;
using ogl::host::SceneBuilder;

void printOrigin(const LoadedScene& scene) {
    if (scene.format.empty()) {
        std::printf("model      %s (built-in sample)\n", scene.name.c_str());
        return;
    }
    std::printf("model      %s (%s)\n", scene.name.c_str(), scene.format.c_str());
    std::printf("unit       %s%s\n", scene.lengthUnit.c_str(),
                scene.lengthUnitGuessed ? " (guessed from the size)" : "");
}

void printBounds(const LoadedScene& scene) {
    const Box box = scene.builder.bounds();
    if (box.empty())
        return;
    const double metres = 1.0 / scene.scale;
    const ogl::host::Vec3 low = box.low * metres;
    const ogl::host::Vec3 high = box.high * metres;
    std::printf("size       %.3f x %.3f x %.3f m\n", high.x - low.x, high.y - low.y,
                high.z - low.z);
    std::printf("bounds     %.3f, %.3f, %.3f .. %.3f, %.3f, %.3f m\n", low.x, low.y, low.z, high.x,
                high.y, high.z);
}

int usedMaterials(const ogl::SCENE& scene) {
    int used = 0;
    const ogl::LIST list = scene.geometry.materials;
    const auto* bytes = static_cast<const uint8_t*>(list.data.get());
    for (int k = 0; k < list.count; ++k) {
        const auto* material = reinterpret_cast<const ogl::MATERIAL*>(
            bytes + static_cast<ptrdiff_t>(k) * list.elementSize);
        used += material->useCount > 0 ? 1 : 0;
    }
    return used;
}

void printViews(const LoadedScene& scene) {
    std::printf("views     ");
    for (const std::string& name : viewsOf(scene))
        std::printf(" %s", name.c_str());
    std::printf("\n");
}

void printObjects(const SceneBuilder& builder) {
    for (int k = 0; k < builder.objectCount(); ++k) {
        const Box box = builder.objectBounds(k);
        const ogl::host::Vec3 size = box.empty() ? ogl::host::Vec3{} : box.high - box.low;
        std::printf("%6d  %8.3f x %7.3f x %7.3f  %s\n", k, size.x, size.y, size.z,
                    builder.objectName(k).c_str());
    }
}

struct Info {
    ModelOptions model;
    bool listObjects = false;

    void addTo(CLI::App& command) {
        addModelOptions(command, model);
        command.add_flag("--objects", listObjects, "List the objects with their sizes in metres");
    }
    int run(const std::string& program) const;
};

int Info::run(const std::string& program) const {
    const LoadedScene scene = loadScene(program, model, Progress(model.progress));
    const SceneBuilder& builder = scene.builder;
    printOrigin(scene);
    std::printf("objects    %d\n", builder.objectCount());
    std::printf("faces      %d\n",
                static_cast<int>(builder.scene()->geometry.clusters.items.count));
    std::printf("triangles  %zu\n", builder.triangleCount());
    std::printf("materials  %d\n", usedMaterials(*builder.scene()));
    printBounds(scene);
    printViews(scene);
    for (const std::string& note : scene.notes)
        std::printf("note       %s\n", note.c_str());
    if (listObjects)
        printObjects(builder);
    return 0;
}

} // namespace

Subcommand infoCommand() {
    return makeSubcommand<Info>("info", "Tell what is in a model");
}

} // namespace oglview
