// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/forward_light.h"
#include "support/system.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>

namespace ogl::test {
namespace {

TEST(Example, FirstPictureIsAWallWithAWindow) {
    const std::filesystem::path self = programPath();
    const auto program =
        self.parent_path() / (std::string("first_picture") + self.extension().string());
    const TempFolder folder;
    ProcessResult run;
    {
        // The example as a host has its trace module beside it, and shows no message box.
        const auto trace = self.parent_path() / OGL_SILENT_TRACE;
        std::filesystem::copy(trace, folder.file(trace.filename().string()));
        const ScopedCurrentDirectory inside(folder.path());
        run = runProgram(program.string(), {});
    }
    ASSERT_EQ(run.exitCode, 0) << run.output;

    const std::string bytes = readFile(folder.file("first_picture.bmp"));
    ASSERT_EQ(bytes.size(), 54u + 640u * 480u * 3u);
    int32_t width = 0, height = 0;
    uint32_t fileSize = 0;
    std::memcpy(&fileSize, &bytes[2], 4);
    std::memcpy(&width, &bytes[18], 4);
    std::memcpy(&height, &bytes[22], 4);
    EXPECT_EQ(fileSize, bytes.size());
    EXPECT_EQ(width, 640);
    EXPECT_EQ(height, 480);
    // Paper and wall are white; what is drawn are the edges of the outline and of the window.
    const auto dark = std::count_if(bytes.begin() + 54, bytes.end(), [](char value) {
        return static_cast<unsigned char>(value) < 128;
    });
    EXPECT_GT(dark, 3 * 1000);
    EXPECT_LT(dark, 3 * 6000);
}

/// A BMP file of 24 bits per pixel, the usual way up.
struct Bmp {
    std::string bytes;
    int32_t width = 0;
    int32_t height = 0;

    explicit Bmp(const std::string& path) : bytes(readFile(path)) {
        if (bytes.size() < 54)
            return;
        std::memcpy(&width, &bytes[18], 4);
        std::memcpy(&height, &bytes[22], 4);
    }
    /// Red, green and blue at (x, y), counted from the top left corner.
    std::array<int, 3> at(int x, int y) const {
        const int row = (width * 3 + 3) / 4 * 4;
        const auto first = static_cast<size_t>(54 + row * (height - 1 - y) + 3 * x);
        if (x >= width || y >= height || first + 3 > bytes.size())
            return {-1, -1, -1};
        const auto byte = [&](size_t k) {
            return static_cast<int>(static_cast<unsigned char>(bytes[first + k]));
        };
        return {byte(2), byte(1), byte(0)};
    }
};

// The program resizes its window, clicks into it, saves a picture and closes, by itself. Colours
// and directions are those of its records.
TEST(Example, MinimalHostShowsPicksAndSavesAHouse) {
    const std::filesystem::path self = programPath();
    const auto program = self.parent_path() / "minimal-host" /
                         (std::string("minimal_host") + self.extension().string());
    const TempFolder folder;
    ProcessResult run;
    {
        const ScopedCurrentDirectory inside(folder.path());
        run = runProgram(program.string(), {"--try"});
    }
    ASSERT_EQ(run.exitCode, 0) << run.output;
    EXPECT_NE(run.output.find("door, walls"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("nothing\n"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("d3_Create() fin avec succ\xe8s\n"), std::string::npos) << run.output;

    const Bmp picture(folder.file("house.bmp"));
    ASSERT_EQ(picture.bytes.size(), 54u + static_cast<size_t>(picture.height) *
                                              static_cast<size_t>((picture.width * 3 + 3) / 4 * 4));
    // The view's height decides what is seen, so places are counted from the middle.
    const auto seen = [&](double right, double up) {
        const double half = picture.height * 0.5;
        return picture.at(static_cast<int>(picture.width * 0.5 + right * half),
                          static_cast<int>(half - up * half));
    };
    using Channels = std::array<int, 3>;
    struct Row {
        const char* what;
        double right, up; ///< in half heights
        Channels material;
        std::array<double, 3> normal;
        double lit;
    };
    constexpr Channels kWall{236, 226, 206}, kDoor{116, 74, 48}, kRoof{178, 68, 52},
        kGround{128, 160, 96};
    const Row rows[] = {
        {"roof", -0.1, 0.28, kRoof, {0, -0.669, 0.743}, 1},
        {"front wall", 0.0, -0.3, kWall, {0, -1, 0}, 1},
        {"door", -0.55, -0.25, kDoor, {0, -1, 0}, 1},
        {"gable away from the sun", 0.68, -0.17, kWall, {1, 0, 0}, 0},
        {"ground in the sun", -0.9, -0.5, kGround, {0, 0, 1}, 1},
        {"ground in the shadow", 0.95, -0.35, kGround, {0, 0, 1}, 0},
    };
    EXPECT_EQ(seen(0.8, 0.8), (Channels{0xc8, 0xdc, 0xf0})) << "sky";
    constexpr double kAmbient = 0.12, kSunColor[] = {0.28, 0.28, 0.26};
    constexpr double kToSun[] = {-0.4, -0.7, 0.6};
    const double distance = std::hypot(kToSun[0], kToSun[1], kToSun[2]);
    for (const Row& row : rows) {
        double cosine = 0;
        for (size_t k = 0; k < 3; ++k)
            cosine += row.normal[k] * kToSun[k] / distance;
        const ForwardSurface surface{row.normal[2], cosine, kAmbient, row.lit};
        const Channels found = seen(row.right, row.up);
        for (size_t k = 0; k < 3; ++k)
            EXPECT_NEAR(found[k], surface.shaded(row.material[k] / 255.0, kSunColor[k]), 2)
                << row.what << ", channel " << k;
    }
}

} // namespace
} // namespace ogl::test
