// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The smallest host: a record from the host kit and a call into the library.
#include "host/scene_builder.h"
#include "ogl/ogl.h"

#include <cstdio>

int main() {
    ogl::host::SceneBuilder builder;
    const auto material = builder.addMaterial({});
    const auto object = builder.addObject("square");
    ogl::host::Polygon square;
    square.outline = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    square.material = material;
    if (!builder.addPolygon(object, square) || builder.build() == nullptr)
        return 1;
    void* slot = nullptr;
    d3_ReleasePointer(nullptr, &slot, 0);
    std::puts("a scene of one square, and the library answers");
    return 0;
}
