// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample/mesh_brush.h"

#include "host/polygon_tessellator.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace ogl::host {

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;

/// Axes of the texture on a face with this normal: floors are seen from above, walls upright.
struct MapAxes {
    Vec3 u;
    Vec3 v;
};
MapAxes mapAxes(Vec3 n) {
    if (std::fabs(n.z) >= std::fabs(n.x) && std::fabs(n.z) >= std::fabs(n.y))
        return {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}};
    if (std::fabs(n.x) >= std::fabs(n.y))
        return {{0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};
    return {{1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}};
}

Vec3 circlePoint(double angle, double radius, double z) {
    return {std::cos(angle) * radius, std::sin(angle) * radius, z};
}

/// Coordinates along one axis of a rounded box from -h to h: the roundings in steps of equal
/// angle as a cube's side shows them, the flat part between.
std::vector<double> roundedAxis(double h, double radius, int steps) {
    std::vector<double> at;
    for (int i = steps; i >= 0; --i)
        at.push_back(-h + radius - radius * std::tan(std::numbers::pi * 0.25 * i / steps));
    for (int i = 0; i <= steps; ++i)
        at.push_back(h - radius + radius * std::tan(std::numbers::pi * 0.25 * i / steps));
    return at;
}

/// Normals of a lathe's profile segments, and which joints between them are smooth.
Vec2 segmentNormal(Vec2 a, Vec2 b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double size = std::hypot(dx, dy);
    return size > 0.0 ? Vec2{dy / size, -dx / size} : Vec2{1.0, 0.0};
}

Vec2 jointNormal(Vec2 own, Vec2 other, double smoothCosine) {
    if (own.x * other.x + own.y * other.y < smoothCosine)
        return own;
    const Vec2 sum{own.x + other.x, own.y + other.y};
    const double size = std::hypot(sum.x, sum.y);
    return {sum.x / size, sum.y / size};
}

} // namespace

Frame Frame::at(Vec3 origin, double degrees) {
    const double c = std::cos(degrees * kRadians);
    const double s = std::sin(degrees * kRadians);
    return {origin, {c, s, 0.0}, {-s, c, 0.0}, {0.0, 0.0, 1.0}};
}

Frame Frame::within(Vec3 p, double degrees) const {
    const double c = std::cos(degrees * kRadians);
    const double s = std::sin(degrees * kRadians);
    return {point(p), x * c + y * s, y * c - x * s, z};
}

Frame Frame::tilted(double degrees) const {
    const double c = std::cos(degrees * kRadians);
    const double s = std::sin(degrees * kRadians);
    return {origin, x, y * c + z * s, z * c - y * s};
}

void MeshBrush::triangle(const Corner& a, const Corner& b, const Corner& c, const Vec2* uv) {
    const Corner corners[3] = {a, b, c};
    const Vec3 face = cross(b.position - a.position, c.position - a.position);
    for (int i = 0; i < 3; ++i) {
        positions_.push_back(frame_.point(corners[i].position));
        normals_.push_back(frame_.direction(corners[i].normal));
        texCoords_.push_back(uv != nullptr ? uv[i] : boxMapped(corners[i].position, face));
    }
    materials_.push_back(paint_.material);
}

Vec2 MeshBrush::boxMapped(Vec3 p, Vec3 faceNormal) const {
    if (paint_.textureWidth <= 0.0 || paint_.textureHeight <= 0.0)
        return {};
    const MapAxes axes = mapAxes(faceNormal);
    return {dot(p, axes.u) / paint_.textureWidth, dot(p, axes.v) / paint_.textureHeight};
}

void MeshBrush::quad(const Corner& a, const Corner& b, const Corner& c, const Corner& d) {
    triangle(a, b, c);
    triangle(a, c, d);
}

void MeshBrush::flatQuad(Vec3 a, Vec3 b, Vec3 c, Vec3 d) {
    const Vec3 n = normalized(cross(b - a, d - a));
    quad({a, n}, {b, n}, {c, n}, {d, n});
}

