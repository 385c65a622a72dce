// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/webgl/number_text.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace ogl {

namespace {

constexpr int kDigits = 6;
constexpr uint32_t kSignBit = 0x80000000u;

// The quick way takes magnitudes between these: no exponent is written, and none is rounded up to
// where one would be.
constexpr float kQuickAbove = 1e-4f;
constexpr float kQuickBelow = 999999.5f;
constexpr int kLowestExponent = -4; // of ten

constexpr std::array<double, 11> kPowersOfTen = {1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1,
                                                 1e2,  1e3,  1e4,  1e5,  1e6};

// Ten to the power of 5 - e for e from -4 to 5: scales a number to six digits before the point.
constexpr std::array<double, 10> kScales = {1e9, 1e8, 1e7, 1e6, 1e5, 1e4, 1e3, 1e2, 1e1, 1e0};

constexpr int kLowestBinary = -14; // the exponent of two of kQuickAbove
constexpr int kHighestBinary = 19; // and of kQuickBelow

/// For each exponent of two: the exponent of ten of its power, from kLowestExponent.
constexpr auto kDecimalOfBinary = [] {
    std::array<int, kHighestBinary - kLowestBinary + 1> table{};
    double value = 1.0 / 16384.0;
    for (int& entry : table) {
        int e = 0;
        while (kPowersOfTen[static_cast<size_t>(e) + 1] <= value)
            ++e;
        entry = e;
        value *= 2.0;
    }
    return table;
}();

/// The digits of every number below 1000, three characters each.
constexpr auto kThreeDigits = [] {
    std::array<char, 3000> table{};
    for (size_t n = 0; n < 1000; ++n) {
        table[3 * n] = static_cast<char>('0' + n / 100);
        table[3 * n + 1] = static_cast<char>('0' + n / 10 % 10);
        table[3 * n + 2] = static_cast<char>('0' + n % 10);
    }
    return table;
}();

constexpr std::array<char, 5> kBelowOne = {'0', '.', '0', '0', '0'};

char* writeSlowly(char* to, double value) {
    if (!std::isfinite(value)) {
        *to = '0';
        return to + 1;
    }
    return std::to_chars(to, to + kNumberTextSize, value, std::chars_format::general, kDigits).ptr;
}

/// Six digits, the first of which stands for 10 to the power of `exponent` (-4 .. 5), without the
/// zeros at their end. Writes past the returned end.
char* writeDigits(char* to, uint32_t digits, int exponent) {
    char text[8];
    std::memcpy(text, &kThreeDigits[digits / 1000 * 3], 3);
    std::memcpy(text + 3, &kThreeDigits[digits % 1000 * 3], 3);
    int count = kDigits;
    while (text[count - 1] == '0')
        --count;
    if (exponent < 0) {
        std::memcpy(to, kBelowOne.data(), kBelowOne.size());
        to += 1 - exponent;
        std::memcpy(to, text, kDigits);
        return to + count;
    }
    const int whole = exponent + 1;
    std::memcpy(to, text, kDigits);
    if (count <= whole)
        return to + whole;
    to[whole] = '.';
    std::memcpy(to + whole + 1, text + whole, static_cast<size_t>(kDigits - whole));
    return to + count + 1;
}

} // namespace

char* writeNumber(char* to, float value) {
    const auto bits = std::bit_cast<uint32_t>(value);
    const auto magnitude = std::bit_cast<float>(bits & ~kSignBit);
    if (magnitude == 0.0f) {
        *to = '-';
        to += bits >> 31;
        *to = '0';
        return to + 1;
    }
    if (!(magnitude > kQuickAbove && magnitude < kQuickBelow))
        return writeSlowly(to, static_cast<double>(value));

    *to = '-';
    to += bits >> 31;
    const double wide = static_cast<double>(magnitude);
    const int binary = static_cast<int>((bits & ~kSignBit) >> 23) - 127;
    int place = kDecimalOfBinary[static_cast<size_t>(binary - kLowestBinary)];
    place += kPowersOfTen[static_cast<size_t>(place) + 1] <= wide ? 1 : 0;

    // A float has 24 bits and the scale's odd factor, 5 to the power of at most 9, has 21: their
    // product is exact. Adding 2^52 rounds it to a whole number, ties to even, as "%g" does.
    const double scaled = wide * kScales[static_cast<size_t>(place)];
    auto digits = static_cast<uint32_t>(std::bit_cast<uint64_t>(scaled + 0x1p52));
    if (digits == 1000000) {
        digits = 100000;
        ++place;
    }
    return writeDigits(to, digits, place + kLowestExponent);
}

char* writeNumber(char* to, double value) {
    return writeSlowly(to, value);
}

char* writeNumber(char* to, int value) {
    return std::to_chars(to, to + kNumberTextSize, value).ptr;
}

} // namespace ogl
