// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// How the place is found: a grid of plumb lines gives all heights at which one can stand under a
// ceiling; from each such place rays at eye height go out all around. Where nearly all of them meet
// something the place is inside, and their lengths give the space's area, the room around the eye
// and what is seen in each direction.
#include "oglview/interior_view.h"

#include "oglview/ray_caster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

namespace oglview {
namespace {

using ogl::host::Box;
using ogl::host::Camera;
using ogl::host::Vec3;

constexpr double kEyeHeight = 1.6;
constexpr double kLowestCeiling = 1.95;
constexpr double kHighestCeiling = 12.0;
constexpr double kFreeAroundEye = 0.5; // more than the near plane
constexpr double kLongestSight = 40.0;
constexpr int kRays = 48;
constexpr int kRaysThatMayEscape = 2;
constexpr double kPlacesAcross = 48.0;
constexpr size_t kPlacesLookedAtClosely = 150;
constexpr double kTooNear = 2.4; // metres: what is nearer fills the picture
constexpr double kHorizontalFieldOfViewDegrees = 74.0;

/// A place to stand, and how far one sees from there.
struct Place {
    Vec3 eye;
    std::array<double, kRays> sight{};
    double area = 0.0; ///< of what is seen around, square metres
    double freeAround = 0.0;
    int direction = 0; ///< number of the best direction
    double seen = 0.0; ///< how good it is
};

Vec3 rayDirection(int number) {
    const double angle = 2.0 * std::numbers::pi * number / kRays;
    return {std::cos(angle), std::sin(angle), 0.0};
}

/// Heights above which there is room to stand under a ceiling, along the plumb line through x, y.
std::vector<double> floorsAt(const RayCaster& rays, const Box& box, double x, double y) {
    const double top = box.high.z + 1.0;
    std::vector<double> heights;
    for (const double hit : rays.allHits({x, y, top}, {0.0, 0.0, -1.0}, top - box.low.z + 1.0))
        heights.push_back(top - hit);
    std::vector<double> floors;
    for (size_t k = 1; k < heights.size(); ++k) {
        const double room = heights[k - 1] - heights[k];
        if (room >= kLowestCeiling && room <= kHighestCeiling)
            floors.push_back(heights[k]);
    }
    return floors;
}

/// What is seen in a direction with the width of the picture, favouring depth in its middle.
double seenIn(const Place& place, int direction) {
    const int half = static_cast<int>(kHorizontalFieldOfViewDegrees / 360.0 * kRays / 2.0);
    double sum = 0.0;
    double middle = kLongestSight;
    for (int k = -half; k <= half; ++k) {
        const double sight = place.sight[static_cast<size_t>((direction + k + kRays) % kRays)];
        sum += std::min(sight, 12.0);
        if (std::abs(k) <= 1)
            middle = std::min(middle, sight);
    }
    return sum / (2 * half + 1) + 0.8 * std::min(middle, 12.0);
}

std::optional<Place> lookAround(const RayCaster& rays, Vec3 eye) {
    Place place;
    place.eye = eye;
    place.freeAround = kLongestSight;
    int escaped = 0;
    for (int k = 0; k < kRays; ++k) {
        const double sight = rays.firstHit(eye, rayDirection(k), kLongestSight);
        place.sight[static_cast<size_t>(k)] = sight;
        place.freeAround = std::min(place.freeAround, sight);
        place.area += sight * sight * std::numbers::pi / kRays;
        escaped += sight >= kLongestSight ? 1 : 0;
    }
    if (escaped > kRaysThatMayEscape || place.freeAround < kFreeAroundEye)
        return std::nullopt;
    for (int k = 0; k < kRays; ++k) {
        const double seen = seenIn(place, k);
        if (seen > place.seen) {
            place.seen = seen;
            place.direction = k;
        }
    }
    return place;
}

std::vector<Place> findPlaces(const RayCaster& rays, const Box& box) {
    const Vec3 size = box.high - box.low;
    const double step = std::max(0.25, std::max(size.x, size.y) / kPlacesAcross);
    std::vector<Place> places;
    // Off the round numbers, on which walls and their edges like to lie.
    const int columns = static_cast<int>(size.x / step) + 1;
    const int rows = static_cast<int>(size.y / step) + 1;
    for (int column = 0; column < columns; ++column)
        for (int row = 0; row < rows; ++row) {
            const double x = box.low.x + (column + 0.437) * step;
            const double y = box.low.y + (row + 0.571) * step;
            for (const double floor : floorsAt(rays, box, x, y))
                if (auto place = lookAround(rays, {x, y, floor + kEyeHeight}))
                    places.push_back(*place);
        }
    return places;
}

double verticalFieldOfView(double aspect) {
    constexpr double kDegree = std::numbers::pi / 180.0;
    const double half = std::tan(kHorizontalFieldOfViewDegrees * kDegree / 2.0);
    return std::min(2.0 * std::atan(half / aspect) / kDegree, 85.0);
}

Camera cameraAt(const Place& place, double aspect) {
    Camera camera;
    camera.eye = place.eye;
    camera.target = place.eye + rayDirection(place.direction);
    camera.fieldOfViewDegrees = verticalFieldOfView(aspect);
    return camera;
}

/// How good the whole picture is, from a grid of rays over it: deep, and nothing close in front.
double pictureQuality(const RayCaster& rays, const Camera& camera, double aspect) {
    constexpr int kColumns = 13;
    constexpr int kRows = 7;
    const double slope = std::tan(camera.fieldOfViewDegrees * std::numbers::pi / 360.0);
    const Vec3 forward = normalized(camera.target - camera.eye);
    const Vec3 right = cross(forward, camera.up);
    double sum = 0.0;
    for (int row = 0; row < kRows; ++row)
        for (int column = 0; column < kColumns; ++column) {
            const double x = (2.0 * column / (kColumns - 1) - 1.0) * slope * aspect;
            const double y = (2.0 * row / (kRows - 1) - 1.0) * slope;
            const Vec3 ray = normalized(forward + right * x + camera.up * y);
            const double sight = rays.firstHit(camera.eye, ray, kLongestSight);
            sum += std::min(sight, 8.0) - 6.0 * std::max(0.0, kTooNear - sight);
        }
    return sum / (kColumns * kRows);
}

} // namespace

std::optional<Camera> interiorView(const TriangleCorners& corners, double aspect) {
    Box box;
    for (const Vec3& corner : corners)
        box.add(corner);
    if (box.empty())
        return std::nullopt;
    const RayCaster rays(corners);
    std::vector<Place> places = findPlaces(rays, box);
    if (places.empty())
        return std::nullopt;
    const double largest = std::ranges::max(places, {}, &Place::area).area;
    std::erase_if(places, [&](const Place& place) { return place.area < 0.7 * largest; });
    std::ranges::sort(places, std::ranges::greater(), &Place::seen);
    places.resize(std::min(places.size(), kPlacesLookedAtClosely));
    std::optional<Camera> best;
    double bestQuality = 0.0;
    for (const Place& place : places) {
        const Camera camera = cameraAt(place, aspect);
        const double quality = place.seen + pictureQuality(rays, camera, aspect);
        if (!best || quality > bestQuality) {
            best = camera;
            bestQuality = quality;
        }
    }
    return best;
}

} // namespace oglview
