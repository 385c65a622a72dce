// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample/code_textures.h"

#include "host/dib_file.h"

#include <algorithm>
#include <numbers>

namespace ogl::host {

namespace {

uint8_t byteOf(double v) {
    return static_cast<uint8_t>(std::lround(std::clamp(v, 0.0, 1.0) * 255.0));
}

Tone mix(Tone a, Tone b, double t) {
    return {a.red + (b.red - a.red) * t, a.green + (b.green - a.green) * t,
            a.blue + (b.blue - a.blue) * t};
}

Tone scaled(Tone a, double k) {
    return {a.red * k, a.green * k, a.blue * k};
}

/// A number from 0 to 1 that only depends on its arguments.
double hashed(int x, int y) {
    uint32_t h = static_cast<uint32_t>(x) * 374761393u + static_cast<uint32_t>(y) * 668265263u;
    h = (h ^ (h >> 13)) * 1274126177u;
    return static_cast<double>((h ^ (h >> 16)) & 0xffffu) / 65535.0;
}

/// Smooth noise that repeats after `period` lattice steps each way.
double noise(double x, double y, int period) {
    const auto wrapped = [period](int i) { return ((i % period) + period) % period; };
    const int ix = static_cast<int>(std::floor(x));
    const int iy = static_cast<int>(std::floor(y));
    const auto ease = [](double t) { return t * t * (3.0 - 2.0 * t); };
    const double fx = ease(x - ix);
    const double fy = ease(y - iy);
    const auto at = [&](int dx, int dy) { return hashed(wrapped(ix + dx), wrapped(iy + dy)); };
    const double low = at(0, 0) + (at(1, 0) - at(0, 0)) * fx;
    const double high = at(0, 1) + (at(1, 1) - at(0, 1)) * fx;
    return low + (high - low) * fy;
}

double fraction(double v) {
    return v - std::floor(v);
}

/// Distance to the nearest border of the unit cell.
double toBorder(double v) {
    return std::min(fraction(v), 1.0 - fraction(v));
}

Tone grain(double u, double v, double seed, Tone light, Tone dark) {
    const double waves = noise(u * 6.0 + seed * 17.0, v * 64.0 + seed * 31.0, 64);
    const double fine = noise(u * 24.0 + seed * 7.0, v * 256.0, 256);
    return mix(light, dark, 0.65 * waves + 0.35 * fine);
}

} // namespace

TextureFile paintDib(TextureUsage usage, int width, int height,
                     const std::function<Tone(double u, double v)>& tone) {
    const bool grey = usage == TextureUsage::Opacity;
    TextureFile file = blankDib(usage, width, height, grey ? 8 : 24);
    for (int y = 0; y < height; ++y) {
        uint8_t* pixel = dibRow(file, y);
        for (int x = 0; x < width; ++x, pixel += grey ? 1 : 3) {
            const Tone t = tone((x + 0.5) / width, (y + 0.5) / height);
            if (grey) {
                pixel[0] = byteOf(t.red);
            } else {
                pixel[0] = byteOf(t.blue);
                pixel[1] = byteOf(t.green);
                pixel[2] = byteOf(t.red);
            }
        }
    }
    return file;
}

Texture woodPlanks() {
    constexpr int kRows = 6;
    const auto tone = [](double u, double v) {
        const int row = static_cast<int>(v * kRows);
        const double shift = hashed(row, 5);
        const int plank = static_cast<int>(std::floor(u * 2.0 + shift));
        const double seed = hashed(row, plank % 2 + 11);
        Tone t = grain(u, v, seed, {0.83, 0.69, 0.52}, {0.69, 0.52, 0.35});
        t = scaled(t, 0.9 + 0.16 * seed);
        const double seam = std::min(toBorder(v * kRows) / kRows, toBorder(u * 2.0 + shift) / 2.0);
        return seam < 0.002 ? scaled(t, 0.6) : t;
    };
    return {"oak planks", {paintDib(TextureUsage::Color, 512, 512, tone)}};
}

Texture stoneTiles() {
    const auto tone = [](double u, double v) {
        const double seed = hashed(static_cast<int>(u * 2.0), static_cast<int>(v * 2.0) + 3);
        const double cloud = noise(u * 8.0, v * 8.0, 8) * 0.6 + noise(u * 32.0, v * 32.0, 32) * 0.4;
        const Tone t = mix({0.80, 0.79, 0.76}, {0.68, 0.68, 0.66}, cloud * 0.8 + seed * 0.2);
        return std::min(toBorder(u * 2.0), toBorder(v * 2.0)) < 0.012 ? Tone{0.55, 0.55, 0.54} : t;
    };
    return {"stone tiles", {paintDib(TextureUsage::Color, 256, 256, tone)}};
}

Texture wallTiles() {
    const auto tone = [](double u, double v) {
        const double row = v * 4.0;
        const double shifted = u * 2.0 + (static_cast<int>(row) % 2 == 0 ? 0.0 : 0.5);
        const double seed =
            hashed(static_cast<int>(std::floor(shifted)) % 2, static_cast<int>(row));
        const bool joint = toBorder(shifted) < 0.012 || toBorder(row) < 0.024;
        return joint ? Tone{0.82, 0.84, 0.83} : scaled({0.86, 0.92, 0.91}, 0.95 + 0.07 * seed);
    };
    return {"wall tiles", {paintDib(TextureUsage::Color, 256, 256, tone)}};
}

Texture woodGrain() {
    const auto tone = [](double u, double v) {
        return grain(v, u, 0.3, {0.76, 0.60, 0.43}, {0.60, 0.44, 0.29});
    };
    return {"oak", {paintDib(TextureUsage::Color, 256, 256, tone)}};
}

Texture wovenFabric() {
    const auto tone = [](double u, double v) {
        const double warp = std::sin(u * std::numbers::pi * 64.0);
        const double weft = std::sin(v * std::numbers::pi * 64.0);
        const double thread = 0.5 + 0.25 * (warp * weft) + 0.15 * noise(u * 64.0, v * 64.0, 64);
        return mix({0.42, 0.47, 0.52}, {0.58, 0.62, 0.66}, thread);
    };
    return {"woven fabric", {paintDib(TextureUsage::Color, 256, 256, tone)}};
}

Texture stripedRug() {
    const auto tone = [](double u, double v) {
        const double band = fraction(v * 5.0);
        Tone t = band < 0.6 ? Tone{0.88, 0.84, 0.76} : Tone{0.62, 0.42, 0.34};
        if (band > 0.7 && band < 0.74)
            t = {0.30, 0.33, 0.38};
        return scaled(t, 0.92 + 0.12 * noise(u * 128.0, v * 128.0, 128));
    };
    return {"striped rug", {paintDib(TextureUsage::Color, 256, 256, tone)}};
}

Texture deckBoards() {
    const auto tone = [](double u, double v) {
        const double board = u * 7.0;
        const double seed = hashed(static_cast<int>(board), 23);
        const Tone t = grain(v, u, seed, {0.66, 0.58, 0.49}, {0.53, 0.45, 0.37});
        return toBorder(board) < 0.04 ? scaled(t, 0.45) : t;
    };
    return {"deck boards", {paintDib(TextureUsage::Color, 256, 256, tone)}};
}

Texture cutHatch() {
    const auto tone = [](double u, double v) {
        const double line = toBorder((u + v) * 4.0);
        const double shade = line < 0.12 ? 0.35 : 0.78;
        return Tone{shade, shade, shade};
    };
    return {"cut hatch", {paintDib(TextureUsage::Color, 128, 128, tone)}};
}

Texture leaf() {
    const auto tone = [](double u, double v) {
        const double side = std::fabs(u - 0.5) * 2.0;
        const double vein = toBorder(v * 9.0 - side * 1.6);
        Tone t = mix({0.22, 0.44, 0.20}, {0.38, 0.60, 0.28}, 0.4 * side + 0.6 * v);
        if (side < 0.05 || vein < 0.06)
            t = mix(t, {0.62, 0.76, 0.46}, 0.7);
        return t;
    };
    // The edge of the leaf is finely notched.
    const auto mask = [](double u, double v) {
        const double side = std::fabs(u - 0.5) * 2.0;
        const double edge = 0.93 + 0.06 * std::sin(v * std::numbers::pi * 36.0);
        return side < edge ? Tone{1.0, 1.0, 1.0} : Tone{};
    };
    return {"leaf",
            {paintDib(TextureUsage::Color, 64, 256, tone),
             paintDib(TextureUsage::Opacity, 64, 256, mask)}};
}

Texture abstractPainting() {
    const auto tone = [](double u, double v) {
        Tone t{0.93, 0.90, 0.84};
        if (v < 0.34 + 0.05 * std::sin(u * 5.0))
            t = {0.24, 0.36, 0.44};
        if (std::hypot(u - 0.66, (v - 0.62) * 1.1) < 0.17)
            t = {0.84, 0.44, 0.26};
        if (std::fabs(v - 0.36 - 0.05 * std::sin(u * 5.0)) < 0.012)
            t = {0.95, 0.80, 0.50};
        return scaled(t, 0.94 + 0.1 * noise(u * 32.0, v * 32.0, 32));
    };
    return {"painting", {paintDib(TextureUsage::Color, 256, 256, tone)}};
}

} // namespace ogl::host
