// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/soup/edge_cutter.h"

#include "host/soup/hash_index.h"

#include <algorithm>

namespace ogl::host {

namespace {

struct Cut {
    double at; ///< distance from the edge's start
    uint32_t point;
    bool operator<(const Cut& other) const { return at < other.at; }
};

/// The end points of open edges by cells about as large as an average open edge, so that walking
/// along all edges visits a number of cells proportional to the number of edges.
class OpenPoints {
  public:
    OpenPoints(const std::vector<Vec3>& points, const std::vector<HalfEdge>& edges, double distance)
        : points_(points), index_(64), distance_(distance) {
        double total = 0.0;
        size_t count = 0;
        for (const HalfEdge& edge : edges) {
            if (edge.mate != kNoMate)
                continue;
            total += length(points[edge.to] - points[edge.from]);
            ++count;
        }
        cell_ = std::max(total / static_cast<double>(std::max<size_t>(count, 1)), distance * 4.0);
        std::vector<bool> seen(points.size(), false);
        for (const HalfEdge& edge : edges) {
            if (edge.mate != kNoMate)
                continue;
            add(edge.from, seen);
            add(edge.to, seen);
        }
    }

    /// The points inside the edge `from` -> `to`, in order.
    void findOn(uint32_t from, uint32_t to, std::vector<Cut>& cuts) const {
        cuts.clear();
        const Vec3 start = points_[from];
        const Vec3 along = points_[to] - start;
        const double size = length(along);
        const Vec3 direction = along * (1.0 / size);
        const auto steps = static_cast<int64_t>(std::ceil(size / cell_));
        for (int64_t i = 0; i < steps; ++i) {
            const double low = static_cast<double>(i) * cell_;
            const double high = std::min(low + cell_, size);
            collect(start, direction, low, high, size, cuts);
        }
        std::ranges::sort(cuts, {}, &Cut::at);
        const auto isSame = [](const Cut& a, const Cut& b) { return a.point == b.point; };
        cuts.erase(std::unique(cuts.begin(), cuts.end(), isSame), cuts.end());
    }

  private:
    int64_t cellOf(double v) const { return static_cast<int64_t>(std::floor(v / cell_)); }

    void add(uint32_t point, std::vector<bool>& seen) {
        if (seen[point])
            return;
        seen[point] = true;
        const Vec3 p = points_[point];
        index_.add(cellKey(cellOf(p.x), cellOf(p.y), cellOf(p.z)),
                   static_cast<uint32_t>(members_.size()));
        members_.push_back(point);
    }

    /// Looks at the cells around the piece of the edge from `low` to `high`.
    void collect(Vec3 start, Vec3 direction, double low, double high, double size,
                 std::vector<Cut>& cuts) const {
        const Vec3 a = start + direction * low;
        const Vec3 b = start + direction * high;
        const auto range = [this](double u, double v) {
            return std::pair{cellOf(std::min(u, v) - distance_),
                             cellOf(std::max(u, v) + distance_)};
        };
        const auto [x0, x1] = range(a.x, b.x);
        const auto [y0, y1] = range(a.y, b.y);
        const auto [z0, z1] = range(a.z, b.z);
        for (int64_t x = x0; x <= x1; ++x)
            for (int64_t y = y0; y <= y1; ++y)
                for (int64_t z = z0; z <= z1; ++z)
                    collectCell(cellKey(x, y, z), start, direction, size, cuts);
    }

    void collectCell(uint64_t key, Vec3 start, Vec3 direction, double size,
                     std::vector<Cut>& cuts) const {
        for (uint32_t n = index_.first(key); n != HashIndex::kEnd; n = index_.next(n)) {
            const Vec3 d = points_[members_[n]] - start;
            const double at = dot(d, direction);
            if (at <= distance_ || at >= size - distance_)
                continue;
            if (length(d - direction * at) <= distance_)
                cuts.push_back({at, members_[n]});
        }
    }

    const std::vector<Vec3>& points_;
    std::vector<uint32_t> members_;
    HashIndex index_;
    double distance_;
    double cell_ = 1.0;
};

} // namespace

bool cutOpenEdges(const std::vector<Vec3>& points, std::vector<HalfEdge>& edges, double distance) {
    const OpenPoints open(points, edges, distance);
    std::vector<Cut> cuts;
    bool any = false;
    const size_t count = edges.size();
    for (size_t i = 0; i < count; ++i) {
        if (edges[i].mate != kNoMate)
            continue;
        const HalfEdge whole = edges[i];
        open.findOn(whole.from, whole.to, cuts);
        if (cuts.empty())
            continue;
        any = true;
        edges[i].to = cuts.front().point;
        for (size_t c = 0; c < cuts.size(); ++c) {
            const uint32_t end = c + 1 < cuts.size() ? cuts[c + 1].point : whole.to;
            edges.push_back({cuts[c].point, end, whole.triangle});
        }
    }
    return any;
}

} // namespace ogl::host
