// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "support/scene_fixture.h"

namespace ogl::bench {

/// What a scene for measuring is made of: boxes of small quadrilaterals in a grid.
struct SceneSize {
    int objects;
    int facesPerObject;
    int materials;
    int materialsPerObject; ///< an object's faces take turns with these
    int trianglesPerFace = 2;
};

/// A million triangles in five thousand objects.
SceneSize millionTriangles(int materials);

/// Fills and commits the fixture.
void makeScene(test::SceneFixture& fixture, const SceneSize& size);

} // namespace ogl::bench