void MeshBrush::box(Vec3 low, Vec3 high) {
    const auto p = [&](int i) {
        return Vec3{(i & 1) != 0 ? high.x : low.x, (i & 2) != 0 ? high.y : low.y,
                    (i & 4) != 0 ? high.z : low.z};
    };
    constexpr int kSides[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                  {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    for (const auto& side : kSides)
        flatQuad(p(side[0]), p(side[1]), p(side[2]), p(side[3]));
}

void MeshBrush::roundedBox(Vec3 low, Vec3 high, double radius, int steps) {
    const Vec3 center = (low + high) * 0.5;
    const Vec3 half = (high - low) * 0.5;
    const double r = std::min({radius, half.x, half.y, half.z});
    const Vec3 inner{half.x - r, half.y - r, half.z - r};
    const auto corner = [&](Vec3 q) {
        const Vec3 core{std::clamp(q.x, -inner.x, inner.x), std::clamp(q.y, -inner.y, inner.y),
                        std::clamp(q.z, -inner.z, inner.z)};
        const Vec3 n = normalized(q - core);
        return Corner{center + core + n * r, n};
    };
    // Per side: the axes that span it, right-handed with the side's outward axis.
    const std::array<double, 3> h{half.x, half.y, half.z};
    for (size_t axis = 0; axis < 3; ++axis) {
        const size_t ua = (axis + 1) % 3;
        const size_t va = (axis + 2) % 3;
        const auto us = roundedAxis(h[ua], r, steps);
        const auto vs = roundedAxis(h[va], r, steps);
        for (const double sign : {-1.0, 1.0}) {
            const auto at = [&](size_t i, size_t j) {
                std::array<double, 3> q{};
                q[axis] = sign * h[axis];
                q[ua] = us[i];
                q[va] = vs[j];
                return corner({q[0], q[1], q[2]});
            };
            for (size_t i = 0; i + 1 < us.size(); ++i)
                for (size_t j = 0; j + 1 < vs.size(); ++j) {
                    if (sign > 0.0)
                        quad(at(i, j), at(i + 1, j), at(i + 1, j + 1), at(i, j + 1));
                    else
                        quad(at(i, j), at(i, j + 1), at(i + 1, j + 1), at(i + 1, j));
                }
        }
    }
}

void MeshBrush::extrude(const std::vector<Vec3>& given, Vec3 along, double smoothDegrees) {
    std::vector<Vec3> outline = given;
    if (dot(areaVector(outline), along) < 0.0)
        std::ranges::reverse(outline);
    const Vec3 front = normalized(areaVector(outline));
    const std::vector<Vec3> cap = tessellate({outline}, front);
    for (size_t i = 0; i + 2 < cap.size(); i += 3) {
        const Vec3& a = cap[i];
        const Vec3& b = cap[i + 1];
        const Vec3& c = cap[i + 2];
        triangle({a + along, front}, {b + along, front}, {c + along, front});
        triangle({a, -front}, {c, -front}, {b, -front});
    }
    const size_t count = outline.size();
    const auto sideNormal = [&](size_t i) {
        return normalized(cross(outline[(i + 1) % count] - outline[i % count], along));
    };
    const double smooth = std::cos(smoothDegrees * kRadians);
    const auto joined = [&](Vec3 own, Vec3 other) {
        return smoothDegrees > 0.0 && dot(own, other) > smooth ? normalized(own + other) : own;
    };
    for (size_t i = 0; i < count; ++i) {
        const Vec3 own = sideNormal(i);
        const Vec3 n0 = joined(own, sideNormal(i + count - 1));
        const Vec3 n1 = joined(own, sideNormal(i + 1));
        const Vec3 a = outline[i];
        const Vec3 b = outline[(i + 1) % count];
        quad({a, n0}, {b, n1}, {b + along, n1}, {a + along, n0});
    }
}

void MeshBrush::lathe(Vec3 center, const std::vector<Vec2>& profile, int segments,
                      double smoothDegrees) {
    const double smooth = std::cos(smoothDegrees * kRadians);
    for (size_t k = 0; k + 1 < profile.size(); ++k) {
        const Vec2 own = segmentNormal(profile[k], profile[k + 1]);
        const Vec2 before = k > 0 ? segmentNormal(profile[k - 1], profile[k]) : own;
        const Vec2 after =
            k + 2 < profile.size() ? segmentNormal(profile[k + 1], profile[k + 2]) : own;
        const Vec2 n0 = jointNormal(own, before, smooth);
        const Vec2 n1 = jointNormal(own, after, smooth);
        const auto corner = [&](Vec2 p, Vec2 n, int i) {
            const double angle = 2.0 * std::numbers::pi * (i % segments) / segments;
            return Corner{center + circlePoint(angle, p.x, p.y), circlePoint(angle, n.x, n.y)};
        };
        for (int i = 0; i < segments; ++i) {
            const Corner a = corner(profile[k], n0, i);
            const Corner b = corner(profile[k], n0, i + 1);
            const Corner c = corner(profile[k + 1], n1, i + 1);
            const Corner d = corner(profile[k + 1], n1, i);
            if (profile[k].x > 0.0)
                triangle(a, b, profile[k + 1].x > 0.0 ? c : d);
            if (profile[k + 1].x > 0.0)
                triangle(a, c, d);
        }
    }
}

void MeshBrush::cylinder(Vec3 center, double radius, double height, int segments) {
    lathe(center, {{0.0, 0.0}, {radius, 0.0}, {radius, height}, {0.0, height}}, segments);
}

void MeshBrush::sphere(Vec3 center, double radius, int segments) {
    std::vector<Vec2> profile;
    const int rings = segments / 2;
    for (int i = 0; i <= rings; ++i) {
        const double angle = std::numbers::pi * i / rings - std::numbers::pi * 0.5;
        const bool pole = i == 0 || i == rings;
        profile.push_back({pole ? 0.0 : std::cos(angle) * radius, std::sin(angle) * radius});
    }
    lathe(center, profile, segments);
}

void MeshBrush::tube(const std::vector<Vec3>& path, double radius, int segments) {
    const size_t count = path.size();
    const auto tangent = [&](size_t i) {
        const Vec3 in = i > 0 ? normalized(path[i] - path[i - 1]) : Vec3{};
        const Vec3 out = i + 1 < count ? normalized(path[i + 1] - path[i]) : Vec3{};
        return normalized(in + out);
    };
    Vec3 t = tangent(0);
    Vec3 side = normalized(cross(t, std::fabs(t.z) < 0.9 ? Vec3{0, 0, 1} : Vec3{1, 0, 0}));
    std::vector<std::vector<Corner>> rings(count);
    for (size_t i = 0; i < count; ++i) {
        t = tangent(i);
        side = normalized(side - t * dot(side, t));
        const Vec3 other = cross(t, side);
        // At a bend the ring lies in the bisecting plane and is wider across it.
        const Vec3 in = i > 0 ? normalized(path[i] - path[i - 1]) : t;
        const Vec3 bend = normalized(in - t * dot(in, t));
        const double stretch = 1.0 / std::max(dot(in, t), 0.3) - 1.0;
        for (int k = 0; k < segments; ++k) {
            const Vec3 c = circlePoint(2.0 * std::numbers::pi * k / segments, 1.0, 0.0);
            const Vec3 n = side * c.x + other * c.y;
            rings[i].push_back({path[i] + (n + bend * (dot(n, bend) * stretch)) * radius, n});
        }
    }
    for (size_t i = 0; i + 1 < count; ++i)
        for (size_t k = 0; k < static_cast<size_t>(segments); ++k) {
            const size_t next = (k + 1) % static_cast<size_t>(segments);
            quad(rings[i][k], rings[i][next], rings[i + 1][next], rings[i + 1][k]);
        }
    const auto cap = [&](const std::vector<Corner>& ring, Vec3 n, bool forward) {
        for (size_t k = 1; k + 1 < ring.size(); ++k) {
            const Corner a{ring[0].position, n};
            const Corner b{ring[k].position, n};
            const Corner c{ring[k + 1].position, n};
            forward ? triangle(a, b, c) : triangle(a, c, b);
        }
    };
    cap(rings.front(), -tangent(0), false);
    cap(rings.back(), tangent(count - 1), true);
}

void MeshBrush::flatCap(const std::vector<Vec3>& ring, Vec3 outward) {
    const Vec3 area = areaVector(ring);
    if (length(area) == 0.0)
        return;
    const Vec3 n = normalized(dot(area, outward) < 0.0 ? -area : area);
    std::vector<Vec3> loop = ring;
    if (dot(area, n) < 0.0)
        std::ranges::reverse(loop);
    const std::vector<Vec3> cap = tessellate({loop}, n);
    for (size_t i = 0; i + 2 < cap.size(); i += 3)
        triangle({cap[i], n}, {cap[i + 1], n}, {cap[i + 2], n});
}

void MeshBrush::loft(const std::vector<std::vector<Vec3>>& rings, double smoothDegrees) {
    const size_t count = rings[0].size();
    const size_t bands = rings.size() - 1;
    const double smooth = std::cos(smoothDegrees * kRadians);
    std::vector<Vec3> normals(bands * count);
    for (size_t r = 0; r < bands; ++r)
        for (size_t i = 0; i < count; ++i) {
            const size_t next = (i + 1) % count;
            normals[r * count + i] = normalized(
                cross(rings[r][next] - rings[r + 1][i], rings[r + 1][next] - rings[r][i]));
        }
    // The normal of band r, side i at point p of ring q: the mean of the sides around the point
    // that bend little from it.
    const auto corner = [&](size_t r, size_t i, size_t q, size_t p) {
        const Vec3 own = normals[r * count + i];
        Vec3 sum;
        for (size_t band = q == 0 ? 0 : q - 1; band <= q && band < bands; ++band)
            for (const size_t side : {(p + count - 1) % count, p})
                if (const Vec3 n = normals[band * count + side]; dot(n, own) > smooth)
                    sum = sum + n;
        return Corner{rings[q][p], normalized(sum)};
    };
    for (size_t r = 0; r < bands; ++r)
        for (size_t i = 0; i < count; ++i) {
            const size_t next = (i + 1) % count;
            quad(corner(r, i, r, i), corner(r, i, r, next), corner(r, i, r + 1, next),
                 corner(r, i, r + 1, i));
        }
    // Bodies that end inside themselves are seen into: an end's outside is the side to which its
    // ring runs counter-clockwise (last) or clockwise (first).
    flatCap(rings.front(), -areaVector(rings.front()));
    flatCap(rings.back(), areaVector(rings.back()));
}

void MeshBrush::sheet(const std::vector<Vec3>& points, int rows, int columns,
                      const std::vector<Vec2>& uv) {
    const auto number = [&](int r, int c) {
        return static_cast<size_t>(r) * static_cast<size_t>(columns) + static_cast<size_t>(c);
    };
    const auto at = [&](int r, int c) {
        return points[number(std::clamp(r, 0, rows - 1), std::clamp(c, 0, columns - 1))];
    };
    const auto corner = [&](int r, int c) {
        const Vec3 across = at(r, c + 1) - at(r, c - 1);
        const Vec3 along = at(r + 1, c) - at(r - 1, c);
        return Corner{at(r, c), normalized(cross(across, along))};
    };
    const auto coord = [&](int r, int c) { return uv.empty() ? Vec2{} : uv[number(r, c)]; };
    for (int r = 0; r + 1 < rows; ++r)
        for (int c = 0; c + 1 < columns; ++c) {
            const Vec2 first[3] = {coord(r, c), coord(r, c + 1), coord(r + 1, c + 1)};
            const Vec2 second[3] = {coord(r, c), coord(r + 1, c + 1), coord(r + 1, c)};
            const Vec2* none = nullptr;
            triangle(corner(r, c), corner(r, c + 1), corner(r + 1, c + 1),
                     uv.empty() ? none : first);
            triangle(corner(r, c), corner(r + 1, c + 1), corner(r + 1, c),
                     uv.empty() ? none : second);
        }
}

void MeshBrush::addTo(SceneBuilder& builder, ObjectId object, const SoupOptions& options) {
    builder.addTriangleSoup(object, {positions_, normals_, texCoords_, {}, materials_}, options);
    positions_.clear();
    normals_.clear();
    texCoords_.clear();
    materials_.clear();
}

std::vector<Vec3> roundedRectangle(double x0, double y0, double x1, double y1, double radius,
                                   double z, int steps) {
    std::vector<Vec3> outline;
    const double r = std::min({radius, (x1 - x0) * 0.5, (y1 - y0) * 0.5});
    const Vec3 centers[4] = {
        {x1 - r, y1 - r, z}, {x0 + r, y1 - r, z}, {x0 + r, y0 + r, z}, {x1 - r, y0 + r, z}};
    for (int corner = 0; corner < 4; ++corner)
        for (int i = 0; i <= steps; ++i)
            outline.push_back(
                centers[corner] +
                circlePoint(std::numbers::pi * 0.5 * (corner + i / double(steps)), r, 0.0));
    return outline;
}

std::vector<Vec3> uprightRectangle(double x0, double z0, double x1, double z1, double radius,
                                   double y, int steps) {
    std::vector<Vec3> outline = roundedRectangle(x0, z0, x1, z1, radius, 0.0, steps);
    for (Vec3& p : outline)
        p = {p.x, y, p.y};
    return outline;
}

std::vector<Vec3> ellipse(Vec3 center, double radiusX, double radiusY, int segments) {
    std::vector<Vec3> outline;
    for (int i = 0; i < segments; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / segments;
        outline.push_back(center + Vec3{std::cos(angle) * radiusX, std::sin(angle) * radiusY, 0.0});
    }
    return outline;
}

TextureMap boxMap(const Paint& paint, Vec3 normal) {
    const MapAxes axes = mapAxes(normal);
    const double width = paint.textureWidth > 0.0 ? paint.textureWidth : 1.0;
    const double height = paint.textureHeight > 0.0 ? paint.textureHeight : 1.0;
    return {{}, axes.u * (1.0 / width), axes.v * (1.0 / height)};
}

} // namespace ogl::host
