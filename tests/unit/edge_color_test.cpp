// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/edge_color.h"

#include "support/scene_fixture.h"

#include <gtest/gtest.h>

namespace ogl {
namespace {

TEST(EdgeColor, FollowsTheStyle) {
    const BGR8 dark{10, 20, 30};
    const BGR8 other{40, 50, 60};
    const BGR8 pale{200, 200, 200};
    const BGR8 almost{192, 192, 192};
    const struct {
        const char* name;
        uint32_t style, pen;
        uint16_t penNumber;
        BGR8 color, alternate;
        bool edgesOnly;
        float red, green, blue; ///< bytes
        float alpha;
    } rows[] = {
        {"own colour", 0, 1, kLoopNoPen, dark, other, false, 30, 20, 10, 1.0f},
        {"alternate colour", 5, 1, kLoopNoPen, dark, other, false, 60, 50, 40, 1.0f},
        {"no pen", 0, 0, kLoopNoPen, dark, other, false, 30, 20, 10, 0.5f},
        {"pen number", 0, 0, 65534, dark, other, false, 30, 20, 10, 1.0f},
        {"alternate without a pen", 5, 0, kLoopNoPen, dark, other, false, 60, 50, 40, 0.5f},
        {"mode 11: alternate needs a pen", 5, 0, kLoopNoPen, dark, other, true, 30, 20, 10, 0.5f},
        {"mode 11: alternate with a pen", 5, 0, 0, dark, other, true, 60, 50, 40, 1.0f},
        {"pale stays", 0, 1, kLoopNoPen, pale, other, false, 200, 200, 200, 1.0f},
        {"mode 11: pale turns grey", 0, 1, kLoopNoPen, pale, other, true, 128, 128, 128, 1.0f},
        {"mode 11: 3 x 192", 0, 1, kLoopNoPen, almost, other, true, 192, 192, 192, 1.0f},
    };
    for (const auto& row : rows) {
        LOOPSTYLE style = test::closedStyle();
        style.style = row.style;
        style.pen = row.pen;
        style.penNumber = row.penNumber;
        style.color = row.color;
        style.alternateColor = row.alternate;
        const Vec4 color = edgeColor(&style, row.edgesOnly);
        EXPECT_NEAR(color.x * 255.0f, row.red, 1e-3f) << row.name;
        EXPECT_NEAR(color.y * 255.0f, row.green, 1e-3f) << row.name;
        EXPECT_NEAR(color.z * 255.0f, row.blue, 1e-3f) << row.name;
        EXPECT_EQ(color.w, row.alpha) << row.name;
    }
}

} // namespace
} // namespace ogl
