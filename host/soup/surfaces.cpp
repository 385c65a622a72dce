// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/soup/surfaces.h"

#include "host/soup/disjoint_sets.h"
#include "host/soup/flat_patches.h"

#include <algorithm>
#include <numbers>

namespace ogl::host {

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;

double angleCosine(double degrees) {
    return std::cos(degrees * kRadians);
}

// A vertex normal closer than this to its triangle's normal belongs to a flat face, one further
// away than kWildDegrees to a box that was exported with averaged normals.
constexpr double kFlatDegrees = 1.5;
constexpr double kWildDegrees = 50.0;
// Vertex normals of neighbours that differ by less belong to one smooth surface.
constexpr double kAgreeingDegrees = 4.0;
// A bend of this size with vertex normals that are the same on both sides was meant to be smooth.
constexpr double kLeastBendDegrees = 0.1;
constexpr double kSameDegrees = 0.05;

uint32_t cornerOf(const SoupTriangle& triangle, uint32_t point) {
    for (uint32_t i = 0; i < 3; ++i)
        if (triangle.corners[i] == point)
            return i;
    return 3;
}

class SurfaceFinder {
  public:
    SurfaceFinder(const SoupMesh& mesh, const std::vector<HalfEdge>& edges,
                  const TriangleSoup& soup, const SoupOptions& options)
        : mesh_(mesh), edges_(edges), soup_(soup), options_(options) {
        result_.curved.assign(mesh.triangles.size(), 0);
        result_.flatPart.assign(mesh.triangles.size(), 0);
        result_.soft.assign(edges.size(), 0);
        result_.cornerNormals.resize(mesh.triangles.size() * 3);
    }

    Surfaces find() {
        const bool given = !soup_.normals.empty();
        if (given)
            takeGivenNormals();
        growFlatPatches(mesh_, edges_, options_.weldDistance, result_);
        if (given) {
            markFineCurves();
            markSoftByNormals();
            takeInTangentPatches();
        } else {
            markCurvedChains();
            averageNormals();
        }
        return std::move(result_);
    }

  private:
    /// The soup's normal at a corner, or the triangle's when that is unusable.
    Vec3 givenNormal(size_t t, size_t corner) const {
        const SoupTriangle& triangle = mesh_.triangles[t];
        const uint32_t source = triangle.source[corner];
        if (source >= soup_.normals.size() || !isFinite(soup_.normals[source]))
            return mesh_.normals[t];
        const Vec3 n = soup_.normals[source];
        constexpr double kShortest = 1e-6;
        if (length(n) < kShortest)
            return mesh_.normals[t];
        return normalized(triangle.back ? -n : n);
    }

    /// Cosine of the largest angle between a triangle's normal and those of its corners.
    double leastDot(size_t t) const {
        double least = 1.0;
        for (size_t i = 0; i < 3; ++i)
            least = std::min(least, dot(result_.cornerNormals[t * 3 + i], mesh_.normals[t]));
        return least;
    }

    void takeGivenNormals() {
        const double flat = angleCosine(kFlatDegrees);
        const double wild = angleCosine(kWildDegrees);
        for (size_t t = 0; t < mesh_.triangles.size(); ++t) {
            for (size_t i = 0; i < 3; ++i)
                result_.cornerNormals[t * 3 + i] = givenNormal(t, i);
            const double least = leastDot(t);
            result_.curved[t] = least < flat && least > wild;
        }
    }

