// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/view_fit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace oglview {
namespace {

using ogl::host::Camera;
using ogl::host::Vec3;

constexpr double kDegree = std::numbers::pi / 180.0;
// Diagonals that are drawn as they are: from a lamp to a campus.
constexpr double kSmallestSize = 0.5;
constexpr double kLargestSize = 400.0;

/// One direction across the picture. A point p is inside when |across - eyeAcross| <=
/// slope x (depth - eyeDepth), so each side of the picture bounds the eye by a straight line.
class SideBounds {
  public:
    explicit SideBounds(double slope) : slope_(slope) {}

    void add(double across, double depth) {
        high_ = std::max(high_, across - slope_ * depth);
        low_ = std::max(low_, -across - slope_ * depth);
    }
    /// The greatest depth of an eye that has all points between both sides.
    double eyeDepth() const { return -(high_ + low_) / (2.0 * slope_); }
    /// Where the eye is across when the points on both sides leave the same margin. This does not
    /// depend on its depth.
    double eyeAcross() const { return (high_ - low_) / 2.0; }

  private:
    double slope_;
    double high_ = -std::numeric_limits<double>::infinity();
    double low_ = -std::numeric_limits<double>::infinity();
};

/// Where the eye is across when the points leave the same margin on both sides, for an eye at
/// `eyeDepth`, farther off than the points across would need. Starts at `eyeAcross` and goes half
/// the difference each time, which settles within a pixel after a few rounds.
double centered(std::span<const Vec3> points, Vec3 across, Vec3 forward, double eyeDepth,
                double eyeAcross) {
    constexpr int kRounds = 12;
    for (int round = 0; round < kRounds; ++round) {
        double low = std::numeric_limits<double>::infinity();
        double high = -low;
        double nearest = low;
        for (const Vec3& point : points) {
            const double depth = dot(point, forward) - eyeDepth;
            const double seen = (dot(point, across) - eyeAcross) / depth;
            low = std::min(low, seen);
            high = std::max(high, seen);
            nearest = std::min(nearest, depth);
        }
        eyeAcross += 0.5 * (low + high) * nearest;
    }
    return eyeAcross;
}

} // namespace

Camera fitView(std::span<const Vec3> points, const ViewDirection& view, double aspect,
               double margin) {
    Camera camera;
    camera.fieldOfViewDegrees = view.fieldOfViewDegrees;
    camera.up = view.up;
    const Vec3 forward = normalized(view.forward);
    const Vec3 right = normalized(cross(forward, view.up));
    const Vec3 upward = cross(right, forward);
    const double slope = std::tan(view.fieldOfViewDegrees * kDegree / 2.0) * (1.0 - margin);
    SideBounds across(slope * aspect);
    SideBounds along(slope);
    double nearest = std::numeric_limits<double>::infinity();
    double farthest = -nearest;
    for (const Vec3& point : points) {
        const double depth = dot(point, forward);
        across.add(dot(point, right), depth);
        along.add(dot(point, upward), depth);
        nearest = std::min(nearest, depth);
        farthest = std::max(farthest, depth);
    }
    if (points.empty()) {
        camera.eye = {};
        camera.target = forward;
        return camera;
    }
    const double eyeDepth =
        std::min({across.eyeDepth(), along.eyeDepth(), nearest - 1.05 * kNearPlane});
    camera.eye = right * centered(points, right, forward, eyeDepth, across.eyeAcross()) +
                 upward * centered(points, upward, forward, eyeDepth, along.eyeAcross()) +
                 forward * eyeDepth;
    camera.target = camera.eye + forward * (0.5 * (nearest + farthest) - eyeDepth);
    return camera;
}

double nearlyParallelFieldOfView(double size, double aspect) {
    constexpr double kFarthestEye = 0.8 * kFarPlane;
    constexpr double kNarrow = 4.0; // narrower ones stand so far off that depth gets coarse
    const double across = size / std::min(1.0, aspect);
    return std::max(kNarrow, 2.0 * std::atan(0.5 * across / kFarthestEye) / kDegree);
}

double drawingScale(double size) {
    if (!(size > 0.0) || (size >= kSmallestSize && size <= kLargestSize))
        return 1.0;
    const double wanted = size > kLargestSize ? kLargestSize : kSmallestSize;
    const double power = std::log10(wanted / size);
    return std::pow(10.0, size > kLargestSize ? std::floor(power) : std::ceil(power));
}

} // namespace oglview
