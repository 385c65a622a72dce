// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/model.h"

namespace ogl::host {

Box boundsOf(const Model& model) {
    Box bounds;
    for (const ModelObject& object : model.objects)
        for (const ModelPart& part : object.parts)
            for (const uint32_t vertex : part.triangles)
                bounds.add(part.positions[vertex]);
    return bounds;
}

size_t triangleCount(const Model& model) {
    size_t count = 0;
    for (const ModelObject& object : model.objects)
        for (const ModelPart& part : object.parts)
            count += part.triangles.size() / 3;
    return count;
}

} // namespace ogl::host
