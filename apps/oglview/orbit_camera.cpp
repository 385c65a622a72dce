// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/orbit_camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace oglview {
namespace {

using ogl::host::Camera;
using ogl::host::Vec3;

constexpr double kTurnPerHeight = std::numbers::pi;    // radians for a drag over the picture
constexpr double kSteepest = 0.495 * std::numbers::pi; // short of straight up or down
constexpr double kZoomStep = 0.85;                     // distance left after one step
constexpr double kShortestDistance = 0.3;              // metres to the target

} // namespace

OrbitCamera::OrbitCamera(const Camera& start, double sceneSize)
    : start_(start), sceneSize_(std::max(sceneSize, 1.0)) {
    // A plan's "up" lies level; from here on up is up.
    start_.up = {0.0, 0.0, 1.0};
    camera_ = start_;
    const Vec3 forward = normalized(camera_.target - camera_.eye);
    if (std::hypot(forward.x, forward.y) < std::cos(kSteepest)) {
        const double distance = length(camera_.target - camera_.eye);
        const Vec3 heading = normalized(Vec3{start.up.x, start.up.y, 0.0});
        const Vec3 along = length(heading) > 0.0 ? heading : Vec3{0.0, 1.0, 0.0};
        camera_.eye =
            camera_.target - (along * std::cos(kSteepest) +
                              Vec3{0.0, 0.0, std::copysign(std::sin(kSteepest), forward.z)}) *
                                 distance;
        start_ = camera_;
    }
}

OrbitCamera::Axes OrbitCamera::axes() const {
    Axes axes;
    axes.forward = normalized(camera_.target - camera_.eye);
    axes.right = normalized(cross(axes.forward, camera_.up));
    axes.upward = cross(axes.right, axes.forward);
    return axes;
}

Vec3 OrbitCamera::turned(Vec3 direction, double heading, double pitch) const {
    const double size = length(direction);
    const double oldHeading = std::atan2(direction.y, direction.x);
    const double oldPitch = std::asin(std::clamp(direction.z / size, -1.0, 1.0));
    const double newPitch = std::clamp(oldPitch + pitch, -kSteepest, kSteepest);
    const double newHeading = oldHeading + heading;
    return Vec3{std::cos(newPitch) * std::cos(newHeading),
                std::cos(newPitch) * std::sin(newHeading), std::sin(newPitch)} *
           size;
}

void OrbitCamera::orbit(double right, double down) {
    const Vec3 toTarget = camera_.target - camera_.eye;
    camera_.eye =
        camera_.target - turned(toTarget, -right * kTurnPerHeight, -down * kTurnPerHeight);
}

void OrbitCamera::pan(double right, double down) {
    const Axes a = axes();
    const double height = 2.0 * length(camera_.target - camera_.eye) *
                          std::tan(camera_.fieldOfViewDegrees * std::numbers::pi / 360.0);
    const Vec3 move = a.right * (-right * height) + a.upward * (down * height);
    camera_.eye = camera_.eye + move;
    camera_.target = camera_.target + move;
}

void OrbitCamera::zoom(double steps) {
    const Axes a = axes();
    const double distance = length(camera_.target - camera_.eye);
    const double wanted = distance * std::pow(kZoomStep, steps);
    const double next = std::clamp(wanted, kShortestDistance, 20.0 * sceneSize_);
    camera_.eye = camera_.target - a.forward * next;
    // At the target already: go on through it, as one walks on.
    if (wanted < kShortestDistance && steps > 0.0) {
        const Vec3 move = a.forward * (0.02 * sceneSize_ * steps);
        camera_.eye = camera_.eye + move;
        camera_.target = camera_.target + move;
    }
}

void OrbitCamera::walk(double forward, double right, double upward) {
    const Axes a = axes();
    const Vec3 level = normalized(Vec3{a.forward.x, a.forward.y, 0.0});
    const Vec3 move = level * forward + a.right * right + Vec3{0.0, 0.0, upward};
    camera_.eye = camera_.eye + move;
    camera_.target = camera_.target + move;
}

double OrbitCamera::walkingSpeed() const {
    return std::max(2.0, 0.12 * sceneSize_);
}

} // namespace oglview
