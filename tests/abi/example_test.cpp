// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/system.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
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

} // namespace
} // namespace ogl::test
