// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/overlays.h"

#include "fixed/overlays/overlay_state.h"
#include "platform/win32.h"
#include "scene/record_views.h"

#include <algorithm>

namespace ogl {

namespace {

constexpr float kPathWidth = 2.9f;
constexpr Vec3 kWhite{1.0f, 1.0f, 1.0f};

/// Half sizes of a marker and of its white middle, pixels.
struct MarkerSize {
    float outer;
    float inner;
};
constexpr MarkerSize kFirstMarker{6.0f, 5.0f};
constexpr MarkerSize kOtherMarker{4.0f, 3.0f};

constexpr int64_t kPointBytes = sizeof(POINT3D);
constexpr int64_t kFlagsOffset = offsetof(POINT3D, flags);

void drawSquare(PIXEL center, float halfSize) {
    const auto x = static_cast<float>(center.x);
    const auto y = static_cast<float>(center.y);
    glRectf(x - halfSize, y - halfSize, x + halfSize, y + halfSize);
}

/// A path's points lie side by side, whatever element size their list names.
bool isSolid(const ClusterView<uint8_t>& points, int path, int point) {
    const ItemRange range = points.cluster(path);
    const int64_t bytes = static_cast<int64_t>(range.count) * points.items().stride();
    const int64_t at = int64_t{point} * kPointBytes + kFlagsOffset;
    return at < bytes && ((&points.items()[range.first])[at] & kPointSolid) != 0;
}

void drawPolyline(const ClusterView<PIXEL>& pixels, int path) {
    const ItemRange range = pixels.cluster(path);
    glBegin(GL_LINE_STRIP);
    for (int k = range.first; k < range.end(); ++k) {
        const PIXEL p = pixels.items()[k];
        glVertex2i(p.x, p.y);
    }
    glEnd();
}

void drawMarkers(const ClusterView<PIXEL>& markers, const ClusterView<uint8_t>& points, int path,
                 Vec3 color) {
    const ItemRange range = markers.cluster(path);
    for (int k = 0; k < range.count; ++k) {
        const PIXEL center = markers.items()[range.first + k];
        const MarkerSize size = k == 0 ? kFirstMarker : kOtherMarker;
        setColor(color);
        drawSquare(center, size.outer);
        if (isSolid(points, path, k))
            continue;
        setColor(kWhite);
        drawSquare(center, size.inner);
    }
}

} // namespace

void drawPaths(const SCENE& scene, const VIEW& view, Vec3 color) {
    const ClusterView<PIXEL> pixels(view.pathPixels);
    const ClusterView<PIXEL> markers(view.markerPixels);
    const ClusterView<uint8_t> points(scene.pathPoints);
    const int count = std::min(scene.paths.count, std::max(pixels.size(), markers.size()));
    glLineWidth(kPathWidth);
    for (int path = 0; path < count; ++path) {
        setColor(color);
        drawPolyline(pixels, path);
        drawMarkers(markers, points, path, color);
    }
}

} // namespace ogl
