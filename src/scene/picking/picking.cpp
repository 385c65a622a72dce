// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/picking/picking.h"

#include "scene/record_views.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

constexpr float kFarthest = 10000000.0f;

struct Vector {
    double x, y, z;
};

Vector vector(VEC3F v) {
    return {static_cast<double>(v.x), static_cast<double>(v.y), static_cast<double>(v.z)};
}

Vector crossed(Vector a, Vector b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// At unit length; without a length, no numbers.
Vector unit(Vector a) {
    const double size = std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z);
    return {a.x / size, a.y / size, a.z / size};
}

/// One object's faces against the ray. Faces whose triangles lie side by side are searched in one
/// run: most hold two triangles, fewer than the search looks at in one step.
class FaceSearch {
  public:
    FaceSearch(const SceneLists& lists, const Ray& ray, CandidateSearch search)
        : lists_(lists), ray_(ray), search_(search) {}

    /// True when the ray meets any of the faces; `distance` then receives the least distance.
    bool nearest(const ItemRange& faces, float& distance) {
        hit_ = false;
        best_ = kFarthest;
        for (int face = faces.first; face < faces.end();)
            face = searchRun(face, faces.end());
        distance = best_;
        return hit_;
    }

  private:
    FaceTriangles triangles(int face) const {
        return faceTriangles(lists_, face, lists_.faces.items()[face].flags);
    }

    /// Searches from face `first` on; the number of the first face that it left out.
    int searchRun(int first, int end) {
        const FaceTriangles start = triangles(first);
        int count = start.triangleCount;
        int face = first + 1;
        if (start.normals == nullptr && count > 0) {
            for (; face < end; ++face) {
                const FaceTriangles next = triangles(face);
                if (next.normals != nullptr || next.positions != triangleAt(start.positions, count))
                    break;
                count += next.triangleCount;
            }
        }
        if (count > 0)
            searchTriangles(first, start.positions, count);
        return face;
    }

    void searchTriangles(int face, const uint8_t* positions, int count) {
        int faceEnd = triangles(face).triangleCount;
        int k = 0;
        while ((k = search_(ray_, positions, k, count)) < count) {
            float distance = 0.0f;
            if (!hitTriangle(ray_, triangleAt(positions, k), distance)) {
                ++k;
                continue;
            }
            hit_ = true;
            best_ = distance < best_ ? distance : best_;
            while (faceEnd <= k)
                faceEnd += triangles(++face).triangleCount;
            k = faceEnd;
        }
    }

    static const uint8_t* triangleAt(const uint8_t* positions, int k) {
        return positions + static_cast<size_t>(k) * kTriangleBytes;
    }

    const SceneLists& lists_;
    const Ray ray_;
    const CandidateSearch search_;
    bool hit_ = false;
    float best_ = kFarthest;
};

} // namespace

Ray pickRay(const SCENE& scene, const ViewPixel& pixel) {
    const GEOMETRY& geometry = scene.geometry;
    const auto width = static_cast<float>(pixel.viewWidth);
    const auto height = static_cast<float>(pixel.viewHeight);
    const Vector eye = vector(geometry.eye);
    const Vector target = vector(geometry.target);
    const Vector forward = unit({target.x - eye.x, target.y - eye.y, target.z - eye.z});
    const Vector left = unit(crossed(vector(geometry.up), forward));
    const Vector up = unit(crossed(forward, left));

    const double slope =
        std::tan(static_cast<double>(static_cast<float>(geometry.fieldOfView)) / 2.0);
    const double aspect = static_cast<double>(width) / static_cast<double>(height);
    const ZoomWindow window = zoomWindow(scene, pixel.viewWidth, pixel.viewHeight);
    const double shiftX = -2.0 * window.centerX / aspect;
    const double shiftY = -2.0 * window.centerY;
    const float x = 2.0f * static_cast<float>(pixel.x) / width - 1.0f;
    const float y = 2.0f * static_cast<float>(pixel.y) / height - 1.0f;
    const double a = slope * aspect * (shiftX - static_cast<double>(x) / window.zoom);
    const double b = slope * (shiftY + static_cast<double>(y) / window.zoom);
    return {{geometry.eye.x, geometry.eye.y, geometry.eye.z},
            {static_cast<float>(forward.x + left.x * a - up.x * b),
             static_cast<float>(forward.y + left.y * a - up.y * b),
             static_cast<float>(forward.z + left.z * a - up.z * b)}};
}

std::vector<PickedObject> pickObjects(const SCENE& scene, const Ray& ray, CandidateSearch search) {
    std::vector<PickedObject> picked;
    const SceneLists lists(scene);
    FaceSearch faces(lists, ray, search);
    const int count = visitedObjectCount(scene, lists);
    for (int k = 0; k < count; ++k) {
        float distance = 0.0f;
        if (lists.isDrawn(k) && faces.nearest(lists.faces.cluster(k), distance))
            picked.push_back({k, distance});
    }
    std::ranges::stable_sort(picked, {}, &PickedObject::distance);
    return picked;
}

} // namespace ogl
