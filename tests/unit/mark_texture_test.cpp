// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/textures/mark_texture.h"

#include <gtest/gtest.h>

namespace ogl {
namespace {

TEST(MarkTexture, IsAFadingGreyCross) {
    const auto texels = markTexels();
    const struct {
        const char* name;
        int x, y;
        int alpha;
    } rows[] = {
        {"centre", 16, 16, 255},           {"half way along an arm", 24, 16, 127},
        {"outer end of an arm", 0, 16, 0}, {"first texel of an arm", 13, 8, 118},
        {"beside the arm", 12, 8, 0},      {"last texel of an arm", 19, 8, 118},
        {"behind the arm", 20, 8, 0},      {"corner", 31, 31, 0},
    };
    for (const auto& row : rows) {
        const auto* texel = texels.data() + (row.y * kMarkSize + row.x) * 4;
        EXPECT_EQ(texel[0], 180) << row.name;
        EXPECT_EQ(texel[2], 180) << row.name;
        EXPECT_NEAR(texel[3], row.alpha, 1) << row.name;
    }
}

} // namespace
} // namespace ogl
