// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A ray against triangles as a host stores them: 36 bytes each, nine unaligned floats.
#pragma once

#include "math/vector3.h"
#include "scene/record_views.h"

#include <cstdint>

namespace ogl {

/// A half-line. Distances along it are counted in lengths of `direction`, which need not be 1.
struct Ray {
    Vec3 origin;
    Vec3 direction;
};

/// True when the ray meets the triangle in front of its origin; `distance` then receives how far
/// along. Edges and corners belong to the triangle, winding does not matter, triangles without
/// area or with corners that are no numbers are never met. After T. Moeller and B. Trumbore, "Fast,
/// minimum storage ray/triangle intersection", Journal of Graphics Tools 2(1), 1997, no culling.
bool hitTriangle(const Ray& ray, const uint8_t* triangle, float& distance);

/// Number of the first triangle from `first` on, of `count` side by side, that hitTriangle() may
/// accept; `count` when it would refuse them all. Those between are surely missed.
using CandidateSearch = int (*)(const Ray& ray, const uint8_t* triangles, int first, int count);

/// The search for four triangles at a time, which every processor of this build has.
int nextCandidateSse2(const Ray& ray, const uint8_t* triangles, int first, int count);
/// The search for eight triangles at a time; only where hasAvx2().
int nextCandidateAvx2(const Ray& ray, const uint8_t* triangles, int first, int count);
bool hasAvx2();

/// The fastest search that this processor has.
CandidateSearch candidateSearch();

} // namespace ogl
