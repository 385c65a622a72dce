// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Light paths on the CPU, without boxes or cells: every ray asks every triangle.
#pragma once

#include "math/vector3.h"
#include "raytrace/ray_camera.h"
#include "support/scene_fixture.h"

#include <array>
#include <vector>

namespace ogl::test {

/// What changes from one sample of a traced picture to the next.
struct KernelSample {
    float shiftX = 0.0f; ///< of the rays, in parts of the picture
    float shiftY = 0.0f;
    /// Around (0, 0, 1), in which nearby things darken; along it, nothing does.
    std::array<Vec3, 4> openDirections{{{0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}}};
};

struct ReferencePaint {
    Vec3 color{1, 1, 1};
    float opacity = 1.0f;
    float reflection = 0.0f;
};

struct ReferenceHit {
    float t = 0.0f;
    int triangle = -1; ///< none
    float u = 0.0f;
    float v = 0.0f;
};

/// A scene of triangles as a test builds it, for the renderer and for the reference.
class ReferenceScene {
  public:
    /// Adds the material to both sides; returns its number.
    int16_t addPaint(SceneFixture& fixture, const ReferencePaint& paint);
    /// Adds an object of one face, or a face to the object added last.
    void addObject(SceneFixture& fixture, const FaceShape& face);
    void addFace(SceneFixture& fixture, const FaceShape& face);

    ReferenceHit firstHit(Vec3 origin, Vec3 direction, float farthest) const;
    int paintOf(const ReferenceHit& hit) const {
        return triangles_[static_cast<size_t>(hit.triangle)].paint;
    }
    /// What a pixel of a picture's first sample gets: red, green, blue.
    Vec3 pathColor(Vec3 origin, Vec3 direction, int x, int y, const KernelSample& sample) const;

  private:
    struct Triangle {
        std::array<Vec3, 3> corners;
        std::array<Vec3, 3> normals;
        int paint;
    };
    Vec3 normalAt(const ReferenceHit& hit, Vec3 direction) const;
    /// Part of the sample's four directions that is open at a place of the pixel.
    float openness(Vec3 place, Vec3 normal, int x, int y, const KernelSample& sample) const;

    std::vector<ReferencePaint> paints_;
    std::vector<Triangle> triangles_;
};

/// The direction of the ray through a place of a picture, in pixels from the lower left corner.
Vec3 rayThrough(const RayCamera& camera, float x, float y, int width, int height,
                const KernelSample& sample);

/// A ball of triangles with vertex normals.
FaceShape ball(Vec3 center, float radius, int rings, int16_t material);

/// A closed box.
FaceShape block(Vec3 low, Vec3 high, int16_t material);

} // namespace ogl::test
