// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/ray_caster.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

namespace oglview {
namespace {

using ogl::host::Box;
using ogl::host::Vec3;

constexpr uint32_t kLeafTriangles = 8;
constexpr size_t kDeepestTree = 64;

double component(Vec3 v, int axis) {
    return axis == 0 ? v.x : axis == 1 ? v.y : v.z;
}

int longestAxis(const Box& box) {
    const Vec3 size = box.high - box.low;
    if (size.x >= size.y && size.x >= size.z)
        return 0;
    return size.y >= size.z ? 1 : 2;
}

/// Moeller and Trumbore, "Fast, minimum storage ray/triangle intersection", 1997.
std::optional<double> hitTriangle(Vec3 origin, Vec3 direction, const Vec3* corner) {
    const Vec3 edge1 = corner[1] - corner[0];
    const Vec3 edge2 = corner[2] - corner[0];
    const Vec3 p = cross(direction, edge2);
    const double determinant = dot(edge1, p);
    if (std::abs(determinant) < 1e-14)
        return std::nullopt;
    const Vec3 from = origin - corner[0];
    const double u = dot(from, p) / determinant;
    if (u < 0.0 || u > 1.0)
        return std::nullopt;
    const Vec3 q = cross(from, edge1);
    const double v = dot(direction, q) / determinant;
    const double distance = dot(edge2, q) / determinant;
    if (v < 0.0 || u + v > 1.0 || distance <= 0.0)
        return std::nullopt;
    return distance;
}

/// Distance at which a ray enters a box; none when it misses it or does so behind `farthest`.
bool meetsBox(Vec3 origin, Vec3 direction, const Box& box, double farthest) {
    double enter = 0.0;
    double leave = farthest;
    for (int axis = 0; axis < 3; ++axis) {
        const double inverse = 1.0 / component(direction, axis);
        double t0 = (component(box.low, axis) - component(origin, axis)) * inverse;
        double t1 = (component(box.high, axis) - component(origin, axis)) * inverse;
        if (t0 > t1)
            std::swap(t0, t1);
        // A ray within a face's plane gives 0 x infinity: such comparisons are false and keep the
        // interval.
        enter = t0 > enter ? t0 : enter;
        leave = t1 < leave ? t1 : leave;
    }
    return enter <= leave;
}

} // namespace

RayCaster::RayCaster(const TriangleCorners& corners) : corners_(corners) {
    order_.resize(corners.size() / 3);
    std::iota(order_.begin(), order_.end(), 0u);
    nodes_.reserve(order_.size() / (kLeafTriangles / 2) + 1);
    if (!order_.empty())
        build(0, static_cast<uint32_t>(order_.size()));
}

uint32_t RayCaster::build(uint32_t first, uint32_t last) {
    const auto number = static_cast<uint32_t>(nodes_.size());
    Node node;
    Box centers;
    const auto center = [this](uint32_t triangle) {
        const Vec3* corner = &corners_[size_t{3} * triangle];
        return (corner[0] + corner[1] + corner[2]) * (1.0 / 3.0);
    };
    for (uint32_t k = first; k < last; ++k) {
        centers.add(center(order_[k]));
        for (size_t corner = 0; corner < 3; ++corner)
            node.box.add(corners_[size_t{3} * order_[k] + corner]);
    }
    node.first = first;
    node.count = last - first;
    nodes_.push_back(node);
    if (node.count <= kLeafTriangles)
        return number;

    const int axis = longestAxis(centers);
    const uint32_t middle = first + node.count / 2;
    std::nth_element(order_.begin() + first, order_.begin() + middle, order_.begin() + last,
                     [&](uint32_t a, uint32_t b) {
                         return component(center(a), axis) < component(center(b), axis);
                     });
    build(first, middle);
    const uint32_t second = build(middle, last);
    nodes_[number].first = second;
    nodes_[number].count = 0;
    return number;
}

/// Calls visit(distance) for triangles along the ray; it returns how far to look from then on.
template <class Visit> void RayCaster::visitHits(Vec3 origin, Vec3 direction, Visit visit) const {
    double farthest = visit(-1.0);
    uint32_t waiting[kDeepestTree];
    size_t count = 0;
    if (!nodes_.empty())
        waiting[count++] = 0;
    while (count > 0) {
        const uint32_t number = waiting[--count];
        const Node& node = nodes_[number];
        if (!meetsBox(origin, direction, node.box, farthest))
            continue;
        if (node.count == 0) {
            waiting[count++] = node.first;
            waiting[count++] = number + 1;
            continue;
        }
        for (uint32_t k = node.first; k < node.first + node.count; ++k)
            if (const auto distance =
                    hitTriangle(origin, direction, &corners_[size_t{3} * order_[k]]))
                farthest = *distance < farthest ? visit(*distance) : farthest;
    }
}

double RayCaster::firstHit(Vec3 origin, Vec3 direction, double farthest) const {
    double first = farthest;
    visitHits(origin, direction, [&](double distance) {
        if (distance >= 0.0)
            first = std::min(first, distance);
        return first;
    });
    return first;
}

std::vector<double> RayCaster::allHits(Vec3 origin, Vec3 direction, double farthest) const {
    std::vector<double> hits;
    visitHits(origin, direction, [&](double distance) {
        if (distance >= 0.0)
            hits.push_back(distance);
        return farthest;
    });
    std::ranges::sort(hits);
    return hits;
}

} // namespace oglview
