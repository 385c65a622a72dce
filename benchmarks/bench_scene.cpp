// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_scene.h"

namespace ogl::bench {

namespace {

/// The quadrilateral number `number` of the object that stands at `corner`.
test::FaceShape tile(Vec3 corner, int number, int16_t material) {
    const float x = corner.x + static_cast<float>(number % 10) * 0.1f;
    const float y = corner.y + static_cast<float>(number / 10) * 0.1f;
    const float z = corner.z + static_cast<float>(number % 3) * 0.05f;
    return test::quad({x, y, z}, {x, y + 0.1f, z}, {x + 0.1f, y + 0.1f, z}, {x + 0.1f, y, z},
                      material);
}

/// Adds the face's own triangles again until there are as many as asked for.
void repeatTriangles(test::FaceShape& face, int triangles) {
    const std::vector<Vec3> own = face.triangles;
    for (size_t k = own.size(); k < 3 * static_cast<size_t>(triangles); ++k)
        face.triangles.push_back(own[k % own.size()] +
                                 Vec3{0.0f, 0.0f, 0.001f} * static_cast<float>(k / own.size()));
}

} // namespace

SceneSize millionTriangles(int materials) {
    return {
        .objects = 5000, .facesPerObject = 100, .materials = materials, .materialsPerObject = 4};
}

void makeScene(test::SceneFixture& fixture, const SceneSize& size) {
    for (int m = 0; m < size.materials; ++m)
        fixture.addMaterial(test::plainMaterial());
    for (int k = 0; k < size.objects; ++k) {
        fixture.addObject();
        const Vec3 corner{static_cast<float>(k % 70) - 35.0f, static_cast<float>(k / 70) - 35.0f,
                          0.0f};
        for (int f = 0; f < size.facesPerObject; ++f) {
            const int material = (k * 7 + f % size.materialsPerObject * 5) % size.materials;
            test::FaceShape face = tile(corner, f, static_cast<int16_t>(material));
            repeatTriangles(face, size.trianglesPerFace);
            fixture.addFace(face);
        }
    }
    fixture.commit();
    fixture.look({0.0f, -30.0f, 60.0f}, {0.0f, 0.0f, 0.0f}, 1.0);
}

} // namespace ogl::bench
