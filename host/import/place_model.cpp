// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/place_model.h"

#include "host/import/length_unit.h"

#include <cmath>
#include <utility>

namespace ogl::host {
namespace {

constexpr double kFarFromOrigin = 5000.0; // metres

template <class Change> void changePositions(Model& model, Change change) {
    for (ModelObject& object : model.objects)
        for (ModelPart& part : object.parts)
            for (Vec3& position : part.positions)
                position = change(position);
}

void turnUpright(Model& model) {
    changePositions(model, [](Vec3 p) { return Vec3{p.x, -p.z, p.y}; });
    for (ModelObject& object : model.objects)
        for (ModelPart& part : object.parts)
            for (size_t k = 0; k + 2 < part.normals.size(); k += 3)
                part.normals[k + 1] = -std::exchange(part.normals[k + 2], part.normals[k + 1]);
}

void scaleToMetres(const std::string& extension, const ImportOptions& options, const FileAxes& axes,
                   Model& model) {
    model.lengthUnit = !options.lengthUnit.empty() ? options.lengthUnit
                       : axes.metresPerUnit        ? nameOfUnit(*axes.metresPerUnit)
                                                   : lengthUnitOfFormat(extension);
    if (model.lengthUnit.empty()) {
        const Box box = boundsOf(model);
        model.lengthUnit = guessLengthUnit(box.high - box.low);
        model.lengthUnitGuessed = true;
    }
    const double metres =
        metresPerUnit(model.lengthUnit).value_or(axes.metresPerUnit.value_or(1.0));
    if (metres != 1.0)
        changePositions(model, [metres](Vec3 p) { return p * metres; });
}

void bringNear(Model& model) {
    const Box box = boundsOf(model);
    const Vec3 center = (box.low + box.high) * 0.5;
    if (length(center) <= kFarFromOrigin)
        return;
    model.moved = {-std::round(center.x), -std::round(center.y), -std::floor(box.low.z)};
    changePositions(model, [&](Vec3 p) { return p + model.moved; });
}

} // namespace

void placeModel(const std::string& path, const ImportOptions& options, const FileAxes& axes,
                Model& model) {
    const std::string extension = extensionOf(path);
    const char up = options.up != 0          ? options.up
                    : axes.up != 0           ? axes.up
                    : formatIsZUp(extension) ? 'z'
                                             : 'y';
    if (up == 'y')
        turnUpright(model);
    scaleToMetres(extension, options, axes, model);
    bringNear(model);
}

} // namespace ogl::host
