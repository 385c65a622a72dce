// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/webgl/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>

namespace ogl {
namespace {

template <class T> std::string written(T value) {
    char text[kNumberTextSize];
    return {text, writeNumber(text, value)};
}

std::string printed(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", value);
    return text;
}

TEST(NumberText, OtherTypesAndWhatIsNoNumber) {
    EXPECT_EQ(written(-2147483647 - 1), "-2147483648");
    EXPECT_EQ(written(-1.23456789e-300), "-1.23457e-300");
    for (double none : {std::nan(""), HUGE_VAL, -HUGE_VAL})
        EXPECT_EQ(written(none) + written(static_cast<float>(none)), "00");
}

TEST(NumberText, AgreesWithPrintf) {
    if (printed(1e100) != "1e+100")
        GTEST_SKIP() << "this system's printf writes exponents in its own way";
    std::mt19937 random(7);
    const auto expectSame = [](float value) {
        ASSERT_EQ(written(value), printed(static_cast<double>(value))) << std::hexfloat << value;
    };
    // Every exponent with random bits, and what lies around rounding steps of short decimals.
    for (int k = 0; k < 300000; ++k) {
        const float any = std::bit_cast<float>(static_cast<uint32_t>(random()));
        if (std::isfinite(any))
            expectSame(any);
        const auto near =
            static_cast<float>(std::ldexp(1.0 + static_cast<double>(random() & 0xffffff) / 0x1p24,
                                          static_cast<int>(random() % 36) - 15));
        expectSame(-near);
        const auto tens = static_cast<float>(random() % 2000000) *
                          static_cast<float>(std::pow(10.0, static_cast<int>(random() % 12) - 9));
        for (float value : {tens, std::nextafter(tens, 1e9f), std::nextafter(tens, 0.0f),
                            tens + 0.5f, tens / 8.0f})
            expectSame(value);
    }
}

} // namespace
} // namespace ogl
