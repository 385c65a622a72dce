// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "abi/wall_scene.h"

#include "abi/library.h"

namespace ogl::test {

WallScene::WallScene() {
    host::Material material;
    material.name = "plaster";
    const host::MaterialId plaster = builder_.addMaterial(material);
    const host::ObjectId wall = builder_.addObject("wall");
    host::Polygon polygon;
    polygon.material = plaster;
    polygon.outline = {{-1, 0, -1}, {1, 0, -1}, {1, 0, 1}, {-1, 0, 1}};
    builder_.addPolygon(wall, polygon);
    builder_.build();
    builder_.setRenderMode(kRenderModeDrawing);
    host::Camera camera;
    camera.eye = {0, -5, 0};
    camera.target = {0, 0, 0};
    camera.fieldOfViewDegrees = 60.0;
    builder_.setCamera(camera);
    host::DrawingStyle style;
    style.drawingBackground = host::Color{40, 80, 120};
    builder_.setDrawingStyle(style);
}

CACHEENTRY* WallScene::cacheEntry() const {
    return static_cast<CACHEENTRY*>(record()->geometry.view.get()->objectCache.data.get());
}

void WallScene::handBack() {
    for (const auto& parked : builder_.librarySlots())
        library().releasePointer(nullptr, parked.slot, parked.releaseKind);
}

uint32_t WallScene::foreignAddress() const {
    return record()->geometry.view.address();
}

void WallScene::raiseCamera() {
    host::Camera camera;
    camera.eye = {0, -5, 1.5};
    camera.target = {0, 0, 1.5};
    camera.fieldOfViewDegrees = 60.0;
    builder_.setCamera(camera);
}

} // namespace ogl::test
