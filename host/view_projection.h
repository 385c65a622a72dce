// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_parts.h"

namespace ogl::host {

/// Where the points of a scene are seen in a picture of `width` x `height` pixels, both at least 1.
class ViewProjection {
  public:
    ViewProjection(const Camera& camera, const std::optional<ViewWindow>& window, int width,
                   int height);

    /// How far the point lies before the eye, metres along the view direction.
    double depth(Vec3 point) const;
    /// Pixels from the left and from the top. The point must lie before the eye.
    Vec2 pixel(Vec3 point) const;

  private:
    Vec3 eye_;
    Vec3 forward_;
    Vec3 right_;
    Vec3 up_;
    double scaleX_; ///< from the slope of a ray to the picture's half size
    double scaleY_;
    double shiftX_ = 0.0; ///< in half sizes
    double shiftY_ = 0.0;
    double width_;
    double height_;
};

/// The part of a path that a picture shows, in pixels.
struct PathPlace {
    std::vector<PIXEL> line;    ///< the longest stretch of it before the eye
    std::vector<PIXEL> markers; ///< one per point; those behind the eye lie off the picture
};
PathPlace placeOfPath(const std::vector<Vec3>& points, const ViewProjection& view);

} // namespace ogl::host
