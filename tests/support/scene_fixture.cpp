// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/scene_fixture.h"

#include "fixed/batches/batches.h"
#include "platform/memory32.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

namespace ogl::test {

namespace {

constexpr size_t kCanaryBytes = 4096;
constexpr double kLoopUnits = 1000.0;

/// Records live in zeroed memory; a test cannot go on without it.
template <class T> T* newRecord() {
    void* memory = memory32::allocate(sizeof(T), memory32::Kind::Host);
    if (memory == nullptr)
        std::abort();
    return static_cast<T*>(memory);
}

std::array<int32_t, 3> loopPoint(Vec3 p) {
    const auto units = [](float value) {
        return static_cast<int32_t>(std::lround(static_cast<double>(value) * kLoopUnits));
    };
    return {units(p.x), units(p.y), units(p.z)};
}

void appendBytes(std::vector<uint8_t>& bytes, const std::vector<Vec3>& vectors) {
    const auto* first = reinterpret_cast<const uint8_t*>(vectors.data());
    bytes.insert(bytes.end(), first, first + vectors.size() * sizeof(Vec3));
}

int32_t count(size_t size) {
    return static_cast<int32_t>(size);
}

} // namespace

LOOPSTYLE closedStyle() {
    LOOPSTYLE style{};
    style.kind = kLoopClosed;
    style.pen = 1;
    return style;
}

MATERIAL plainMaterial() {
    MATERIAL material{};
    material.color = {255, 255, 255};
    material.brightness = 0.4f;
    material.opacity = 1.0f;
    material.textureIndex = -1;
    material.useCount = 1;
    return material;
}

FaceShape quad(Vec3 a, Vec3 b, Vec3 c, Vec3 d, int16_t material) {
    FaceShape face;
    face.triangles = {a, b, c, a, c, d};
    face.material = material;
    face.texCoords = {{0, 0}, {1, 0}, {1, 1}, {0, 0}, {1, 1}, {0, 1}};
    const Vec3 normal = cross(b - a, c - a);
    face.normal = {normal.x, normal.y, normal.z};
    face.loops = {{{loopPoint(a), loopPoint(b), loopPoint(c), loopPoint(d)}, closedStyle()}};
    return face;
}

SceneFixture::SceneFixture()
    : scene_(newRecord<SCENE>()), view_(newRecord<VIEW>()), objects_(newRecord<LIST>()) {
    scene_->renderMode = kRenderModeDrawing;
    GEOMETRY& g = scene_->geometry;
    g.objects = objects_;
    g.view = view_;
    g.unitScale = 1.0;
    g.edgeOpacity = 100;
    view_->flags = kViewNoOverlays | kViewNoHud;
    look({0.0f, 0.0f, 10.0f}, {0.0f, 0.0f, 0.0f}, 1.0);
}

SceneFixture::~SceneFixture() {
    release();
    memory32::release(objects_);
    memory32::release(view_);
    memory32::release(scene_);
}

void SceneFixture::release() {
    const LIST cache = view_->objectCache;
    auto* entries = static_cast<CACHEENTRY*>(cache.data.get());
    for (int k = 0; entries != nullptr && k < count(cache_.size()); ++k)
        releaseBatchesOf(entries[k]);
    releaseBatchesOf(view_->preview);
    for (void* block : blocks_)
        memory32::release(block);
    blocks_.clear();
}

int SceneFixture::addMaterial(const MATERIAL& material) {
    materials_.push_back(material);
    return count(materials_.size()) - 1;
}

int SceneFixture::addTexture(const TEXTURESLOT& slot) {
    TEXTURE texture{};
    texture.slot = slot;
    textures_.push_back(texture);
    return count(textures_.size()) - 1;
}

int SceneFixture::addLight(const LIGHT& light) {
    lights_.push_back(light);
    return count(lights_.size()) - 1;
}

int SceneFixture::addObject(uint32_t flags, uint8_t kind) {
    OBJECT object{};
    object.flags = flags;
    object.kind = kind;
    objectRecords_.push_back(object);
    clusters_.push_back({count(faces_.size()), 0});
    CACHEENTRY changed{};
    changed.changeFlags = 1;
    cache_.push_back(changed);
    return count(objectRecords_.size()) - 1;
}

int SceneFixture::addFace(const FaceShape& shape) {
    FACE face{};
    face.flags = shape.flags | (shape.normals.empty() ? 0 : kFaceVertexNormals);
    face.normal = shape.normal;
    face.material = shape.material;
    face.texCoordIndex = shape.texCoords.empty() ? -1 : count(texCoords_.size());
    faces_.push_back(face);
    for (const auto& coord : shape.texCoords)
        texCoords_.push_back({coord[0], coord[1]});
    const int32_t firstByte = count(triangleBytes_.size());
    appendBytes(triangleBytes_, shape.triangles);
    appendBytes(triangleBytes_, shape.normals);
    triangleClusters_.push_back({firstByte, count(triangleBytes_.size()) - firstByte});
    faceLoops_.push_back({count(loops_.size()), count(shape.loops.size())});
    for (const LoopShape& loop : shape.loops) {
        loops_.push_back({count(loopPoints_.size()), count(loop.points.size())});
        loopStyles_.push_back(loop.style);
        for (const auto& point : loop.points)
            loopPoints_.push_back({{point[0], point[1], point[2]}, 0});
    }
    clusters_.back().count = clusters_.back().count + 1;
    return count(faces_.size()) - 1;
}

template <class T> void SceneFixture::layOut(LIST& list, const std::vector<T>& elements) {
    const size_t bytes = elements.size() * sizeof(T);
    auto* block =
        static_cast<uint8_t*>(memory32::allocate(bytes + kCanaryBytes, memory32::Kind::Host));
    if (block == nullptr)
        std::abort();
    blocks_.push_back(block);
    if (bytes != 0)
        std::memcpy(block, elements.data(), bytes);
    std::memset(block + bytes, kCanary, kCanaryBytes);
    list.count = count(elements.size());
    list.elementSize = static_cast<int16_t>(sizeof(T));
    list.data = block;
}

void SceneFixture::commit() {
    release();
    GEOMETRY& g = geometry();
    layOut(*objects_, objectRecords_);
    layOut(g.clusters.index, clusters_);
    layOut(g.clusters.items, faces_);
    layOut(g.faceTriangles.index, triangleClusters_);
    layOut(g.faceTriangles.items, triangleBytes_);
    layOut(g.materials, materials_);
    layOut(g.textures, textures_);
    layOut(g.texCoords, texCoords_);
    layOut(g.lights, lights_);
    layOut(g.faceLoops, faceLoops_);
    layOut(g.loops, loops_);
    layOut(g.loopPoints, loopPoints_);
    layOut(g.loopStyles, loopStyles_);
    layOut(view_->objectCache, cache_);
}

void SceneFixture::look(Vec3 eye, Vec3 target, double fov) {
    GEOMETRY& g = geometry();
    g.eye = {eye.x, eye.y, eye.z};
    g.target = {target.x, target.y, target.z};
    const bool vertical = eye.x == target.x && eye.y == target.y;
    g.up = vertical ? VEC3F{0.0f, 1.0f, 0.0f} : VEC3F{0.0f, 0.0f, 1.0f};
    g.fieldOfView = fov;
}

} // namespace ogl::test
