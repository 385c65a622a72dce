// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/system.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
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

// The program resizes its window, clicks into it, saves a picture and closes, by itself. Colours as
// in the first picture that was looked at.
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
    struct Row {
        const char* what;
        double right, up; ///< in half heights
        std::array<int, 3> color;
        int tolerance;
    };
    const Row rows[] = {
        {"sky", 0.8, 0.8, {200, 220, 240}, 0},
        {"roof", -0.1, 0.28, {217, 83, 63}, 3},
        {"front wall", 0.0, -0.3, {247, 237, 210}, 3},
        {"door", -0.55, -0.25, {122, 78, 49}, 3},
        {"gable away from the sun", 0.68, -0.17, {113, 109, 99}, 3},
        {"ground in the sun", -0.9, -0.5, {134, 167, 98}, 3},
        {"ground in the shadow", 0.95, -0.35, {79, 98, 59}, 3},
    };
    for (const Row& row : rows) {
        const auto found = seen(row.right, row.up);
        for (size_t k = 0; k < 3; ++k)
            EXPECT_NEAR(found[k], row.color[k], row.tolerance) << row.what << ", channel " << k;
    }
}

} // namespace
} // namespace ogl::test
