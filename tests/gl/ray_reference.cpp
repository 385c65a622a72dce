// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/ray_reference.h"

#include <cmath>
#include <cstring>

namespace ogl::test {

namespace {

constexpr float kFar = 1000000.0f;
constexpr float kOffSurface = 0.001f;
constexpr float kOpenFrom = 1.0f;
constexpr int kBounces = 4;
constexpr double kPi = 3.14159265358979;

uint32_t bitsOf(float value) {
    uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

float floatOf(uint32_t bits) {
    float value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// The path's number in the first sample.
float numberOf(int x, int y) {
    uint32_t n = bitsOf(static_cast<float>(y * 1024 + x) * 2531011.0f);
    n = n * (n * n * 15731u + 789221u);
    return 2.0f - floatOf((n >> 9u) | 0x3f800000u);
}

uint8_t byteOf(float channel) {
    return static_cast<uint8_t>(std::lround(channel * 255.0f));
}

} // namespace

int16_t ReferenceScene::addPaint(SceneFixture& fixture, const ReferencePaint& paint) {
    MATERIAL material = plainMaterial();
    material.color = {byteOf(paint.color.z), byteOf(paint.color.y), byteOf(paint.color.x)};
    material.opacity = paint.opacity;
    material.reflection = paint.reflection;
    ReferencePaint stored = paint;
    stored.color = {static_cast<float>(material.color.red) / 255.0f,
                    static_cast<float>(material.color.green) / 255.0f,
                    static_cast<float>(material.color.blue) / 255.0f};
    paints_.push_back(stored);
    return static_cast<int16_t>(fixture.addMaterial(material));
}

void ReferenceScene::addObject(SceneFixture& fixture, const FaceShape& face) {
    fixture.addObject();
    addFace(fixture, face);
}

void ReferenceScene::addFace(SceneFixture& fixture, const FaceShape& face) {
    fixture.addFace(face);
    const Vec3 flat =
        normalized({static_cast<float>(-face.normal.x), static_cast<float>(-face.normal.y),
                    static_cast<float>(-face.normal.z)});
    for (size_t k = 0; k + 2 < face.triangles.size(); k += 3) {
        Triangle triangle{};
        triangle.paint = face.material;
        for (size_t i = 0; i < 3; ++i) {
            triangle.corners[i] = face.triangles[k + i];
            triangle.normals[i] = face.normals.empty() ? flat : normalized(face.normals[k + i]);
        }
        triangles_.push_back(triangle);
    }
}

ReferenceHit ReferenceScene::firstHit(Vec3 origin, Vec3 direction, float farthest) const {
    ReferenceHit best;
    best.t = farthest;
    for (size_t k = 0; k < triangles_.size(); ++k) {
        const auto& c = triangles_[k].corners;
        const Vec3 side1 = c[1] - c[0];
        const Vec3 side2 = c[2] - c[0];
        const Vec3 p = cross(direction, side2);
        const float det = dot(side1, p);
        if (det == 0.0f)
            continue;
        const Vec3 from = origin - c[0];
        const float u = dot(from, p) / det;
        const Vec3 q = cross(from, side1);
        const float v = dot(direction, q) / det;
        const float t = dot(side2, q) / det;
        if (u >= 0 && v >= 0 && u + v <= 1 && t > 0 && t < best.t)
            best = {t, static_cast<int>(k), u, v};
    }
    return best;
}

Vec3 ReferenceScene::normalAt(const ReferenceHit& hit, Vec3 direction) const {
    const auto& n = triangles_[static_cast<size_t>(hit.triangle)].normals;
    const Vec3 normal = n[0] * (1.0f - hit.u - hit.v) + n[1] * hit.u + n[2] * hit.v;
    return dot(normal, direction) > 0 ? -normal : normal;
}

float ReferenceScene::openness(Vec3 place, Vec3 normal, int x, int y,
                               const KernelSample& sample) const {
    const std::array<std::array<float, 2>, 4> mirrors{{{1, 1}, {-1, 1}, {-1, -1}, {1, -1}}};
    const auto& mirror = mirrors[static_cast<size_t>(x % 2 + 2 * (y % 2))];
    const Vec3 tangent = normalized(cross({0.01f, 0.99f, 0.0f}, normal));
    const Vec3 cotangent = normalized(cross(normal, tangent));
    float open = 0;
    for (const Vec3 s : sample.openDirections) {
        const Vec3 direction =
            tangent * (s.x * mirror[0]) + cotangent * (s.y * mirror[1]) + normal * s.z;
        const ReferenceHit hit = firstHit(place + normal * kOffSurface, direction, 100000.0f);
        open += hit.triangle < 0 || hit.t > kOpenFrom ? 0.25f : 0.0f;
    }
    return open;
}

Vec3 ReferenceScene::pathColor(Vec3 origin, Vec3 direction, int x, int y,
                               const KernelSample& sample) const {
    const bool reflects = numberOf(x, y) > 0.5f;
    Vec3 color{0, 0, 0};
    float throughput = 1.0f;
    for (int shaded = 0; shaded <= kBounces; ++shaded) {
        const ReferenceHit hit = firstHit(origin, direction, kFar);
        if (hit.triangle < 0)
            break;
        const ReferencePaint& paint = paints_[static_cast<size_t>(paintOf(hit))];
        const Vec3 place = origin + direction * hit.t;
        const Vec3 normal = normalAt(hit, direction);
        const float clear = 1.0f - paint.opacity;
        const float mirror = paint.opacity * paint.reflection;
        const float rest = 1.0f - clear - mirror;
        color = color +
                paint.color * (openness(place, normal, x, y, sample) * (rest > 0.0f ? rest : 0.0f));
        const float share = reflects ? mirror : clear;
        if (shaded == kBounces || !(share > 0.0f))
            break;
        throughput *= 2.0f * share;
        origin = place + normal * (reflects ? kOffSurface : -kOffSurface);
        if (reflects) {
            const Vec3 n = normalized(normal);
            direction = normalized(direction - n * (2.0f * dot(n, direction)));
        }
    }
    return color * throughput;
}

Vec3 rayThrough(const RayCamera& camera, float x, float y, int width, int height,
                const KernelSample& sample) {
    const float px = x / static_cast<float>(width) + sample.shiftX;
    const float py = 1.0f - y / static_cast<float>(height) + sample.shiftY;
    const float qx = (2.0f * px - 1.0f) / camera.scale;
    const float qy = (2.0f * py - 1.0f) / camera.scale;
    return normalized(camera.direction - camera.right * qx - camera.up * qy);
}

FaceShape ball(Vec3 center, float radius, int rings, int16_t material) {
    FaceShape face;
    face.material = material;
    const auto point = [&](int ring, int step) {
        const double theta = kPi * ring / rings;
        const double phi = kPi * step / rings;
        return Vec3{static_cast<float>(std::sin(theta) * std::cos(phi)),
                    static_cast<float>(std::sin(theta) * std::sin(phi)),
                    static_cast<float>(std::cos(theta))};
    };
    const auto add = [&](Vec3 n) {
        face.normals.push_back(n);
        face.triangles.push_back(center + n * radius);
    };
    for (int ring = 0; ring < rings; ++ring)
        for (int step = 0; step < 2 * rings; ++step) {
            const Vec3 a = point(ring, step);
            const Vec3 b = point(ring + 1, step);
            const Vec3 c = point(ring + 1, step + 1);
            const Vec3 d = point(ring, step + 1);
            for (const Vec3 n : {a, c, b, a, d, c})
                add(n);
        }
    return face;
}

FaceShape block(Vec3 low, Vec3 high, int16_t material) {
    FaceShape face;
    face.material = material;
    const auto corner = [&](int i) {
        return Vec3{(i & 1) != 0 ? high.x : low.x, (i & 2) != 0 ? high.y : low.y,
                    (i & 4) != 0 ? high.z : low.z};
    };
    struct Side {
        std::array<int, 4> corners;
        Vec3 normal;
    };
    const std::array<Side, 6> sides{{{{0, 4, 6, 2}, {-1, 0, 0}},
                                     {{1, 3, 7, 5}, {1, 0, 0}},
                                     {{0, 1, 5, 4}, {0, -1, 0}},
                                     {{2, 6, 7, 3}, {0, 1, 0}},
                                     {{0, 2, 3, 1}, {0, 0, -1}},
                                     {{4, 5, 7, 6}, {0, 0, 1}}}};
    // Clockwise seen from outside is a front face.
    for (const Side& side : sides)
        for (const size_t i : {0u, 2u, 1u, 0u, 3u, 2u}) {
            face.triangles.push_back(corner(side.corners[i]));
            face.normals.push_back(side.normal);
        }
    return face;
}

} // namespace ogl::test
