// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/soup/soup_mesh.h"

#include "host/soup/hash_index.h"

#include <algorithm>
#include <limits>

namespace ogl::host {

namespace {

// A triangle lower than this part of the weld distance is a line.
constexpr double kThinnest = 0.2;

/// Tells a triangle that came before; the same corners in the other sense are another triangle.
class SeenTriangles {
  public:
    explicit SeenTriangles(size_t expected) : index_(expected) {}

    /// True when `corners` is new; it is then remembered.
    bool insert(std::array<uint32_t, 3> corners) {
        std::rotate(corners.begin(), std::ranges::min_element(corners), corners.end());
        const uint64_t key = cellKey(corners[0], corners[1], corners[2]);
        for (uint32_t n = index_.first(key); n != HashIndex::kEnd; n = index_.next(n))
            if (seen_[n] == corners)
                return false;
        index_.add(key, static_cast<uint32_t>(seen_.size()));
        seen_.push_back(corners);
        return true;
    }

  private:
    HashIndex index_;
    std::vector<std::array<uint32_t, 3>> seen_;
};

MaterialId materialOf(const TriangleSoup& soup, size_t triangle) {
    if (soup.materials.empty())
        return kNone;
    return soup.materials[soup.materials.size() == 1 ? 0 : triangle];
}

double longestSide(Vec3 a, Vec3 b, Vec3 c) {
    return std::max({length(b - a), length(c - b), length(a - c)});
}

class MeshMaker {
  public:
    MeshMaker(const TriangleSoup& soup, const SoupOptions& options, WeldedPoints welded,
              SoupMesh& mesh, SoupReport& report)
        : soup_(soup), numbers_(std::move(welded.numbers)), mesh_(mesh), report_(report),
          thinnest_(options.weldDistance * kThinnest), bothSides_(options.bothSides),
          seen_(triangleCount() * (options.bothSides ? 2 : 1)) {}

    size_t triangleCount() const {
        return (soup_.indices.empty() ? soup_.positions.size() : soup_.indices.size()) / 3;
    }

    void add(size_t triangle, int materialCount) {
        SoupTriangle t{};
        t.material = materialOf(soup_, triangle);
        bool valid = t.material >= kNone && t.material < materialCount;
        for (size_t i = 0; i < 3 && valid; ++i) {
            const size_t at = triangle * 3 + i;
            const size_t source = soup_.indices.empty() ? at : soup_.indices[at];
            valid = source < numbers_.size() && numbers_[source] != kNoVertex;
            if (!valid)
                break;
            t.source[i] = static_cast<uint32_t>(source);
            t.corners[i] = numbers_[source];
        }
        if (!valid)
            ++report_.invalid;
        else
            addValid(t);
    }

  private:
    void addValid(const SoupTriangle& t) {
        const Vec3 a = mesh_.points[t.corners[0]];
        const Vec3 b = mesh_.points[t.corners[1]];
        const Vec3 c = mesh_.points[t.corners[2]];
        const Vec3 area = cross(b - a, c - a);
        const double size = length(area);
        if (!(size > longestSide(a, b, c) * thinnest_)) {
            ++report_.degenerate;
            return;
        }
        if (!seen_.insert(t.corners)) {
            ++report_.duplicate;
            return;
        }
        const Vec3 normal = area * (1.0 / size);
        append(t, normal, size * 0.5);
        if (!bothSides_)
            return;
        SoupTriangle back = t;
        std::swap(back.corners[1], back.corners[2]);
        std::swap(back.source[1], back.source[2]);
        back.back = true;
        if (seen_.insert(back.corners))
            append(back, -normal, size * 0.5);
    }

    void append(const SoupTriangle& t, Vec3 normal, double area) {
        mesh_.triangles.push_back(t);
        mesh_.normals.push_back(normal);
        mesh_.areas.push_back(area);
    }

    const TriangleSoup& soup_;
    std::vector<uint32_t> numbers_;
    SoupMesh& mesh_;
    SoupReport& report_;
    double thinnest_;
    bool bothSides_;
    SeenTriangles seen_;
};

} // namespace

SoupMesh makeSoupMesh(const LoopGrid& grid, const TriangleSoup& soup, const SoupOptions& options,
                      int materialCount, SoupReport& report) {
    const double limit = grid.step() * (std::numeric_limits<int32_t>::max() * 0.25);
    WeldedPoints welded = weldPoints(soup.positions, options.weldDistance, limit);
    SoupMesh mesh;
    mesh.points = std::move(welded.points);
    mesh.gridPoints.reserve(mesh.points.size());
    for (Vec3& point : mesh.points) {
        const GridPoint g = grid.round(point);
        mesh.gridPoints.push_back(g);
        point = grid.position(g);
    }
    MeshMaker maker(soup, options, std::move(welded), mesh, report);
    const size_t count = maker.triangleCount();
    mesh.triangles.reserve(count);
    mesh.normals.reserve(count);
    mesh.areas.reserve(count);
    for (size_t i = 0; i < count; ++i)
        maker.add(i, materialCount);
    report.triangles = mesh.triangles.size();
    return mesh;
}

} // namespace ogl::host
