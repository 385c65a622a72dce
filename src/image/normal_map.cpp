// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "image/normal_map.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace ogl {

namespace {

// The 5 x 5 derivative filters are products of a row and a column: smoothing 1 4 6 4 1 across, and
// the difference -1 -2 0 2 1 along. Sums of their integer weights and bytes are exact.
constexpr int kReach = 2;
constexpr float kSlopeScale = 8.169935e-05f; // 1 / (48 * 255)
constexpr float kFlatness = 128.0f;          // z of the unscaled normal, times the image size

using ByteTable = std::array<uint8_t, 256>;

/// The low 8 bits of a number without its fraction; 0 for what no integer holds.
uint8_t lowByte(float value) {
    if (!(std::fabs(value) < 2147483648.0f))
        return 0;
    return static_cast<uint8_t>(static_cast<uint32_t>(static_cast<int32_t>(value)) & 0xffu);
}

ByteTable scaledBytes(float strength) {
    ByteTable table{};
    for (size_t k = 0; k < table.size(); ++k) {
        const float scaled = static_cast<float>(k) * strength;
        table[k] = lowByte(strength < 0.0f ? scaled + 255.0f : scaled);
    }
    return table;
}

void scaledGrey(const uint8_t* source, size_t pixels, size_t components, const ByteTable& scaled,
                uint8_t* grey) {
    for (size_t k = 0; k < pixels; ++k, source += components) {
        const unsigned sum =
            77u * scaled[source[0]] + 151u * scaled[source[1]] + 28u * scaled[source[2]] + 128u;
        grey[k] = static_cast<uint8_t>(sum >> 8);
    }
}

uint8_t encoded(float component) {
    return static_cast<uint8_t>((component + 1.0f) * 127.5f);
}

/// Heights of one mipmap level.
struct HeightField {
    const uint8_t* heights;
    int width;
    int height;

    const uint8_t* row(int y) const {
        const int wrapped = (y % height + height) % height;
        return heights + static_cast<size_t>(wrapped) * static_cast<size_t>(width);
    }
};

/// Sums down the columns of five rows, with room for the neighbours that tiling adds on both sides.
class ColumnSums {
  public:
    explicit ColumnSums(int width)
        : width_(width), smooth_(static_cast<size_t>(width) + size_t{2} * kReach),
          slope_(smooth_.size()) {}

    void fill(const HeightField& field, int y) {
        std::array<const uint8_t*, 5> rows{};
        for (int k = 0; k < 5; ++k)
            rows[static_cast<size_t>(k)] = field.row(y + k - kReach);
        for (int x = 0; x < width_; ++x) {
            const int a = rows[0][x], b = rows[1][x], d = rows[3][x], e = rows[4][x];
            const size_t at = static_cast<size_t>(x) + size_t{kReach};
            smooth_[at] = a + e + 4 * (b + d) + 6 * rows[2][x];
            slope_[at] = e - a + 2 * (d - b);
        }
        for (std::vector<int>* sums : {&smooth_, &slope_})
            repeatEnds(*sums);
    }
    /// Weighted sums of the 5 x 5 heights around column `x`.
    int alongX(int x) const {
        const int* s = &smooth_[static_cast<size_t>(x)];
        return s[4] - s[0] + 2 * (s[3] - s[1]);
    }
    int alongY(int x) const {
        const int* s = &slope_[static_cast<size_t>(x)];
        return s[0] + s[4] + 4 * (s[1] + s[3]) + 6 * s[2];
    }

  private:
    void repeatEnds(std::vector<int>& sums) const {
        for (int k = 1; k <= kReach; ++k) {
            const auto at = [&](int column) -> int& {
                const int place = column + kReach;
                return sums[static_cast<size_t>(place)];
            };
            at(-k) = at((width_ - k % width_) % width_);
            at(width_ + k - 1) = at((k - 1) % width_);
        }
    }

    int width_;
    std::vector<int> smooth_;
    std::vector<int> slope_;
};

void encodeNormals(const HeightField& field, float z, uint8_t* target) {
    ColumnSums sums(field.width);
    for (int y = 0; y < field.height; ++y) {
        sums.fill(field, y);
        const uint8_t* heights = field.row(y);
        for (int x = 0; x < field.width; ++x, target += 4) {
            const float dx = static_cast<float>(sums.alongX(x)) * kSlopeScale;
            const float dy = static_cast<float>(sums.alongY(x)) * kSlopeScale;
            const float k = 1.0f / std::sqrt(dx * dx + dy * dy + z * z);
            target[0] = encoded(dx * k);
            target[1] = encoded(dy * k);
            target[2] = encoded(z * k);
            target[3] = heights[x];
        }
    }
}

} // namespace

Image normalMapOf(const Image& bump, float strength) {
    if ((bump.format != ImageFormat::Rgb8 && bump.format != ImageFormat::Rgba8) ||
        !isComplete(bump))
        return {};
    const size_t components = bump.format == ImageFormat::Rgb8 ? 3 : 4;
    const size_t pixels = levelBytes(bump, 0, bump.levels) / components;
    std::vector<uint8_t> grey(pixels);
    scaledGrey(bump.pixels.data(), pixels, components, scaledBytes(strength), grey.data());

    Image map{.pixels = std::vector<uint8_t>(4 * pixels),
              .width = bump.width,
              .height = bump.height,
              .levels = bump.levels,
              .format = ImageFormat::Rgba8};
    float z = kFlatness / static_cast<float>(std::max(bump.width, bump.height));
    size_t done = 0; // pixels of the levels before
    for (int level = 0; level < bump.levels && done < pixels; ++level) {
        const HeightField field{&grey[done], std::max(bump.width >> level, 1),
                                std::max(bump.height >> level, 1)};
        encodeNormals(field, z, &map.pixels[4 * done]);
        done += static_cast<size_t>(field.width) * static_cast<size_t>(field.height);
        z *= 2.0f; // a level's texels are twice as wide
    }
    return map;
}

} // namespace ogl
