// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/view_volume.h"

#include <gtest/gtest.h>

namespace ogl {
namespace {

TEST(ViewVolume, LeavesOutOnlyBoxesThatMiss) {
    // The eye at (0, 0, 10) looks down: the plane z = 0 shows -10 .. 10 by -5 .. 5.
    const double view[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, -10, 1};
    const Frustum whole{-1, 1, -0.5, 0.5, 1, 100};
    const Frustum right = whole.part(75, 0, 100, 50, 100, 50); // x from 5 to 10
    const Frustum mirrored{1, -1, 0.5, -0.5, 1, 100};
    const struct {
        const char* name;
        Frustum frustum;
        Box box;
        bool meets;
    } rows[] = {
        {"in the middle", whole, {{-1, -1, 0}, {1, 1, 0}}, true},
        {"around everything", whole, {{-1e6f, -1e6f, -1e6f}, {1e6f, 1e6f, 1e6f}}, true},
        {"just left of the border", whole, {{-12, 0, 0}, {-10.1f, 1, 0}}, false},
        {"across the left border", whole, {{-12, 0, 0}, {-9.9f, 1, 0}}, true},
        {"above", whole, {{0, 5.1f, 0}, {1, 6, 0}}, false},
        {"below", whole, {{0, -6, 0}, {1, -5.1f, 0}}, false},
        {"before the near plane", whole, {{-1, -1, 9.1f}, {1, 1, 12}}, false},
        {"behind the far plane", whole, {{-1, -1, -120}, {1, 1, -91}}, false},
        {"in another tile", right, {{-9, -1, 0}, {4.9f, 1, 0}}, false},
        {"in this tile", right, {{-9, -1, 0}, {5.1f, 1, 0}}, true},
        {"right of this tile", right, {{10.1f, -1, 0}, {11, 1, 0}}, false},
        {"mirrored, in the middle", mirrored, {{-1, -1, 0}, {1, 1, 0}}, true},
        {"mirrored, left", mirrored, {{-12, 0, 0}, {-10.1f, 1, 0}}, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ViewVolume(row.frustum, view).meets(row.box), row.meets) << row.name;
}

} // namespace
} // namespace ogl
