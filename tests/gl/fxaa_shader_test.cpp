// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/shader_bench.h"
#include "gl/shading_formulas.h"
#include "gpu/texture.h"

#include <cmath>
#include <functional>

namespace ogl {
namespace {

using test::KnownMap;
using test::Texel;

class FxaaShaderTest : public test::ShaderBench {
  protected:
    static constexpr int kSide = 48;

    void SetUp() override {
        ShaderBench::SetUp();
        setSize(kSide, kSide);
    }
    void TearDown() override {
        texture_.reset();
        ShaderBench::TearDown();
    }
    /// Draws a picture smoothed.
    KnownMap smooth(const KnownMap& picture) {
        texture_ = makeTexture(GL_TEXTURE_2D, kSide, kSide, picture.texels);
        const ShaderProgram& program = use(kImgFxaa);
        program.setInt("tex", 0);
        program.setVec2("rcpFrame", 1.0f / kSide, 1.0f / kSide);
        bindTexture(0, TextureKind::Clamped, texture_.name(), GL_LINEAR, 1.0f);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE); // as of targets
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
        return {kSide, kSide, draw()};
    }
    static KnownMap picture(const std::function<Texel(int, int)>& at) {
        KnownMap map{kSide, kSide, {}};
        for (int i = 0; i < kSide * kSide; ++i)
            map.texels.push_back(at(i % kSide, i / kSide));
        return map;
    }
    static KnownMap grey(const std::function<float(int, int)>& at) {
        return picture([&](int x, int y) -> Texel {
            const float g = at(x, y);
            return {g, g, g, g};
        });
    }
    /// Runs over the pixels whose neighbourhood is inside.
    static void inside(const std::function<void(int, int)>& look) {
        constexpr int kBorder = 4;
        for (int y = kBorder; y < kSide - kBorder; ++y)
            for (int x = kBorder; x < kSide - kBorder; ++x)
                look(x, y);
    }

    GLTexture texture_;
};

TEST_F(FxaaShaderTest, WhatHasNoContrastStays) {
    const struct {
        const char* name;
        KnownMap picture;
    } rows[] = {
        {"flat", picture([](int, int) -> Texel {
             return {0.3f, 0.5f, 0.7f, 0.4f};
         })},
        {"less than the least contrast", grey([](int x, int y) { return x > y ? 0.04f : 0.0f; })},
        {"little for its brightness", grey([](int x, int y) { return x > y ? 1.0f : 0.89f; })},
        {"colours of one brightness", picture([](int x, int y) -> Texel {
             return x > y ? Texel{1, 0, 0, 0.3f} : Texel{0, 0.5f, 0, 0.3f};
         })},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const KnownMap actual = smooth(row.picture);
        inside([&](int x, int y) {
            Texel expected = row.picture.texel(x, y);
            expected[3] = 1;
            test::expectTexel(actual.texel(x, y), expected, 1e-5f);
        });
    }
}

/// Area of the pixel above the line y = kHeight + x * slope.
float coverage(int x, int y, float slope) {
    constexpr int kParts = 32;
    float covered = 0;
    for (int i = 0; i < kParts; ++i) {
        const float line =
            20.3f + slope * (static_cast<float>(x) + (static_cast<float>(i) + 0.5f) / kParts);
        covered += std::clamp(static_cast<float>(y + 1) - line, 0.0f, 1.0f) / kParts;
    }
    return covered;
}

TEST_F(FxaaShaderTest, SlantedEdgesComeCloseToTheirCoverage) {
    for (const float slope : {0.125f, -0.2f, 0.07f}) {
        for (const bool steep : {false, true}) {
            SCOPED_TRACE(std::to_string(slope) + (steep ? " steep" : ""));
            const auto exact = [&](int x, int y) {
                return steep ? coverage(y, x, slope) : coverage(x, y, slope);
            };
            const KnownMap stairs =
                grey([&](int x, int y) { return exact(x, y) >= 0.5f ? 1.0f : 0.0f; });
            const KnownMap actual = smooth(stairs);
            float before = 0, after = 0;
            inside([&](int x, int y) {
                const float wrong = std::abs(actual.texel(x, y)[0] - exact(x, y));
                EXPECT_LT(wrong, 0.3f) << x << ", " << y;
                before += std::abs(stairs.texel(x, y)[0] - exact(x, y));
                after += wrong;
            });
            EXPECT_LT(after, before * 0.5f);
        }
    }
}

TEST_F(FxaaShaderTest, OnTheRunOfAnEdgeTheShareOfTheNeighbourFallsToTheMiddle) {
    // Steps of 8 pixels: from the end of a run inwards, the pixel takes 7/16, 5/16, ... of the
    // colour across the edge.
    const KnownMap stairs = grey([](int x, int y) { return y >= 16 + x / 8 ? 1.0f : 0.0f; });
    const KnownMap actual = smooth(stairs);
    for (int k = 0; k < 4; ++k) {
        const float share = (7.0f - 2.0f * static_cast<float>(k)) / 16.0f;
        // The run x = 16 .. 23: the stairs go down to its left and up to its right.
        EXPECT_NEAR(actual.texel(16 + k, 17)[0], share, 0.08f) << k;
        EXPECT_NEAR(actual.texel(23 - k, 18)[0], 1 - share, 0.08f) << k;
    }
}

TEST_F(FxaaShaderTest, StraightEdgesStaySharpAndLonePixelsFade) {
    const KnownMap half = grey([](int, int y) { return y >= 20 ? 1.0f : 0.0f; });
    KnownMap actual = smooth(half);
    inside([&](int x, int y) {
        EXPECT_NEAR(actual.texel(x, y)[0], half.texel(x, y)[0], 0.06f) << x << ", " << y;
    });
    actual = smooth(grey([](int x, int y) { return x == 24 && y == 24 ? 1.0f : 0.0f; }));
    EXPECT_NEAR(actual.texel(24, 24)[0], 0.2f, 0.01f);
    EXPECT_EQ(actual.texel(24, 24)[3], 1.0f);
}

} // namespace
} // namespace ogl
