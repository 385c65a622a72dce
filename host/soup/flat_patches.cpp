// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/soup/flat_patches.h"

#include <algorithm>
#include <numeric>

namespace ogl::host {

namespace {

constexpr uint32_t kNoPatch = UINT32_MAX;
constexpr double kSameDirection = 0.99996; // cosine of half a degree
constexpr double kSameSense = 0.7;         // thin triangles have inexact normals
// How far a triangle may leave the patch's plane, in weld distances: one of the same direction, and
// one whose direction differs because it is thin.
constexpr double kPatchThickness = 5.0;
constexpr double kThinTriangleOff = 0.3;

class PatchGrower {
  public:
    PatchGrower(const SoupMesh& mesh, const std::vector<HalfEdge>& edges, double weldDistance,
                Surfaces& surfaces)
        : mesh_(mesh), edges_(edges), sides_(edges, mesh.triangles.size()),
          weldDistance_(weldDistance), surfaces_(surfaces) {}

    void growFrom(uint32_t seed) {
        const auto patch = static_cast<uint32_t>(surfaces_.patchNormal.size());
        surfaces_.patchNormal.push_back(mesh_.normals[seed]);
        surfaces_.patch[seed] = patch;
        if (surfaces_.curved[seed])
            return;
        const Vec3 origin = mesh_.points[mesh_.triangles[seed].corners[0]];
        open_.assign(1, seed);
        while (!open_.empty()) {
            const uint32_t t = open_.back();
            open_.pop_back();
            for (const uint32_t side : sides_.of(t)) {
                const uint32_t mate = edges_[side].mate;
                if (mate == kNoMate)
                    continue;
                const uint32_t u = edges_[mate].triangle;
                if (surfaces_.patch[u] == kNoPatch && belongs(u, seed, origin)) {
                    surfaces_.patch[u] = patch;
                    open_.push_back(u);
                }
            }
        }
    }

  private:
    bool belongs(uint32_t u, uint32_t seed, Vec3 origin) const {
        const SoupTriangle& triangle = mesh_.triangles[u];
        if (surfaces_.curved[u] || triangle.material != mesh_.triangles[seed].material ||
            triangle.back != mesh_.triangles[seed].back)
            return false;
        const Vec3 normal = mesh_.normals[seed];
        const double bend = dot(mesh_.normals[u], normal);
        if (bend < kSameSense)
            return false;
        double off = 0.0;
        for (const uint32_t corner : triangle.corners)
            off = std::max(off, std::fabs(dot(mesh_.points[corner] - origin, normal)));
        return off <= (bend > kSameDirection ? kPatchThickness : kThinTriangleOff) * weldDistance_;
    }

    const SoupMesh& mesh_;
    const std::vector<HalfEdge>& edges_;
    TriangleSides sides_;
    double weldDistance_;
    Surfaces& surfaces_;
    std::vector<uint32_t> open_;
};

} // namespace

void growFlatPatches(const SoupMesh& mesh, const std::vector<HalfEdge>& edges, double weldDistance,
                     Surfaces& surfaces) {
    const size_t count = mesh.triangles.size();
    surfaces.patch.assign(count, kNoPatch);
    surfaces.patchNormal.clear();
    std::vector<uint32_t> order(count);
    std::iota(order.begin(), order.end(), 0u);
    std::ranges::stable_sort(order, std::ranges::greater{},
                             [&](uint32_t t) { return mesh.areas[t]; });
    PatchGrower grower(mesh, edges, weldDistance, surfaces);
    for (const uint32_t seed : order)
        if (surfaces.patch[seed] == kNoPatch)
            grower.growFrom(seed);
}

} // namespace ogl::host
