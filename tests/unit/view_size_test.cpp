// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/view_size.h"

#include <gtest/gtest.h>

namespace ogl {
namespace {

constexpr int64_t kGiB = int64_t{1} << 30;

TEST(ViewSize, PicturesAreDrawnAtOnceAsFarAsTheirSamplesFit) {
    // 8 + 8 x 4 bytes of the window, 32 + 28 x samples of a photo: sides of 6553, 4831 and 2873.
    const struct {
        const char* name;
        ViewSize picture;
        int samples; ///< of a photo; 0 = none
        FrameLimits limits;
        ViewSize view;
    } rows[] = {
        {"above the old limit", {5003, 3500}, 0, {16384, 4 * kGiB}, {5003, 3500}},
        {"a photo too", {6500, 6500}, 1, {16384, 4 * kGiB}, {6500, 6500}},
        {"of 4 samples", {6500, 6500}, 4, {16384, 4 * kGiB}, {4800, 4800}},
        {"of 16 samples", {6500, 6500}, 16, {16384, 4 * kGiB}, {2816, 2816}},
        {"more memory", {6500, 6500}, 16, {16384, 32 * kGiB}, {6500, 6500}},
        {"beyond the driver", {20000, 9000}, 0, {16384, 64 * kGiB}, {16384, 16384}},
        {"a strip", {20000, 200}, 1, {16384, 4 * kGiB}, {832, 832}},
        {"an upright strip of a pixel", {1, 20000}, 1, {16384, 4 * kGiB}, {64, 64}},
        {"a small driver", {100, 100}, 1, {50, kGiB}, {50, 50}},
        {"no memory", {100, 100}, 1, {16384, 10}, {1, 1}},
    };
    for (const auto& row : rows) {
        const ViewSize view =
            viewSizeFor(row.picture, frameBytesPerPixel(4, row.samples), row.limits);
        EXPECT_EQ(view, row.view) << row.name << ": " << view.width << " x " << view.height;
    }
}

} // namespace
} // namespace ogl
