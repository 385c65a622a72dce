// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/face_store.h"
#include "host/host_memory.h"

#include <span>
#include <string>
#include <vector>

namespace ogl::host {

/// An object before it is in the record.
struct ObjectPart {
    std::string name;
    ObjectOptions options;
    FaceStore faces;
};

/// Writes the geometry of `objects` into the lists of `geometry`: objects, clusters of faces,
/// triangles, texture coordinates, loops and their styles. The stores are emptied on the way, so
/// that a large model is never held twice as a whole.
void writeGeometry(HostMemory& memory, GEOMETRY& geometry, std::span<ObjectPart> objects);

/// Writes the materials; use counts come from the faces that are in the record already.
void writeMaterials(HostMemory& memory, GEOMETRY& geometry, std::span<const Material> materials);

/// Writes empty shared texture slots.
void writeTextureSlots(HostMemory& memory, GEOMETRY& geometry, size_t count);

/// Writes the light records: the sun, a second record that no renderer makes a lamp of, the lamps.
void writeLights(HostMemory& memory, GEOMETRY& geometry, std::span<const Lamp> lamps);

/// Writes the paths; their points lie on the loop grid, those off it at the origin. Makes room for
/// their pixels in the view record.
void writePaths(HostMemory& memory, SCENE& scene, std::span<const Path> paths);

/// Metres in the unit of the site box and of reference points.
int32_t siteUnits(double metres, double unitScale);

} // namespace ogl::host
