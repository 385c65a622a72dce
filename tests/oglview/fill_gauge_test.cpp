// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/fill_gauge.h"

#include "oglview/image_file.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using namespace oglview;

TEST(FillGauge, TellsHowMuchIsDrawnOver) {
    const struct {
        const char* name;
        int width, height;
    } rows[] = {{"large", 333, 200}, {"one column", 1, 64}, {"one pixel", 1, 1}};
    for (const auto& row : rows) {
        const Picture shape{row.width, row.height, nullptr};
        const size_t half = shape.rowBytes() * static_cast<size_t>(row.height / 2);
        std::vector<uint8_t> pixels(shape.rowBytes() * static_cast<size_t>(row.height));
        const FillGauge gauge(pixels.data(), row.width, row.height);
        EXPECT_EQ(gauge.percent(), 0) << row.name;
        std::fill_n(pixels.begin(), half, uint8_t{0}); // black is a colour too
        EXPECT_EQ(gauge.percent(), row.height > 1 ? 50 : 0) << row.name;
        std::fill(pixels.begin(), pixels.end(), uint8_t{0xff});
        EXPECT_EQ(gauge.percent(), 100) << row.name;
    }
}

TEST(FillGauge, LeavesNoMarks) {
    std::vector<uint8_t> pixels(300 * 100);
    FillGauge(pixels.data(), 100, 100);
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), uint8_t{0}), std::ssize(pixels));
}

} // namespace
