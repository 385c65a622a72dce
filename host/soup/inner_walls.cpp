// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/soup/inner_walls.h"

#include <algorithm>
#include <span>
#include <utility>

namespace ogl::host {

namespace {

constexpr uint32_t kUnknown = UINT32_MAX;       ///< no border seen so far
constexpr uint32_t kNoPartner = UINT32_MAX - 1; ///< not one patch all round
constexpr double kOpposite = -0.9999;           ///< cosine

class InnerWallFinder {
  public:
    InnerWallFinder(const SoupMesh& mesh, const std::vector<HalfEdge>& edges,
                    const Surfaces& surfaces)
        : mesh_(mesh), edges_(edges), surfaces_(surfaces),
          partners_(surfaces.patchNormal.size(), kUnknown), inner_(partners_.size(), 0) {}

    std::vector<uint8_t> find() {
        sortHalfEdges();
        for (const uint32_t h : sorted_) {
            if (!isBorder(h))
                continue;
            uint32_t& partner = partners_[patchOf(h)];
            const uint32_t other = oppositeOf(h);
            partner = partner == kUnknown || partner == other ? other : kNoPartner;
        }
        for (uint32_t patch = 0; patch < partners_.size(); ++patch)
            inner_[patch] = partners_[patch] < kNoPartner && partners_[partners_[patch]] == patch;
        for (const uint32_t h : sorted_) {
            const uint32_t patch = patchOf(h);
            if (inner_[patch] != 0 && isBorder(h) && !isClosed(h))
                inner_[patch] = inner_[partners_[patch]] = 0;
        }
        return inner_;
    }

  private:
    uint32_t patchOf(uint32_t h) const { return surfaces_.patch[edges_[h].triangle]; }
    bool isBorder(uint32_t h) const {
        return edges_[h].mate == kNoMate || patchOf(edges_[h].mate) != patchOf(h);
    }
    std::pair<uint32_t, uint32_t> endsOf(uint32_t h) const {
        return std::minmax(edges_[h].from, edges_[h].to);
    }

    /// Sorts the half-edges by their ends, those that lie between borders of flat patches.
    void sortHalfEdges() {
        std::vector<uint8_t> reached(mesh_.points.size(), 0);
        for (uint32_t h = 0; h < edges_.size(); ++h)
            if (isBorder(h) && surfaces_.curved[edges_[h].triangle] == 0)
                reached[edges_[h].from] = reached[edges_[h].to] = 1;
        for (uint32_t h = 0; h < edges_.size(); ++h)
            if (reached[edges_[h].from] != 0 && reached[edges_[h].to] != 0)
                sorted_.push_back(h);
        std::ranges::sort(sorted_, {}, [this](uint32_t h) { return endsOf(h); });
    }

    std::span<const uint32_t> edgesAt(uint32_t h) const {
        const auto ends = [this](uint32_t k) { return endsOf(k); };
        const auto first = std::ranges::lower_bound(sorted_, endsOf(h), {}, ends);
        return {first, std::ranges::upper_bound(sorted_, endsOf(h), {}, ends)};
    }

    /// The flat patch of the same material that shares the border and faces the other way.
    uint32_t oppositeOf(uint32_t border) const {
        const SoupTriangle& own = mesh_.triangles[edges_[border].triangle];
        for (const uint32_t h : edgesAt(border)) {
            const uint32_t t = edges_[h].triangle;
            if (edges_[h].from == edges_[border].to && surfaces_.curved[t] == 0 &&
                mesh_.triangles[t].material == own.material &&
                dot(surfaces_.patchNormal[patchOf(h)], surfaces_.patchNormal[patchOf(border)]) <
                    kOpposite)
                return patchOf(h);
        }
        return kNoPartner;
    }

    /// Whether a solid closes behind the wall's border: another surface goes on from there, on the
    /// side that the wall turns its back to.
    bool isClosed(uint32_t border) const {
        const uint32_t wall = patchOf(border);
        return std::ranges::any_of(edgesAt(border), [&](uint32_t h) {
            return edges_[h].from == edges_[border].to && patchOf(h) != wall &&
                   patchOf(h) != partners_[wall] && isBehind(edges_[h].triangle, border);
        });
    }

    bool isBehind(uint32_t triangle, uint32_t border) const {
        Vec3 sum;
        for (const uint32_t corner : mesh_.triangles[triangle].corners)
            sum = sum + (mesh_.points[corner] - mesh_.points[edges_[border].from]);
        return dot(sum, surfaces_.patchNormal[patchOf(border)]) < 0.0;
    }

    const SoupMesh& mesh_;
    const std::vector<HalfEdge>& edges_;
    const Surfaces& surfaces_;
    std::vector<uint32_t> partners_; ///< per patch
    std::vector<uint8_t> inner_;     ///< per patch
    std::vector<uint32_t> sorted_;   ///< half-edges
};

} // namespace

std::vector<uint8_t> findInnerWalls(const SoupMesh& mesh, const std::vector<HalfEdge>& edges,
                                    const Surfaces& surfaces) {
    return InnerWallFinder(mesh, edges, surfaces).find();
}

} // namespace ogl::host
