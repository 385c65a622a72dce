// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl {

/// 4 x 4 floats in column-major order; the translation is in elements 12 to 14.
struct Matrix4f {
    float m[16];

    static Matrix4f identity();
    static Matrix4f translation(float x, float y, float z);
    static Matrix4f scale(float x, float y, float z);

    /// The projection of gluPerspective: `fovDegrees` is the vertical field of view. A view
    /// without extent (no aspect, equal planes, no angle) gives the identity.
    static Matrix4f perspective(float fovDegrees, float aspect, float nearPlane, float farPlane);

    Matrix4f transposed() const;
};

/// Sum of all elements, one by one.
Matrix4f operator+(const Matrix4f& a, const Matrix4f& b);
Matrix4f operator*(const Matrix4f& a, float factor);
/// Product; applied to a column vector, `b` acts first.
Matrix4f operator*(const Matrix4f& a, const Matrix4f& b);

} // namespace ogl
