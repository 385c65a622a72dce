// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/sky_textures.h"

#include "host/vector3.h"
#include "oglview/image_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace oglview {
namespace {

using ogl::host::Vec3;

constexpr int kMirroredWidth = 512; ///< pixels; half as high
constexpr int kSeenWidth = 2048;

double smooth(double low, double high, double value) {
    const double t = std::clamp((value - low) / (high - low), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

Vec3 mix(Vec3 a, Vec3 b, double share) {
    return a + (b - a) * share;
}

/// A number from 0 to 1 for each point of a grid.
double gridValue(int64_t x, int64_t y) {
    auto n = static_cast<uint32_t>(x) * 0x9e3779b9u ^ static_cast<uint32_t>(y) * 0x85ebca6bu;
    n = (n ^ n >> 15) * 0x2c1b3c6du;
    n = (n ^ n >> 12) * 0x297a2d39u;
    return static_cast<double>(n ^ n >> 15) / 4294967295.0;
}

double softNoise(double x, double y) {
    const double fx = std::floor(x);
    const double fy = std::floor(y);
    const auto ix = static_cast<int64_t>(fx);
    const auto iy = static_cast<int64_t>(fy);
    const double tx = smooth(0.0, 1.0, x - fx);
    const double ty = smooth(0.0, 1.0, y - fy);
    return std::lerp(std::lerp(gridValue(ix, iy), gridValue(ix + 1, iy), tx),
                     std::lerp(gridValue(ix, iy + 1), gridValue(ix + 1, iy + 1), tx), ty);
}

double cloudNoise(double x, double y) {
    double sum = 0.0;
    double weight = 0.5;
    for (int octave = 0; octave < 5; ++octave) {
        sum += weight * softNoise(x, y);
        x = x * 2.03 + 17.1;
        y = y * 2.03 + 9.2;
        weight *= 0.5;
    }
    return sum;
}

Vec3 skyTone(Vec3 direction) {
    const Vec3 horizon{0.86, 0.90, 0.94};
    const Vec3 zenith{0.36, 0.54, 0.82};
    const Vec3 clear = mix(horizon, zenith, smooth(0.0, 0.85, direction.z));
    // Clouds lie on a plane far above.
    const double away = 1.6 / (direction.z + 0.12);
    const double cloud =
        smooth(0.48, 0.72, cloudNoise(direction.x * away + 40.0, direction.y * away + 40.0)) *
        smooth(0.02, 0.2, direction.z);
    return mix(clear, {0.95, 0.95, 0.96}, cloud * 0.8);
}

Vec3 fieldTone(Vec3 direction) {
    return mix({0.40, 0.38, 0.33}, {0.56, 0.60, 0.46}, std::exp(direction.z * 9.0) * 0.9);
}

/// The colour that is seen in a direction: meadows, a line of trees, hills in the haze, the sky.
Vec3 surroundings(Vec3 direction) {
    constexpr double kMeadow = -0.008; // its border
    constexpr double kHighest = 0.07;  // of the hills
    constexpr double kSoft = 0.002;    // half the height of a border
    if (direction.z > kHighest)
        return skyTone(direction);
    if (direction.z < kMeadow - kSoft)
        return fieldTone(direction);
    // The same at both ends of the circle.
    const double around = std::fabs(std::atan2(direction.y, direction.x)) * 9.0 / std::numbers::pi;
    const double hills = 0.008 + 0.055 * cloudNoise(around * 0.9, 7.0);
    const double trees = 0.055 * cloudNoise(around * 5.0, 3.0) - 0.012;
    const double leaves = cloudNoise(around * 60.0, direction.z * 500.0);
    const Vec3 hill =
        mix({0.57, 0.64, 0.64}, {0.76, 0.81, 0.84}, smooth(0.0, kHighest, direction.z));
    const Vec3 wood = mix({0.30, 0.37, 0.29}, {0.46, 0.53, 0.44}, leaves);
    Vec3 tone = mix(hill, skyTone(direction), smooth(hills - kSoft, hills + kSoft, direction.z));
    tone = mix(wood, tone, smooth(trees - kSoft, trees + kSoft, direction.z));
    return mix(fieldTone(direction), tone, smooth(kMeadow - kSoft, kMeadow + kSoft, direction.z));
}

/// Where the library looks in the picture for the surroundings in a direction that points to +x or
/// -x alike: across, a quarter of (y + 1); downwards, from straight up to straight down.
Vec3 mirroredDirection(double u, double v) {
    const double z = 1.0 - 2.0 * v;
    const double level = std::sqrt(std::max(0.0, 1.0 - z * z));
    const double side = std::clamp(4.0 * std::min(u, 1.0 - u) - 1.0, -1.0, 1.0);
    return {level * std::sqrt(1.0 - side * side), level * side, z};
}

/// Once around the horizon.
Vec3 panoramaDirection(double u, double v) {
    const double polar = v * std::numbers::pi;
    const double around = (2.0 * u - 1.0) * std::numbers::pi;
    return {std::sin(polar) * std::cos(around), std::sin(polar) * std::sin(around),
            std::cos(polar)};
}

uint8_t channel(double value) {
    return static_cast<uint8_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
}

/// An uncompressed Truevision file of 24 bits, half as high as wide, bottom row first.
std::vector<uint8_t> paintTga(int width, Vec3 (*directionAt)(double, double)) {
    const int height = width / 2;
    std::vector<uint8_t> bytes(18);
    bytes[2] = 2; // true colour
    bytes[12] = static_cast<uint8_t>(width & 0xff);
    bytes[13] = static_cast<uint8_t>(width >> 8);
    bytes[14] = static_cast<uint8_t>(height & 0xff);
    bytes[15] = static_cast<uint8_t>(height >> 8);
    bytes[16] = 24;
    bytes.reserve(bytes.size() +
                  size_t{3} * static_cast<size_t>(width) * static_cast<size_t>(height));
    for (int row = height - 1; row >= 0; --row)
        for (int column = 0; column < width; ++column) {
            const Vec3 tone =
                surroundings(directionAt((column + 0.5) / width, (row + 0.5) / height));
            for (const double part : {tone.z, tone.y, tone.x})
                bytes.push_back(channel(part));
        }
    return bytes;
}

} // namespace

void writeSkyTextures(const std::string& folder) {
    writeWholeFile(folder + "/environment.tga", paintTga(kMirroredWidth, mirroredDirection));
    writeWholeFile(folder + "/background.tga", paintTga(kSeenWidth, panoramaDirection));
}

} // namespace oglview
