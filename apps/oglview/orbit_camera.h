// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_parts.h"

namespace oglview {

/// A camera that a person moves: around a point, sideways, nearer and farther, and on foot. It
/// never turns over: the view direction stays a little short of straight up and down.
class OrbitCamera {
  public:
    /// `sceneSize`: diagonal of the scene in metres; it sets how fast things go.
    OrbitCamera(const ogl::host::Camera& start, double sceneSize);

    /// Turns around the target; fractions of the picture's height, to the right and downwards.
    void orbit(double right, double down);
    /// Moves with the picture: what is at the target's distance follows the pointer.
    void pan(double right, double down);
    /// Goes nearer (positive steps) or farther, towards the target.
    void zoom(double steps);
    /// Walks: metres forward and to the right on the level, and upwards.
    void walk(double forward, double right, double upward);
    void reset() { camera_ = start_; }

    /// Metres per second on foot: walking pace inside a house, faster in larger scenes.
    double walkingSpeed() const;
    const ogl::host::Camera& camera() const { return camera_; }

  private:
    struct Axes {
        ogl::host::Vec3 forward;
        ogl::host::Vec3 right;
        ogl::host::Vec3 upward;
    };
    Axes axes() const;
    ogl::host::Vec3 turned(ogl::host::Vec3 direction, double heading, double pitch) const;

    ogl::host::Camera start_;
    ogl::host::Camera camera_;
    double sceneSize_;
};

} // namespace oglview
