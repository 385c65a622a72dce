// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gl/shading_formulas.h"
#include "math/matrix4f.h"

#include <vector>

namespace ogl::test {

/// A picture of a floor before a wall, with nothing in its left columns, and what occludes its
/// surfaces. All numbers are the same in half precision.
class OcclusionCorner {
  public:
    static constexpr int kSide = 16; ///< pixels

    /// Makes two samples per pixel. The picture shows the scene through projection().
    OcclusionCorner();

    /// Occlusion of sample `sample` of a pixel on the CPU, from the settings below.
    float occlusion(size_t sample, int x, int y);
    const std::vector<std::vector<Surface>>& samples() const { return samples_; }
    /// From scene coordinates to the screen; divides by w.
    static Matrix4f projection();

    KnownMap seeds; ///< directions, a row for each place in the 4 x 4 pattern
    float strength = 1.2f;
    float radius = 1.0f;
    int count = 20;
    /// How close the look-ups came to another pixel: closer than the arithmetic's precision, GPU
    /// and CPU may look up different pixels.
    float nearestBorder = 1.0f;

  private:
    std::vector<std::vector<Surface>> samples_;
};

} // namespace ogl::test
