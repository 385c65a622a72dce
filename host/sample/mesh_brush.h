// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_builder.h"

#include <vector>

namespace ogl::host {

/// A place to build at: own axes, z up unless turned.
struct Frame {
    Vec3 origin;
    Vec3 x{1.0, 0.0, 0.0};
    Vec3 y{0.0, 1.0, 0.0};
    Vec3 z{0.0, 0.0, 1.0};

    Vec3 point(Vec3 p) const { return origin + x * p.x + y * p.y + z * p.z; }
    Vec3 direction(Vec3 d) const { return x * d.x + y * d.y + z * d.z; }

    /// At `origin`, turned about z by `degrees` counter-clockwise.
    static Frame at(Vec3 origin, double degrees = 0.0);
    /// This frame, moved to `p` (own coordinates) and turned about its z.
    Frame within(Vec3 p, double degrees = 0.0) const;
    /// This frame tilted about its x axis, the y axis rising for positive degrees.
    Frame tilted(double degrees) const;
};

/// A material and the size of its texture in metres; no size = no texture.
struct Paint {
    MaterialId material = kNone;
    double textureWidth = 0.0;
    double textureHeight = 0.0;
};

/// Collects the surfaces of one object and hands them to a builder as triangle soup with normals.
/// All shapes are closed unless said otherwise and given in the brush's frame.
class MeshBrush {
  public:
    explicit MeshBrush(const Frame& frame = {}) : frame_(frame) {}

    void setFrame(const Frame& frame) { frame_ = frame; }
    const Frame& frame() const { return frame_; }
    void setPaint(const Paint& paint) { paint_ = paint; }

    void box(Vec3 low, Vec3 high);
    /// A box with all edges rounded by `radius`.
    void roundedBox(Vec3 low, Vec3 high, double radius, int steps = 3);
    /// A planar outline, `given` either way round, pulled along a vector. Sides that meet at less
    /// than `smoothDegrees` are shaded as one.
    void extrude(const std::vector<Vec3>& given, Vec3 along, double smoothDegrees = 0.0);
    /// A profile of (radius, height) turned about the z axis through `center`; its outside is seen
    /// from the right of the profile's direction (a rising profile is seen from outside).
    void lathe(Vec3 center, const std::vector<Vec2>& profile, int segments = 32,
               double smoothDegrees = 35.0);
    void cylinder(Vec3 center, double radius, double height, int segments = 24);
    void sphere(Vec3 center, double radius, int segments = 24);
    /// A round bar along a polyline.
    void tube(const std::vector<Vec3>& path, double radius, int segments = 12);
    /// A body through rings of equally many points, counter-clockwise seen from the last ring,
    /// closed with flat ends; sides that meet at less than `smoothDegrees` are shaded as one. Rings
    /// may turn back inside: a tub is outside, rim and inside.
    void loft(const std::vector<std::vector<Vec3>>& rings, double smoothDegrees = 40.0);
    /// An open smooth sheet of `rows` x `columns` points, seen from the side from which rows and
    /// columns run counter-clockwise.
    void sheet(const std::vector<Vec3>& points, int rows, int columns,
               const std::vector<Vec2>& uv = {});

    /// Adds everything collected to `object` and starts afresh.
    void addTo(SceneBuilder& builder, ObjectId object, const SoupOptions& options = {});

  private:
    struct Corner {
        Vec3 position;
        Vec3 normal;
    };
    void triangle(const Corner& a, const Corner& b, const Corner& c, const Vec2* uv = nullptr);
    void quad(const Corner& a, const Corner& b, const Corner& c, const Corner& d);
    void flatCap(const std::vector<Vec3>& ring, Vec3 outward);
    void flatQuad(Vec3 a, Vec3 b, Vec3 c, Vec3 d);
    Vec2 boxMapped(Vec3 p, Vec3 faceNormal) const;

    Frame frame_;
    Paint paint_;
    std::vector<Vec3> positions_;
    std::vector<Vec3> normals_;
    std::vector<Vec2> texCoords_;
    std::vector<MaterialId> materials_;
};

/// A rectangle with round corners in the x-y plane, counter-clockwise.
std::vector<Vec3> roundedRectangle(double x0, double y0, double x1, double y1, double radius,
                                   double z, int steps = 5);

/// The same upright in the x-z plane at `y`.
std::vector<Vec3> uprightRectangle(double x0, double z0, double x1, double z1, double radius,
                                   double y, int steps = 5);

/// An ellipse in the x-y plane, counter-clockwise.
std::vector<Vec3> ellipse(Vec3 center, double radiusX, double radiusY, int segments = 32);

/// Box-mapped texture of a planar face with this outward normal.
TextureMap boxMap(const Paint& paint, Vec3 normal);

} // namespace ogl::host
