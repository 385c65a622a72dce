// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/scene_writer.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace ogl::host {

namespace {

/// Total sizes of the lists that all objects share.
struct Totals {
    size_t faces = 0;
    size_t triangleBytes = 0;
    size_t texCoords = 0;
    size_t loops = 0;
    size_t loopPoints = 0;
};

/// Where the next object's part of each shared list goes.
struct Cursors {
    FACE* faces;
    INDEX* clusters;
    INDEX* triangleRanges;
    uint8_t* triangleBytes;
    TEXCOORD* texCoords;
    FACELOOPS* faceLoops;
    LOOP* loops;
    LOOPSTYLE* loopStyles;
    LOOPPOINT* loopPoints;
};

template <class T> T* makeList(HostMemory& memory, LIST& list, size_t count) {
    return static_cast<T*>(fillList(memory, list, count, sizeof(T)));
}

template <class T> T* copyTo(T* to, const std::vector<T>& from) {
    if (!from.empty())
        std::memcpy(static_cast<void*>(to), from.data(), from.size() * sizeof(T));
    return to + from.size();
}

Totals totalsOf(std::span<const ObjectPart> objects) {
    Totals totals;
    for (const ObjectPart& object : objects) {
        totals.faces += object.faces.faces.size();
        totals.triangleBytes += object.faces.triangles.size() * sizeof(float);
        totals.texCoords += object.faces.texCoords.size();
        totals.loops += object.faces.loops.size();
        totals.loopPoints += object.faces.loopPoints.size();
    }
    return totals;
}

Cursors makeLists(HostMemory& memory, GEOMETRY& geometry, const Totals& totals, size_t objects) {
    Cursors at{};
    at.clusters = makeList<INDEX>(memory, geometry.clusters.index, objects);
    at.faces = makeList<FACE>(memory, geometry.clusters.items, totals.faces);
    at.triangleRanges = makeList<INDEX>(memory, geometry.faceTriangles.index, totals.faces);
    at.triangleBytes =
        makeList<uint8_t>(memory, geometry.faceTriangles.items, totals.triangleBytes);
    at.texCoords = makeList<TEXCOORD>(memory, geometry.texCoords, totals.texCoords);
    at.faceLoops = makeList<FACELOOPS>(memory, geometry.faceLoops, totals.faces);
    at.loops = makeList<LOOP>(memory, geometry.loops, totals.loops);
    at.loopStyles = makeList<LOOPSTYLE>(memory, geometry.loopStyles, totals.loops);
    at.loopPoints = makeList<LOOPPOINT>(memory, geometry.loopPoints, totals.loopPoints);
    return at;
}

/// Numbers in a store count from its start; `before` is what other objects have already.
void shiftNumbers(FaceStore& store, const Totals& before) {
    for (FACE& face : store.faces)
        if (face.texCoordIndex >= 0)
            face.texCoordIndex = face.texCoordIndex + static_cast<int32_t>(before.texCoords);
    for (INDEX& range : store.triangleRanges)
        range.first = range.first + static_cast<int32_t>(before.triangleBytes);
    for (FACELOOPS& loops : store.faceLoops)
        loops.firstLoop = loops.firstLoop + static_cast<int32_t>(before.loops);
    for (LOOP& loop : store.loops)
        loop.firstPoint = loop.firstPoint + static_cast<int32_t>(before.loopPoints);
}

void writeFaces(Cursors& at, FaceStore& store) {
    at.faces = copyTo(at.faces, store.faces);
    at.triangleRanges = copyTo(at.triangleRanges, store.triangleRanges);
    const size_t bytes = store.triangles.size() * sizeof(float);
    if (bytes > 0)
        std::memcpy(at.triangleBytes, store.triangles.data(), bytes);
    at.triangleBytes += bytes;
    at.texCoords = copyTo(at.texCoords, store.texCoords);
    at.faceLoops = copyTo(at.faceLoops, store.faceLoops);
    at.loops = copyTo(at.loops, store.loops);
    at.loopStyles = copyTo(at.loopStyles, store.loopStyles);
    at.loopPoints = copyTo(at.loopPoints, store.loopPoints);
}

OBJECT objectRecord(const ObjectPart& part, double unitScale) {
    OBJECT object{};
    object.flags = part.options.visible ? 0u : 0x8u;
    object.kind = static_cast<uint8_t>(part.options.kind);
    Vec3 reference;
    if (part.options.referencePoint)
        reference = *part.options.referencePoint;
    else if (const Box& box = part.faces.bounds(); !box.empty())
        reference = (box.low + box.high) * 0.5;
    object.referencePoint = {siteUnits(reference.x, unitScale), siteUnits(reference.y, unitScale),
                             siteUnits(reference.z, unitScale)};
    return object;
}

} // namespace

int32_t siteUnits(double metres, double unitScale) {
    constexpr double kLimit = std::numeric_limits<int32_t>::max();
    const double value = std::round(metres * unitScale * 1000.0);
    return static_cast<int32_t>(std::isfinite(value) ? std::clamp(value, -kLimit, kLimit) : 0.0);
}

