// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "math/matrix4f.h"

#include <cmath>

namespace ogl {

namespace {

constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180.0;

} // namespace

Matrix4f Matrix4f::identity() {
    return scale(1.0f, 1.0f, 1.0f);
}

Matrix4f Matrix4f::translation(float x, float y, float z) {
    return {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1}};
}

Matrix4f Matrix4f::scale(float x, float y, float z) {
    return {{x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1}};
}

Matrix4f Matrix4f::perspective(float fovDegrees, float aspect, float nearPlane, float farPlane) {
    const double halfAngle = 0.5 * static_cast<double>(fovDegrees) * kRadiansPerDegree;
    const double sine = std::sin(halfAngle);
    const double depth = static_cast<double>(farPlane) - static_cast<double>(nearPlane);
    if (sine == 0.0 || depth == 0.0 || aspect == 0.0f)
        return identity();
    const double cotangent = std::cos(halfAngle) / sine;
    const double sum = static_cast<double>(farPlane) + static_cast<double>(nearPlane);
    const double product = static_cast<double>(farPlane) * static_cast<double>(nearPlane);
    Matrix4f result{};
    result.m[0] = static_cast<float>(cotangent / static_cast<double>(aspect));
    result.m[5] = static_cast<float>(cotangent);
    result.m[10] = static_cast<float>(-sum / depth);
    result.m[11] = -1.0f;
    result.m[14] = static_cast<float>(-2.0 * product / depth);
    return result;
}

Matrix4f Matrix4f::transposed() const {
    Matrix4f result{};
    for (int column = 0; column < 4; ++column)
        for (int row = 0; row < 4; ++row)
            result.m[column * 4 + row] = m[row * 4 + column];
    return result;
}

Matrix4f operator+(const Matrix4f& a, const Matrix4f& b) {
    Matrix4f result{};
    for (int i = 0; i < 16; ++i)
        result.m[i] = a.m[i] + b.m[i];
    return result;
}

Matrix4f operator*(const Matrix4f& a, float factor) {
    Matrix4f result{};
    for (int i = 0; i < 16; ++i)
        result.m[i] = a.m[i] * factor;
    return result;
}

Matrix4f operator*(const Matrix4f& a, const Matrix4f& b) {
    Matrix4f result{};
    for (int column = 0; column < 4; ++column)
        for (int row = 0; row < 4; ++row)
            for (int k = 0; k < 4; ++k)
                result.m[column * 4 + row] += a.m[k * 4 + row] * b.m[column * 4 + k];
    return result;
}

} // namespace ogl
