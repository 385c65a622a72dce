// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "math/matrix4f.h"

#include <cmath>
#include <gtest/gtest.h>

namespace ogl {
namespace {

void expectNear(const Matrix4f& actual, const Matrix4f& expected, float tolerance) {
    for (int i = 0; i < 16; ++i)
        EXPECT_NEAR(actual.m[i], expected.m[i], tolerance) << "element " << i;
}

/// The point that a matrix moves a point to, before the division by w.
void transform(const Matrix4f& matrix, const float (&in)[4], float (&out)[4]) {
    for (int row = 0; row < 4; ++row) {
        out[row] = 0.0f;
        for (int column = 0; column < 4; ++column)
            out[row] += matrix.m[column * 4 + row] * in[column];
    }
}

TEST(Matrix4f, ProductAppliesTheRightFactorFirst) {
    const Matrix4f matrix = Matrix4f::translation(1, 2, 3) * Matrix4f::scale(2, 3, 4);
    float moved[4];
    transform(matrix, {1, 1, 1, 1}, moved);
    EXPECT_FLOAT_EQ(moved[0], 3);
    EXPECT_FLOAT_EQ(moved[1], 5);
    EXPECT_FLOAT_EQ(moved[2], 7);
    EXPECT_FLOAT_EQ(moved[3], 1);
    EXPECT_FLOAT_EQ(matrix.m[12], 1);
    EXPECT_FLOAT_EQ(matrix.transposed().m[3], 1);
}

TEST(Matrix4f, PerspectiveMapsTheFrustumToTheUnitCube) {
    const float fovDegrees = 60.0f;
    const float aspect = 1.5f;
    const Matrix4f matrix = Matrix4f::perspective(fovDegrees, aspect, 2.0f, 50.0f);
    const float top = std::tan(30.0f * 3.14159265f / 180.0f);
    const struct {
        const char* name;
        float point[4];
        float expected[3];
    } rows[] = {
        {"upper right of the near plane", {2 * top * aspect, 2 * top, -2, 1}, {1, 1, -1}},
        {"lower left of the far plane", {-50 * top * aspect, -50 * top, -50, 1}, {-1, -1, 1}},
        {"centre of the near plane", {0, 0, -2, 1}, {0, 0, -1}},
    };
    for (const auto& row : rows) {
        float clip[4];
        transform(matrix, row.point, clip);
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(clip[i] / clip[3], row.expected[i], 1e-5f) << row.name;
    }
}

TEST(Matrix4f, PerspectiveWithoutExtentIsTheIdentity) {
    const Matrix4f identity = Matrix4f::identity();
    expectNear(Matrix4f::perspective(0, 1, 1, 2), identity, 0);
    expectNear(Matrix4f::perspective(60, 0, 1, 2), identity, 0);
    expectNear(Matrix4f::perspective(60, 1, 2, 2), identity, 0);
}

} // namespace
} // namespace ogl