void writeGeometry(HostMemory& memory, GEOMETRY& geometry, std::span<ObjectPart> objects) {
    const Totals totals = totalsOf(objects);
    if (totals.triangleBytes > static_cast<size_t>(std::numeric_limits<int32_t>::max()))
        throw std::length_error("the scene has too many triangles");
    auto* list = memory.make<LIST>();
    auto* records = makeList<OBJECT>(memory, *list, objects.size());
    geometry.objects = list;
    Cursors at = makeLists(memory, geometry, totals, objects.size());
    Totals before;
    for (ObjectPart& part : objects) {
        FaceStore& store = part.faces;
        *records++ = objectRecord(part, geometry.unitScale);
        *at.clusters++ = {static_cast<int32_t>(before.faces),
                          static_cast<int32_t>(store.faces.size())};
        shiftNumbers(store, before);
        writeFaces(at, store);
        before.faces += store.faces.size();
        before.triangleBytes += store.triangles.size() * sizeof(float);
        before.texCoords += store.texCoords.size();
        before.loops += store.loops.size();
        before.loopPoints += store.loopPoints.size();
        store.releaseArrays();
    }
}

void writeMaterials(HostMemory& memory, GEOMETRY& geometry, std::span<const Material> materials) {
    std::vector<uint32_t> useCounts(materials.size(), 0);
    const auto* faces = static_cast<const FACE*>(geometry.clusters.items.data.get());
    for (int32_t i = 0; i < geometry.clusters.items.count; ++i)
        if (const int material = faces[i].material; material >= 0)
            ++useCounts[static_cast<size_t>(material)];

    auto* record = makeList<MATERIAL>(memory, geometry.materials, materials.size());
    for (size_t i = 0; i < materials.size(); ++i, ++record) {
        const Material& from = materials[i];
        record->flags = static_cast<uint16_t>((from.onlyTextured ? kMaterialOnlyTextured : 0) |
                                              (from.alphaTextured ? kMaterialAlphaTextured : 0));
        record->color = {from.color.blue, from.color.green, from.color.red};
        record->brightness = from.brightness;
        record->emission = from.emission;
        record->specular = from.specular;
        record->reflection = from.reflection;
        record->opacity = from.opacity;
        record->fresnel = from.fresnel;
        record->glossiness = from.glossiness;
        record->bumpStrength = from.bumpStrength;
        record->textureIndex = static_cast<int16_t>(from.texture);
        record->useCount = useCounts[i];
    }
}

void writeTextureSlots(HostMemory& memory, GEOMETRY& geometry, size_t count) {
    fillList(memory, geometry.textures, count, sizeof(TEXTURE));
}

void writeLights(HostMemory& memory, GEOMETRY& geometry, std::span<const Lamp> lamps) {
    constexpr size_t kReserved = 2;
    auto* record = makeList<LIGHT>(memory, geometry.lights, kReserved + lamps.size());
    record += kReserved;
    for (const Lamp& lamp : lamps) {
        const auto vec = [](Vec3 v) {
            return VEC3F{static_cast<float>(v.x), static_cast<float>(v.y), static_cast<float>(v.z)};
        };
        record->position = vec(lamp.position);
        record->target = vec(lamp.target);
        record->attenuation = lamp.attenuated ? 1.0f : 0.0f;
        record->coneAngle = static_cast<float>(lamp.coneAngleDegrees);
        record->color = {lamp.red, lamp.green, lamp.blue};
        record->kind = static_cast<uint8_t>(lamp.kind);
        ++record;
    }
}

void writePaths(HostMemory& memory, SCENE& scene, std::span<const Path> paths) {
    const LoopGrid grid(scene.geometry.unitScale);
    size_t pointCount = 0;
    for (const Path& path : paths)
        pointCount += path.points.size();
    // Only the number of the path records is the library's business.
    constexpr size_t kPathRecordSize = 32;
    fillList(memory, scene.paths, paths.size(), kPathRecordSize);
    auto* index = makeList<INDEX>(memory, scene.pathPoints.index, paths.size());
    auto* points = makeList<POINT3D>(memory, scene.pathPoints.items, pointCount);
    int32_t first = 0;
    for (const Path& path : paths) {
        *index++ = {first, static_cast<int32_t>(path.points.size())};
        for (const int solid : path.solidPoints)
            if (solid >= 0 && static_cast<size_t>(solid) < path.points.size())
                points[first + solid].flags = kPointSolid;
        for (const Vec3& p : path.points) {
            const GridPoint at = grid.holds(p) ? grid.round(p) : GridPoint{};
            points[first++].position = {at.x, at.y, at.z};
        }
    }
    VIEW& view = *scene.geometry.view.get();
    for (VLIST* pixels : {&view.pathPixels, &view.markerPixels}) {
        makeList<INDEX>(memory, pixels->index, paths.size());
        makeList<PIXEL>(memory, pixels->items, pointCount);
    }
}

} // namespace ogl::host
