// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/antialias.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

using namespace oglview;

TEST(Antialias, DrawsAsLargeAsThereIsRoom) {
    const auto side = static_cast<int>(std::sqrt(static_cast<double>(kLargestDrawnPixels)));
    struct Row {
        int wanted;
        Size size;
        int factor;
    };
    const Row rows[] = {{3, {800, 600}, 3},
                        {2, {6000, 4000}, 2},
                        {4, {side / 4, side / 4}, 4},
                        {4, {side / 4 + 1, side / 4 + 1}, 3},
                        {2, {side, side}, 1},
                        {4, {600000, 1000}, 1},
                        {1, {10, 10}, 1}};
    for (const Row& row : rows)
        EXPECT_EQ(drawingFactor(row.wanted, row.size), row.factor)
            << row.wanted << " times " << row.size.width << " x " << row.size.height;
}

TEST(Antialias, KeepsTheWidthOfLines) {
    const auto width = [](int weight) { return 0.0625 * weight + 0.6; };
    for (const int weight : {0, 6, 40, 100})
        for (const int factor : {1, 2, 3, 4})
            EXPECT_NEAR(width(widenedLineWeight(weight, factor)), factor * width(weight), 0.04)
                << weight << " x " << factor;
}

TEST(Antialias, AveragesEachPixelsOwnSamples) {
    // 6 x 4 pixels become 3 x 2; rows of both sizes are padded.
    Picture source{6, 4, nullptr};
    std::vector<uint8_t> samples(source.rowBytes() * 4, 0xee);
    const auto value = [](size_t x, size_t y, size_t channel) {
        return static_cast<uint8_t>(10 * x + 50 * y + 3 * channel);
    };
    for (size_t y = 0; y < 4; ++y)
        for (size_t x = 0; x < 6; ++x)
            for (size_t channel = 0; channel < 3; ++channel)
                samples[source.rowBytes() * y + 3 * x + channel] = value(x, y, channel);
    source.pixels = samples.data();
    std::vector<uint8_t> pixels;
    const Picture small = shrunk(source, 2, pixels);
    ASSERT_EQ(small.width, 3);
    ASSERT_EQ(small.height, 2);
    for (size_t y = 0; y < 2; ++y)
        for (size_t x = 0; x < 3; ++x)
            for (size_t channel = 0; channel < 3; ++channel) {
                const size_t at = small.rowBytes() * y + 3 * x + channel;
                const int sum = value(2 * x, 2 * y, channel) + value(2 * x + 1, 2 * y, channel) +
                                value(2 * x, 2 * y + 1, channel) +
                                value(2 * x + 1, 2 * y + 1, channel);
                EXPECT_NEAR(small.pixels[at], sum / 4.0, 0.51) << x << ", " << y;
            }
}

} // namespace
