// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/seed_directions.h"

#include "deferred/noise_gradient.h"
#include "deferred/simplex_noise.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace ogl {
namespace {

TEST(SeedDirections, FirstOnesAreThoseOfTheMapping) {
    const auto directions = seedDirections();
    // Square (0, 0): the disk's rim at 225 degrees, raised. (1/2, 1/3), (1/4, 2/3), (3/4, 1/9):
    // radii 1/3, 1/2, 7/9 in the lower, left and lower wedge.
    const float rim = std::sqrt(0.5f) / std::sqrt(1.04f);
    const float leftAngle = 3.14159265f / 4.0f * (4.0f - 2.0f / 3.0f);
    const float lowerAngle = 3.14159265f / 4.0f * (6.0f + 4.5f / 7.0f);
    const struct {
        float x, y;
    } rows[] = {
        {-rim, -rim},
        {0.0f, -1.0f / 3.0f},
        {0.5f * std::cos(leftAngle), 0.5f * std::sin(leftAngle)},
        {7.0f / 9.0f * std::cos(lowerAngle), 7.0f / 9.0f * std::sin(lowerAngle)},
    };
    for (size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(directions[i].x, rows[i].x, 1e-5f) << i;
        EXPECT_NEAR(directions[i].y, rows[i].y, 1e-5f) << i;
    }
}

TEST(SeedDirections, AreUnitVectorsSpreadOverTheHemisphere) {
    const auto directions = seedDirections();
    ASSERT_EQ(directions.size(), 1024u);
    Vec3 sum{};
    int inner = 0;
    int quadrants[4] = {};
    for (const Vec3 d : directions) {
        EXPECT_NEAR(length(d), 1.0f, 1e-5f);
        EXPECT_GE(d.z, 0.1f);
        sum = sum + d;
        inner += d.x * d.x + d.y * d.y < 0.25f ? 1 : 0;
        ++quadrants[(d.x >= 0 ? 1 : 0) + (d.y >= 0 ? 2 : 0)];
    }
    EXPECT_NEAR(sum.x / 1024.0f, 0.0f, 0.01f);
    EXPECT_NEAR(sum.y / 1024.0f, 0.0f, 0.01f);
    EXPECT_NEAR(inner, 256, 12); // as much as the inner disk's area
    for (const int count : quadrants)
        EXPECT_NEAR(count, 256, 12);
}

TEST(SketchNoise, IsSmoothAndFillsItsRange) {
    EXPECT_EQ(simplexNoise(0, 0, 0), 0.0f);
    float lowest = 0;
    float highest = 0;
    double sum = 0;
    constexpr int kCount = 4000;
    for (int i = 0; i < kCount; ++i) {
        const float t = 0.0371f * static_cast<float>(i);
        const float value = simplexNoise(t, 1.7f * t + 0.3f, -0.6f * t);
        lowest = std::fmin(lowest, value);
        highest = std::fmax(highest, value);
        sum += static_cast<double>(value);
        EXPECT_NEAR(simplexNoise(t + 0.001f, 1.7f * t + 0.3f, -0.6f * t), value, 0.02f) << t;
    }
    EXPECT_GE(lowest, -1.0f);
    EXPECT_LE(highest, 1.0f);
    EXPECT_LT(lowest, -0.6f);
    EXPECT_GT(highest, 0.6f);
    EXPECT_NEAR(sum / kCount, 0.0, 0.03);
}

TEST(SketchNoise, GradientsPointWhereTheNoiseRises) {
    constexpr int kWidth = 60;
    constexpr int kHeight = 40;
    constexpr float kSobel[3][3] = {{-1, 0, 1}, {-2, 0, 2}, {-1, 0, 1}};
    const auto texels = noiseGradients(kWidth, kHeight);
    ASSERT_EQ(texels.size(), static_cast<size_t>(kWidth * kHeight));
    const auto at = [&](int x, int y) {
        return texels[static_cast<size_t>(std::clamp(y, 0, kHeight - 1) * kWidth +
                                          std::clamp(x, 0, kWidth - 1))];
    };
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            Vec3 rise{};
            for (int row = 0; row < 3; ++row)
                for (int column = 0; column < 3; ++column) {
                    const float value = at(x + column - 1, y + row - 1).z;
                    rise.x += kSobel[row][column] * value;
                    rise.y += kSobel[column][row] * value;
                }
            rise = normalized(rise);
            EXPECT_NEAR(at(x, y).x, (rise.x + 1) / 2, 1e-3f) << x << ", " << y;
            EXPECT_NEAR(at(x, y).y, (rise.y + 1) / 2, 1e-3f) << x << ", " << y;
            EXPECT_GE(at(x, y).z, 0.05f);
            EXPECT_LE(at(x, y).z, 1.0f);
        }
}

} // namespace
} // namespace ogl