    /// The triangles of a finely divided curve are too flat to tell one by one; there, flat patches
    /// meet at a bend over which the vertex normals stay the same.
    void markFineCurves() {
        const double same = angleCosine(kSameDegrees);
        const double bend = angleCosine(kLeastBendDegrees);
        std::vector<uint8_t> fine(result_.patchNormal.size(), 0);
        for (const HalfEdge& edge : edges_) {
            if (edge.mate == kNoMate)
                continue;
            const uint32_t t = edge.triangle;
            const uint32_t u = edges_[edge.mate].triangle;
            const uint32_t p = result_.patch[t];
            const uint32_t q = result_.patch[u];
            if (p != q && !result_.curved[t] && !result_.curved[u] && oneMaterial(t, u) &&
                dot(mesh_.normals[t], mesh_.normals[u]) < bend && agree(t, u, edge.from, same) &&
                agree(t, u, edge.to, same))
                fine[p] = fine[q] = 1;
        }
        const double wild = angleCosine(kWildDegrees);
        for (uint32_t t = 0; t < mesh_.triangles.size(); ++t) {
            if (fine[result_.patch[t]] && result_.curved[t] == 0)
                result_.curved[t] = leastDot(t) > wild;
            if (!result_.curved[t])
                for (size_t i = 0; i < 3; ++i)
                    result_.cornerNormals[t * size_t{3} + i] = mesh_.normals[t];
        }
    }

    bool oneMaterial(uint32_t t, uint32_t u) const {
        return mesh_.triangles[t].material == mesh_.triangles[u].material &&
               mesh_.triangles[t].back == mesh_.triangles[u].back;
    }

    void markSoftByNormals() {
        const double agreeing = angleCosine(kAgreeingDegrees);
        for (size_t h = 0; h < edges_.size(); ++h) {
            const HalfEdge& edge = edges_[h];
            if (edge.mate == kNoMate)
                continue;
            const uint32_t t = edge.triangle;
            const uint32_t u = edges_[edge.mate].triangle;
            if (!oneMaterial(t, u))
                continue;
            result_.soft[h] = result_.patch[t] == result_.patch[u] ||
                              ((result_.curved[t] || result_.curved[u]) &&
                               agree(t, u, edge.from, agreeing) && agree(t, u, edge.to, agreeing));
        }
    }

    /// A flat part that a curved one runs into without an edge belongs to the curved surface: the
    /// silhouette may lie on the line between them.
    void takeInTangentPatches() {
        std::vector<uint8_t> tangent(result_.patchNormal.size(), 0);
        for (size_t h = 0; h < edges_.size(); ++h) {
            const uint32_t t = edges_[h].triangle;
            if (result_.soft[h] && !result_.curved[t] &&
                result_.curved[edges_[edges_[h].mate].triangle])
                tangent[result_.patch[t]] = 1;
        }
        for (size_t t = 0; t < mesh_.triangles.size(); ++t)
            if (tangent[result_.patch[t]])
                result_.curved[t] = result_.flatPart[t] = 1;
    }

    bool agree(uint32_t t, uint32_t u, uint32_t point, double agreeing) const {
        const uint32_t i = cornerOf(mesh_.triangles[t], point);
        const uint32_t j = cornerOf(mesh_.triangles[u], point);
        // A point inside the other triangle's side has no normal of its own there.
        if (i == 3 || j == 3)
            return true;
        return dot(result_.cornerNormals[t * size_t{3} + i],
                   result_.cornerNormals[u * size_t{3} + j]) > agreeing;
    }

    /// Joins patches over small bends; chains of enough patches are curved surfaces.
    void markCurvedChains() {
        const double crease = angleCosine(options_.creaseDegrees);
        DisjointSets chains(result_.patchNormal.size());
        const auto bendsLittle = [&](uint32_t p, uint32_t q) {
            return dot(result_.patchNormal[p], result_.patchNormal[q]) > crease;
        };
        const auto patchBeyond = [&](const HalfEdge& edge) {
            const uint32_t u = edges_[edge.mate].triangle;
            return oneMaterial(edge.triangle, u) ? result_.patch[u] : UINT32_MAX;
        };
        for (const HalfEdge& edge : edges_) {
            if (edge.mate == kNoMate)
                continue;
            const uint32_t p = result_.patch[edge.triangle];
            const uint32_t q = patchBeyond(edge);
            if (q != UINT32_MAX && p < q && bendsLittle(p, q))
                chains.join(p, q);
        }
        std::vector<int> sizes(result_.patchNormal.size(), 0);
        for (uint32_t p = 0; p < sizes.size(); ++p)
            ++sizes[chains.find(p)];
        for (size_t t = 0; t < mesh_.triangles.size(); ++t)
            result_.curved[t] = sizes[chains.find(result_.patch[t])] >= options_.minCurvedPatches;
        for (size_t h = 0; h < edges_.size(); ++h) {
            const HalfEdge& edge = edges_[h];
            if (edge.mate == kNoMate)
                continue;
            const uint32_t p = result_.patch[edge.triangle];
            const uint32_t q = patchBeyond(edge);
            result_.soft[h] =
                q != UINT32_MAX && (p == q || (result_.curved[edge.triangle] && bendsLittle(p, q)));
        }
    }

