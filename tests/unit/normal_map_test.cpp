// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "image/normal_map.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace ogl {
namespace {

Image flat(int width, int height, uint8_t grey, ImageFormat format = ImageFormat::Rgb8) {
    Image image{.width = width, .height = height, .format = format};
    image.pixels.assign(levelBytes(image, 0, 1), grey);
    return image;
}

/// The map as the 5 x 5 filters say, straight from their tables, in double precision.
std::vector<double> expectedNormals(const std::vector<int>& grey, int width, int height) {
    constexpr int kAcross[5] = {1, 4, 6, 4, 1};
    constexpr int kAlong[5] = {-1, -2, 0, 2, 1};
    std::vector<double> result;
    const double z = 128.0 / std::max(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            double dx = 0;
            double dy = 0;
            for (int j = 0; j < 5; ++j)
                for (int i = 0; i < 5; ++i) {
                    const int row = ((y + j - 2) % height + height) % height;
                    const int column = ((x + i - 2) % width + width) % width;
                    const int value = grey[static_cast<size_t>(row * width + column)];
                    dx += kAcross[j] * kAlong[i] * value;
                    dy += kAlong[j] * kAcross[i] * value;
                }
            dx /= 48 * 255.0;
            dy /= 48 * 255.0;
            const double k = 1 / std::sqrt(dx * dx + dy * dy + z * z);
            for (const double component : {dx, dy, z})
                result.push_back((component * k + 1) * 127.5);
        }
    return result;
}

TEST(NormalMap, FollowsTheFiltersOnTiles) {
    std::mt19937 random(7);
    for (const auto& [width, height] : {std::pair{9, 7}, {1, 1}, {2, 3}, {3, 1}, {1, 8}, {64, 5}})
        for (const ImageFormat format : {ImageFormat::Rgb8, ImageFormat::Rgba8}) {
            SCOPED_TRACE(testing::Message() << width << " x " << height);
            Image bump = flat(width, height, 0, format);
            for (uint8_t& byte : bump.pixels)
                byte = static_cast<uint8_t>(random());
            const size_t components = bytesPerPixel(format);
            std::vector<int> grey;
            for (size_t k = 0; k < bump.pixels.size(); k += components)
                grey.push_back((77 * bump.pixels[k] + 151 * bump.pixels[k + 1] +
                                28 * bump.pixels[k + 2] + 128) >>
                               8);
            const std::vector<double> expected = expectedNormals(grey, width, height);
            const Image map = normalMapOf(bump, 1.0f);
            ASSERT_EQ(map.format, ImageFormat::Rgba8);
            ASSERT_EQ(map.pixels.size(), grey.size() * 4);
            for (size_t k = 0; k < grey.size(); ++k) {
                for (size_t c = 0; c < 3; ++c)
                    ASSERT_NEAR(map.pixels[4 * k + c] + 0.5, expected[3 * k + c], 0.51);
                ASSERT_EQ(map.pixels[4 * k + 3], grey[k]);
            }
        }
}

TEST(NormalMap, ScalesHeightsByTheStrength) {
    const float huge = std::numeric_limits<float>::infinity();
    const struct {
        const char* name;
        float strength;
        uint8_t height;
        uint8_t expected;
    } rows[] = {
        {"half, cut", 0.5f, 101, 50},
        {"double", 2.0f, 100, 200},
        {"double wraps around", 2.0f, 200, 144},
        {"negative: depths", -1.0f, 100, 155},
        {"negative half, cut", -0.5f, 101, 204},
        {"beyond the bytes downwards", -2.0f, 200, 111},
        {"more than an integer holds", 1e30f, 100, 0},
        {"infinite", huge, 100, 0},
        {"no number", std::nanf(""), 100, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(normalMapOf(flat(1, 1, row.height), row.strength).pixels[3], row.expected)
            << row.name;
}

TEST(NormalMap, IsFlatterOnSmallerLevels) {
    Image bump{.width = 8, .height = 8, .levels = 2, .format = ImageFormat::Rgb8};
    for (const int size : {8, 4})
        for (int k = 0; k < size * size; ++k)
            bump.pixels.insert(bump.pixels.end(), 3, k % 4 < 2 ? 0 : 255);
    const Image map = normalMapOf(bump, 1.0f);
    ASSERT_EQ(map.pixels.size(), 4u * (64 + 16));
    // The same slope at every level, seen at half the distance of pixels: z is twice as large.
    const auto slope = [&](size_t pixel) {
        return std::abs(map.pixels[4 * pixel] - 127.5) / (map.pixels[4 * pixel + 2] - 127.5);
    };
    EXPECT_GT(slope(1), 0.01);
    EXPECT_NEAR(slope(64 + 1), slope(1) / 2, 0.01);
}

TEST(NormalMap, RefusesOtherFormatsAndMissingPixels) {
    EXPECT_EQ(normalMapOf(flat(2, 2, 1, ImageFormat::Grey8), 1.0f).format, ImageFormat::None);
    Image cut = flat(2, 2, 1);
    cut.pixels.pop_back();
    EXPECT_EQ(normalMapOf(cut, 1.0f).format, ImageFormat::None);
}

} // namespace
} // namespace ogl
