// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/soup/half_edges.h"

#include "host/soup/edge_cutter.h"

#include <algorithm>

namespace ogl::host {

namespace {

/// Open half-edges in buckets by their lower point (a counting sort).
struct Buckets {
    std::vector<uint32_t> starts; ///< per point, and one more
    std::vector<uint32_t> members;
};

uint32_t lowPoint(const HalfEdge& edge) {
    return std::min(edge.from, edge.to);
}
uint32_t highPoint(const HalfEdge& edge) {
    return std::max(edge.from, edge.to);
}

Buckets sortOpenEdges(const std::vector<HalfEdge>& edges, size_t pointCount) {
    Buckets buckets;
    buckets.starts.assign(pointCount + 1, 0);
    for (const HalfEdge& edge : edges)
        if (edge.mate == kNoMate)
            ++buckets.starts[lowPoint(edge) + size_t{1}];
    for (size_t i = 0; i < pointCount; ++i)
        buckets.starts[i + 1] += buckets.starts[i];
    buckets.members.resize(buckets.starts.back());
    std::vector<uint32_t> next(buckets.starts.begin(), buckets.starts.end() - 1);
    for (size_t i = 0; i < edges.size(); ++i)
        if (edges[i].mate == kNoMate)
            buckets.members[next[lowPoint(edges[i])]++] = static_cast<uint32_t>(i);
    return buckets;
}

class Matcher {
  public:
    Matcher(const SoupMesh& mesh, std::vector<HalfEdge>& edges) : mesh_(mesh), edges_(edges) {}

    /// Joins the open half-edges among `run`, which all lie between the same two points.
    void join(std::span<const uint32_t> run) {
        if (run.size() == 2) {
            if (edges_[run[0]].from == edges_[run[1]].to)
                setMates(run[0], run[1]);
            return;
        }
        while (joinBest(run)) {
        }
    }

  private:
    void setMates(uint32_t a, uint32_t b) {
        edges_[a].mate = b;
        edges_[b].mate = a;
    }

    bool joinBest(std::span<const uint32_t> run) {
        uint32_t bestA = kNoMate;
        uint32_t bestB = kNoMate;
        double best = -2.0;
        for (const uint32_t a : run) {
            if (edges_[a].mate != kNoMate || edges_[a].from > edges_[a].to)
                continue;
            for (const uint32_t b : run) {
                if (edges_[b].mate != kNoMate || edges_[b].from != edges_[a].to)
                    continue;
                const double bend = fitness(edges_[a].triangle, edges_[b].triangle);
                if (bend > best) {
                    best = bend;
                    bestA = a;
                    bestB = b;
                }
            }
        }
        if (bestA == kNoMate)
            return false;
        setMates(bestA, bestB);
        return true;
    }

    double fitness(uint32_t t, uint32_t u) const {
        // Of equal bends the one within a material is better, so that sheets stay sheets.
        constexpr double kSameMaterial = 1e-6;
        return dot(mesh_.normals[t], mesh_.normals[u]) +
               (mesh_.triangles[t].material == mesh_.triangles[u].material ? kSameMaterial : 0.0);
    }

    const SoupMesh& mesh_;
    std::vector<HalfEdge>& edges_;
};

void findMates(const SoupMesh& mesh, std::vector<HalfEdge>& edges) {
    Buckets buckets = sortOpenEdges(edges, mesh.points.size());
    Matcher matcher(mesh, edges);
    // Pairing by bend is quadratic in the triangles at one edge; beyond this it is no surface.
    constexpr size_t kMostAtOneEdge = 64;
    for (size_t p = 0; p + 1 < buckets.starts.size(); ++p) {
        const std::span bucket(buckets.members.begin() + buckets.starts[p],
                               buckets.starts[p + 1] - buckets.starts[p]);
        std::ranges::sort(bucket, {}, [&](uint32_t e) {
            return std::pair{highPoint(edges[e]), e};
        });
        for (size_t begin = 0; begin < bucket.size();) {
            size_t end = begin + 1;
            while (end < bucket.size() &&
                   highPoint(edges[bucket[end]]) == highPoint(edges[bucket[begin]]))
                ++end;
            if (end - begin > 1 && end - begin <= kMostAtOneEdge)
                matcher.join(bucket.subspan(begin, end - begin));
            begin = end;
        }
    }
}

} // namespace

std::vector<HalfEdge> makeHalfEdges(const SoupMesh& mesh, double weldDistance) {
    std::vector<HalfEdge> edges;
    edges.reserve(mesh.triangles.size() * 3);
    for (size_t t = 0; t < mesh.triangles.size(); ++t) {
        const auto& c = mesh.triangles[t].corners;
        for (size_t i = 0; i < 3; ++i)
            edges.push_back({c[i], c[(i + 1) % 3], static_cast<uint32_t>(t)});
    }
    findMates(mesh, edges);
    if (cutOpenEdges(mesh.points, edges, weldDistance))
        findMates(mesh, edges);
    return edges;
}

} // namespace ogl::host
