// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/noise_gradient.h"

#include "deferred/simplex_noise.h"
#include "gpu/float_texture.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

constexpr int kOctaves = 2;
constexpr float kFrequency = 5.0f; ///< of the first octave, per picture width
constexpr float kPersistence = 0.7f;
constexpr float kLowest = 0.05f;
constexpr float kHighest = 1.0f;
/// Where the picture cuts the noise: the first number of the Windows runtime's sequence 319, in
/// parts of 32768; the same on every system.
constexpr float kCutHeight = 1080.0f / 32768.0f;

/// Some octaves of noise, kLowest .. kHighest.
float fractalNoise(float x, float y, float z) {
    float sum = 0.0f;
    float amplitude = 1.0f;
    float amplitudes = 0.0f;
    float frequency = kFrequency;
    for (int i = 0; i < kOctaves; ++i) {
        sum += simplexNoise(x * frequency, y * frequency, z * frequency) * amplitude;
        amplitudes += amplitude;
        frequency *= 2.0f;
        amplitude *= kPersistence;
    }
    return sum / amplitudes * ((kHighest - kLowest) / 2.0f) + (kHighest + kLowest) / 2.0f;
}

/// Noise values of a picture, continued beyond its border.
struct NoisePicture {
    int width;
    int height;
    std::vector<float> values;

    float at(int x, int y) const {
        const auto row = static_cast<size_t>(std::clamp(y, 0, height - 1));
        return values[row * static_cast<size_t>(width) +
                      static_cast<size_t>(std::clamp(x, 0, width - 1))];
    }
    /// Sobel's difference along x, and along y.
    float slopeX(int x, int y) const {
        return at(x + 1, y - 1) - at(x - 1, y - 1) + 2.0f * (at(x + 1, y) - at(x - 1, y)) +
               at(x + 1, y + 1) - at(x - 1, y + 1);
    }
    float slopeY(int x, int y) const {
        return at(x - 1, y + 1) - at(x - 1, y - 1) + 2.0f * (at(x, y + 1) - at(x, y - 1)) +
               at(x + 1, y + 1) - at(x + 1, y - 1);
    }
};

NoisePicture noisePicture(int width, int height) {
    NoisePicture picture{width, height, {}};
    picture.values.reserve(static_cast<size_t>(width) * static_cast<size_t>(height));
    const float scale = 1.0f / static_cast<float>(width);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.values.push_back(fractalNoise(static_cast<float>(x) * scale,
                                                  static_cast<float>(y) * scale, kCutHeight));
    return picture;
}

} // namespace

std::vector<Vec3> noiseGradients(int width, int height) {
    const NoisePicture noise = noisePicture(width, height);
    std::vector<Vec3> texels;
    texels.reserve(noise.values.size());
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const Vec3 rise = normalized({noise.slopeX(x, y), noise.slopeY(x, y), 0.0f});
            texels.push_back({(rise.x + 1.0f) * 0.5f, (rise.y + 1.0f) * 0.5f, noise.at(x, y)});
        }
    return texels;
}

GLTexture createNoiseTexture(int width, int height) {
    const std::vector<Vec3> texels = noiseGradients(width, height);
    return createFloatTexture({GL_TEXTURE_2D, GL_RGB, GL_RGB, width, height, GL_LINEAR, GL_CLAMP},
                              numbersOf(texels));
}

} // namespace ogl
