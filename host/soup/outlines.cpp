// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/soup/outlines.h"

#include <algorithm>

namespace ogl::host {

namespace {

constexpr uint32_t kNoEdge = UINT32_MAX;

/// The outgoing edges of a patch's border, sorted by their start.
class BorderWalk {
  public:
    BorderWalk(const std::vector<Vec3>& points, std::vector<OutlineEdge>& edges, Vec3 normal)
        : points_(points), edges_(edges), normal_(normal), used_(edges.size(), false) {
        std::ranges::stable_sort(edges_, {}, &OutlineEdge::from);
    }

    bool isUsed(size_t edge) const { return used_[edge]; }

    Chain walkFrom(uint32_t edge) {
        Chain chain;
        const uint32_t start = edges_[edge].from;
        for (;;) {
            used_[edge] = true;
            chain.points.push_back(edges_[edge].from);
            const uint32_t end = edges_[edge].to;
            if (end == start) {
                chain.closed = true;
                return chain;
            }
            const uint32_t next = nextOf(edge);
            if (next == kNoEdge) {
                chain.points.push_back(end);
                return chain;
            }
            edge = next;
        }
    }

  private:
    uint32_t nextOf(uint32_t edge) const {
        const uint32_t point = edges_[edge].to;
        auto at = std::ranges::lower_bound(edges_, point, {}, &OutlineEdge::from);
        uint32_t best = kNoEdge;
        double bestTurn = 0.0;
        for (; at != edges_.end() && at->from == point; ++at) {
            const auto candidate = static_cast<uint32_t>(at - edges_.begin());
            if (used_[candidate])
                continue;
            const double turn = clockwiseFromBehind(edges_[edge], *at);
            if (best == kNoEdge || turn < bestTurn) {
                best = candidate;
                bestTurn = turn;
            }
        }
        return best;
    }

    /// The angle from the way back to `next`, clockwise: the part of the patch that lies to the
    /// left of the arriving edge is swept first, so the least angle stays with that part.
    double clockwiseFromBehind(const OutlineEdge& arriving, const OutlineEdge& next) const {
        const Vec3 back = points_[arriving.from] - points_[arriving.to];
        const Vec3 out = points_[next.to] - points_[next.from];
        const double angle = -std::atan2(dot(cross(back, out), normal_), dot(back, out));
        constexpr double kTurn = 6.283185307179586;
        return angle <= 0.0 ? angle + kTurn : angle;
    }

    const std::vector<Vec3>& points_;
    std::vector<OutlineEdge>& edges_;
    Vec3 normal_;
    std::vector<bool> used_;
};

/// Edges by their end points, both ways.
class LineGraph {
  public:
    explicit LineGraph(std::span<const OutlineEdge> edges)
        : edges_(edges), used_(edges.size(), false) {
        for (uint32_t i = 0; i < edges.size(); ++i) {
            ends_.push_back({edges[i].from, i});
            ends_.push_back({edges[i].to, i});
        }
        std::ranges::sort(ends_);
    }

    size_t degree(uint32_t point) const { return static_cast<size_t>(edgesAt(point).size()); }

    bool isUsed(uint32_t edge) const { return used_[edge]; }

    Chain walk(uint32_t edge, uint32_t start) {
        Chain chain;
        chain.points.push_back(start);
        uint32_t point = start;
        while (edge != kNoEdge) {
            used_[edge] = true;
            point = edges_[edge].from == point ? edges_[edge].to : edges_[edge].from;
            if (point == start) {
                chain.closed = chain.points.size() > 2;
                break;
            }
            chain.points.push_back(point);
            edge = degree(point) == 2 ? unusedAt(point) : kNoEdge;
        }
        return chain;
    }

  private:
    struct End {
        uint32_t point;
        uint32_t edge;
        auto operator<=>(const End&) const = default; // NOLINT(modernize-use-nullptr): a false one
    };

    std::span<const End> edgesAt(uint32_t point) const {
        return {std::ranges::lower_bound(ends_, point, {}, &End::point),
                std::ranges::upper_bound(ends_, point, {}, &End::point)};
    }
    uint32_t unusedAt(uint32_t point) const {
        for (const End& end : edgesAt(point))
            if (!used_[end.edge])
                return end.edge;
        return kNoEdge;
    }

