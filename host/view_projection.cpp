// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/view_projection.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ogl::host {

namespace {

constexpr double kNearest = 0.05; // metres before the eye
constexpr double kFarthest = 1e6; // pixels
constexpr PIXEL kOffPicture{-10000, -10000};

PIXEL wholePixel(Vec2 at) {
    const auto whole = [](double v) {
        return static_cast<int32_t>(std::lround(std::clamp(v, -kFarthest, kFarthest)));
    };
    return {whole(at.x), whole(at.y)};
}

} // namespace

ViewProjection::ViewProjection(const Camera& camera, const std::optional<ViewWindow>& window,
                               int width, int height)
    : eye_(camera.eye), forward_(normalized(camera.target - camera.eye)),
      right_(normalized(cross(forward_, camera.up))), up_(cross(right_, forward_)), width_(width),
      height_(height) {
    const double aspect = width_ / height_;
    scaleY_ = 1.0 / std::tan(camera.fieldOfViewDegrees * std::numbers::pi / 360.0);
    scaleX_ = scaleY_ / aspect;
    if (!window || window->width <= 0.0 || window->height <= 0.0)
        return;
    // The window fills the picture in the direction in which it is the longer of the two.
    const bool byHeight = height_ / window->height <= width_ / window->width;
    const double zoom = byHeight ? 1.0 / window->height : aspect / window->width;
    scaleX_ *= zoom;
    scaleY_ *= zoom;
    shiftX_ = -2.0 * window->centerX / aspect * zoom;
    shiftY_ = -2.0 * window->centerY * zoom;
}

double ViewProjection::depth(Vec3 point) const {
    return dot(point - eye_, forward_);
}

Vec2 ViewProjection::pixel(Vec3 point) const {
    const Vec3 ray = (point - eye_) * (1.0 / depth(point));
    return {(1.0 + dot(ray, right_) * scaleX_ + shiftX_) * 0.5 * width_,
            (1.0 - dot(ray, up_) * scaleY_ - shiftY_) * 0.5 * height_};
}

PathPlace placeOfPath(const std::vector<Vec3>& points, const ViewProjection& view) {
    PathPlace place;
    std::vector<PIXEL> stretch;
    const auto add = [&](Vec3 point) { stretch.push_back(wholePixel(view.pixel(point))); };
    const auto end = [&] {
        if (stretch.size() > place.line.size())
            place.line = stretch;
        stretch.clear();
    };
    for (size_t k = 0; k < points.size(); ++k) {
        const double depth = view.depth(points[k]);
        const bool seen = depth >= kNearest;
        place.markers.push_back(seen ? wholePixel(view.pixel(points[k])) : kOffPicture);
        const double before = k > 0 ? view.depth(points[k - 1]) : depth;
        if ((before >= kNearest) != seen) {
            const double share = (kNearest - before) / (depth - before);
            add(points[k - 1] + (points[k] - points[k - 1]) * share);
        }
        if (seen)
            add(points[k]);
        else
            end();
    }
    end();
    return place;
}

} // namespace ogl::host