    /// Corner normals of curved triangles: the mean of the triangles around the corner that are
    /// joined by soft edges, weighted by area and by angle at the corner, so that a large flat part
    /// keeps its direction up to the rounding beside it.
    void averageNormals() {
        DisjointSets corners(mesh_.triangles.size() * 3);
        for (size_t h = 0; h < edges_.size(); ++h) {
            if (!result_.soft[h])
                continue;
            const uint32_t t = edges_[h].triangle;
            const uint32_t u = edges_[edges_[h].mate].triangle;
            for (const uint32_t point : {edges_[h].from, edges_[h].to}) {
                const uint32_t i = cornerOf(mesh_.triangles[t], point);
                const uint32_t j = cornerOf(mesh_.triangles[u], point);
                if (i < 3 && j < 3)
                    corners.join(t * 3 + i, u * 3 + j);
            }
        }
        std::vector<Vec3> sums(mesh_.triangles.size() * 3);
        for (uint32_t t = 0; t < mesh_.triangles.size(); ++t)
            for (uint32_t i = 0; i < 3; ++i) {
                Vec3& sum = sums[corners.find(t * 3 + i)];
                sum = sum + mesh_.normals[t] * (mesh_.areas[t] * cornerAngle(t, i));
            }
        for (uint32_t t = 0; t < mesh_.triangles.size(); ++t)
            for (uint32_t i = 0; i < 3; ++i)
                result_.cornerNormals[t * size_t{3} + i] =
                    normalized(sums[corners.find(t * 3 + i)]);
    }

    double cornerAngle(uint32_t t, uint32_t i) const {
        const auto& c = mesh_.triangles[t].corners;
        const Vec3 p = mesh_.points[c[i]];
        const Vec3 a = normalized(mesh_.points[c[(i + 1) % 3]] - p);
        const Vec3 b = normalized(mesh_.points[c[(i + 2) % 3]] - p);
        return std::acos(std::clamp(dot(a, b), -1.0, 1.0));
    }

    const SoupMesh& mesh_;
    const std::vector<HalfEdge>& edges_;
    const TriangleSoup& soup_;
    const SoupOptions& options_;
    Surfaces result_;
};

} // namespace

TriangleSides::TriangleSides(const std::vector<HalfEdge>& edges, size_t triangleCount)
    : starts_(triangleCount + 1, 0), members_(edges.size()) {
    for (const HalfEdge& edge : edges)
        ++starts_[edge.triangle + size_t{1}];
    for (size_t i = 0; i < triangleCount; ++i)
        starts_[i + 1] += starts_[i];
    std::vector<uint32_t> next(starts_.begin(), starts_.end() - 1);
    for (size_t i = 0; i < edges.size(); ++i)
        members_[next[edges[i].triangle]++] = static_cast<uint32_t>(i);
}

Surfaces findSurfaces(const SoupMesh& mesh, const std::vector<HalfEdge>& edges,
                      const TriangleSoup& soup, const SoupOptions& options) {
    return SurfaceFinder(mesh, edges, soup, options).find();
}

} // namespace ogl::host
