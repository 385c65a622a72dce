// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/record_views.h"

#include <algorithm>

namespace ogl {

namespace {

constexpr double kZoomUnits = 32000.0;

ListView<OBJECT> objectsOf(const SCENE& scene) {
    const LIST* list = scene.geometry.objects.get();
    return list != nullptr ? ListView<OBJECT>(*list) : ListView<OBJECT>();
}

} // namespace

SceneLists::SceneLists(const SCENE& scene)
    : objects(objectsOf(scene)), faces(scene.geometry.clusters),
      triangleBytes(scene.geometry.faceTriangles), materials(scene.geometry.materials),
      textures(scene.geometry.textures), texCoords(scene.geometry.texCoords),
      lights(scene.geometry.lights), faceLoops(scene.geometry.faceLoops),
      loops(scene.geometry.loops), loopPoints(scene.geometry.loopPoints),
      loopStyles(scene.geometry.loopStyles) {}

FaceTriangles faceTriangles(const SceneLists& lists, int face, uint32_t faceFlags) {
    // The items are single bytes that lie side by side; a list that says otherwise is not read.
    if (lists.triangleBytes.items().stride() != 1)
        return {};
    const ItemRange bytes = lists.triangleBytes.cluster(face);
    const bool hasNormals = (faceFlags & kFaceVertexNormals) != 0;
    FaceTriangles result;
    result.triangleCount = bytes.count / (hasNormals ? 2 * kTriangleBytes : kTriangleBytes);
    if (result.triangleCount == 0)
        return {};
    result.positions = &lists.triangleBytes.items()[bytes.first];
    if (hasNormals)
        result.normals = result.positions + bytes.count / 2;
    return result;
}

const TEXTURESLOT* textureSlot(const SceneLists& lists, const MATERIAL& material) {
    if (material.textureIndex == -1)
        return &material.inlineTexture;
    const TEXTURE* texture = lists.textures.at(material.textureIndex);
    return texture != nullptr ? &texture->slot : nullptr;
}

bool holdsImage(const TEXTURESLOT& slot) {
    return static_cast<bool>(slot.color) || static_cast<bool>(slot.alternativeColor);
}

bool isSkipped(const MATERIAL& material) {
    return material.useCount == 0 ||
           ((material.flags & kMaterialOnlyTextured) != 0 && material.textureIndex == -1);
}

int visitedObjectCount(const SCENE& scene, const SceneLists& lists) {
    const VIEW* view = viewOf(scene);
    return view != nullptr ? std::clamp<int>(view->objectCache.count, 0, lists.objects.size()) : 0;
}

CACHEENTRY* cacheEntry(const VIEW& view, int k) {
    const LIST cache = view.objectCache;
    return const_cast<CACHEENTRY*>(ListView<CACHEENTRY>(cache).at(k));
}

int cacheEntryCount(const VIEW& view) {
    const LIST cache = view.objectCache;
    return ListView<CACHEENTRY>(cache).size();
}

ZoomWindow zoomWindow(const SCENE& scene, int width, int height) {
    const double windowWidth = scene.viewWindowWidth;
    const double windowHeight = scene.viewWindowHeight;
    if (windowWidth <= 0 || windowHeight <= 0 || width <= 0 || height <= 0)
        return {};
    ZoomWindow result;
    const bool byWidth = height / windowHeight > width / windowWidth;
    result.zoom = byWidth ? kZoomUnits * width / (windowWidth * height) : kZoomUnits / windowHeight;
    result.centerX = scene.viewWindowCenterX / kZoomUnits;
    result.centerY = scene.viewWindowCenterY / kZoomUnits;
    return result;
}

} // namespace ogl