    std::span<const OutlineEdge> edges_;
    std::vector<bool> used_;
    std::vector<End> ends_;
};

double distanceToLine(Vec3 p, Vec3 a, Vec3 b) {
    const Vec3 along = b - a;
    const double size = dot(along, along);
    const double at = size > 0.0 ? std::clamp(dot(p - a, along) / size, 0.0, 1.0) : 0.0;
    return length(p - (a + along * at));
}

/// Turns a closed chain so that it starts at a point that is no inner point of a straight side: the
/// one furthest from another is a corner.
void startAtCorner(Chain& chain, const std::vector<Vec3>& points) {
    const Vec3 first = points[chain.points[0]];
    const auto furthest = std::ranges::max_element(
        chain.points, {}, [&](uint32_t p) { return length(points[p] - first); });
    std::rotate(chain.points.begin(), furthest, chain.points.end());
}

std::vector<GridPoint> gridLoop(std::span<const uint32_t> numbers, const SoupMesh& mesh) {
    std::vector<GridPoint> loop;
    loop.reserve(numbers.size());
    for (const uint32_t n : numbers)
        loop.push_back(mesh.gridPoints[n]);
    return loop;
}

double signedArea(const Chain& chain, const SoupMesh& mesh, Vec3 normal) {
    Vec3 sum;
    const Vec3 origin = mesh.points[chain.points[0]];
    for (size_t i = 1; i + 1 < chain.points.size(); ++i)
        sum = sum + cross(mesh.points[chain.points[i]] - origin,
                          mesh.points[chain.points[i + 1]] - origin);
    return dot(sum, normal);
}

} // namespace

std::vector<Chain> traceOutline(const std::vector<Vec3>& points, std::vector<OutlineEdge> edges,
                                Vec3 normal) {
    std::vector<Chain> chains;
    BorderWalk walk(points, edges, normal);
    for (uint32_t i = 0; i < edges.size(); ++i)
        if (!walk.isUsed(i))
            chains.push_back(walk.walkFrom(i));
    return chains;
}

std::vector<Chain> chainLines(std::span<const OutlineEdge> edges) {
    std::vector<Chain> chains;
    LineGraph graph(edges);
    // Ends and crossings first; what is left then are rings.
    for (uint32_t i = 0; i < edges.size(); ++i)
        for (const uint32_t end : {edges[i].from, edges[i].to})
            if (!graph.isUsed(i) && graph.degree(end) != 2)
                chains.push_back(graph.walk(i, end));
    for (uint32_t i = 0; i < edges.size(); ++i)
        if (!graph.isUsed(i))
            chains.push_back(graph.walk(i, edges[i].from));
    return chains;
}

void straighten(Chain& chain, const std::vector<Vec3>& points, double tolerance) {
    if (chain.points.size() < 3)
        return;
    if (chain.closed)
        startAtCorner(chain, points);
    const size_t count = chain.points.size();
    const size_t least = chain.closed ? 3 : 2;
    constexpr size_t kProbes = 32;
    Chain kept;
    kept.closed = chain.closed;
    kept.points.push_back(chain.points[0]);
    size_t anchor = 0;
    const size_t last = chain.closed ? count : count - 1;
    for (size_t i = 1; i < last; ++i) {
        const Vec3 from = points[chain.points[anchor]];
        const Vec3 to = points[chain.points[(i + 1) % count]];
        bool straight = count - (i - kept.points.size()) > least;
        const size_t step = (i - anchor - 1) / kProbes + 1;
        for (size_t k = i; straight && k > anchor; k -= std::min(step, k - anchor))
            straight = distanceToLine(points[chain.points[k]], from, to) <= tolerance;
        if (straight)
            continue;
        kept.points.push_back(chain.points[i]);
        anchor = i;
    }
    if (!chain.closed)
        kept.points.push_back(chain.points.back());
    chain = std::move(kept);
}

std::vector<NewLoop> faceLoops(const std::vector<Chain>& chains, const SoupMesh& mesh,
                               Vec3 normal) {
    std::vector<NewLoop> loops(1);
    const Chain* outer = nullptr;
    double largest = 0.0;
    for (const Chain& chain : chains) {
        if (!chain.closed)
            continue;
        if (const double area = signedArea(chain, mesh, normal); area > largest) {
            largest = area;
            outer = &chain;
        }
    }
    if (outer != nullptr)
        loops[0].points = gridLoop(outer->points, mesh);
    for (const Chain& chain : chains)
        if (&chain != outer)
            loops.push_back({gridLoop(chain.points, mesh), chain.closed, false});
    return loops;
}

std::vector<NewLoop> lineLoops(const Chain& chain, const SoupMesh& mesh) {
    if (chain.closed)
        return {{gridLoop(chain.points, mesh), true, false}};
    // There and back: the edge drawing reads the first loop of a face as closed and always shows
    // it; drawings take the open polyline that follows.
    std::vector<GridPoint> line = gridLoop(chain.points, mesh);
    std::vector<GridPoint> back = line;
    for (size_t i = line.size() - 1; i-- > 1;)
        back.push_back(line[i]);
    return {{std::move(back), true, true}, {std::move(line), false, false}};
}

} // namespace ogl::host
