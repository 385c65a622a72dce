// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/simplex_noise.h"

#include "math/vector3.h"

#include <array>
#include <cmath>
#include <cstdint>

namespace ogl {

namespace {

constexpr float kSkew = 1.0f / 3.0f;   ///< from space to the grid of cubes
constexpr float kUnskew = 1.0f / 6.0f; ///< and back
constexpr float kReach = 0.6f;         ///< square of a corner's influence
constexpr float kScale = 32.0f;        ///< of the sum, to -1 .. 1

/// K. Perlin's permutation of 0 .. 255.
constexpr std::array<uint8_t, 256> kPermutation = {
    151, 160, 137, 91,  90,  15,  131, 13,  201, 95,  96,  53,  194, 233, 7,   225, 140, 36,  103,
    30,  69,  142, 8,   99,  37,  240, 21,  10,  23,  190, 6,   148, 247, 120, 234, 75,  0,   26,
    197, 62,  94,  252, 219, 203, 117, 35,  11,  32,  57,  177, 33,  88,  237, 149, 56,  87,  174,
    20,  125, 136, 171, 168, 68,  175, 74,  165, 71,  134, 139, 48,  27,  166, 77,  146, 158, 231,
    83,  111, 229, 122, 60,  211, 133, 230, 220, 105, 92,  41,  55,  46,  245, 40,  244, 102, 143,
    54,  65,  25,  63,  161, 1,   216, 80,  73,  209, 76,  132, 187, 208, 89,  18,  169, 200, 196,
    135, 130, 116, 188, 159, 86,  164, 100, 109, 198, 173, 186, 3,   64,  52,  217, 226, 250, 124,
    123, 5,   202, 38,  147, 118, 126, 255, 82,  85,  212, 207, 206, 59,  227, 47,  16,  58,  17,
    182, 189, 28,  42,  223, 183, 170, 213, 119, 248, 152, 2,   44,  154, 163, 70,  221, 153, 101,
    155, 167, 43,  172, 9,   129, 22,  39,  253, 19,  98,  108, 110, 79,  113, 224, 232, 178, 185,
    112, 104, 218, 246, 97,  228, 251, 34,  242, 193, 238, 210, 144, 12,  191, 179, 162, 241, 81,
    51,  145, 235, 249, 14,  239, 107, 49,  192, 214, 31,  181, 199, 106, 157, 184, 84,  204, 176,
    115, 121, 50,  45,  127, 4,   150, 254, 138, 236, 205, 93,  222, 114, 67,  29,  24,  72,  243,
    141, 128, 195, 78,  66,  215, 61,  156, 180,
};

struct Cell {
    int x, y, z;
};

uint8_t permuted(int number) {
    return kPermutation[static_cast<size_t>(number & 255)];
}

/// Slope at a corner: towards the middle of one of a cube's twelve edges, chosen by the corner.
float slope(Cell corner, Vec3 offset) {
    const int edge = permuted(corner.x + permuted(corner.y + permuted(corner.z))) % 12;
    const float first = (edge & 1) != 0 ? -1.0f : 1.0f;
    const float second = (edge & 2) != 0 ? -1.0f : 1.0f;
    switch (edge / 4) {
    case 0:
        return first * offset.x + second * offset.y;
    case 1:
        return first * offset.x + second * offset.z;
    default:
        return first * offset.y + second * offset.z;
    }
}

float influence(Cell corner, Vec3 offset) {
    const float rest = kReach - offset.x * offset.x - offset.y * offset.y - offset.z * offset.z;
    return rest < 0.0f ? 0.0f : rest * rest * rest * rest * slope(corner, offset);
}

} // namespace

float simplexNoise(float x, float y, float z) {
    const float skewed = (x + y + z) * kSkew;
    const Cell cell{static_cast<int>(std::floor(x + skewed)),
                    static_cast<int>(std::floor(y + skewed)),
                    static_cast<int>(std::floor(z + skewed))};
    const float back = static_cast<float>(cell.x + cell.y + cell.z) * kUnskew;
    const Vec3 origin{x - (static_cast<float>(cell.x) - back),
                      y - (static_cast<float>(cell.y) - back),
                      z - (static_cast<float>(cell.z) - back)};
    // The simplex goes from the cell's origin to its far corner along the axes by their offsets,
    // the largest first.
    const int rankX = (origin.x >= origin.y ? 1 : 0) + (origin.x >= origin.z ? 1 : 0);
    const int rankY = (origin.x < origin.y ? 1 : 0) + (origin.y >= origin.z ? 1 : 0);
    const int rankZ = (origin.x < origin.z ? 1 : 0) + (origin.y < origin.z ? 1 : 0);
    float sum = 0.0f;
    for (int step = 0; step < 4; ++step) {
        const Cell along{rankX > 2 - step ? 1 : 0, rankY > 2 - step ? 1 : 0,
                         rankZ > 2 - step ? 1 : 0};
        const float unskewed = static_cast<float>(step) * kUnskew;
        sum += influence({cell.x + along.x, cell.y + along.y, cell.z + along.z},
                         {origin.x - static_cast<float>(along.x) + unskewed,
                          origin.y - static_cast<float>(along.y) + unskewed,
                          origin.z - static_cast<float>(along.z) + unskewed});
    }
    return kScale * sum;
}

} // namespace ogl
