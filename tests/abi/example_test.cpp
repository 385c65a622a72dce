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

namespace fs = std::filesystem;

/// Runs a program that lies beside this one, in `folder`.
ProcessResult runIn(const TempFolder& folder, const fs::path& name,
                    const std::vector<std::string>& arguments) {
    const fs::path self = programPath();
    const ScopedCurrentDirectory inside(folder.path());
    return runProgram((self.parent_path() / name).string() + self.extension().string(), arguments);
}

/// A BMP file of 24 bits per pixel, the usual way up.
struct Bmp {
    std::string bytes;
    uint32_t fileSize = 0;
    int32_t width = 0, height = 0;

    explicit Bmp(const std::string& path) : bytes(readFile(path)) {
        if (bytes.size() < 54)
            return;
        std::memcpy(&fileSize, &bytes[2], 4);
        std::memcpy(&width, &bytes[18], 4);
        std::memcpy(&height, &bytes[22], 4);
    }
    /// Bytes of pixels that are darker than this.
    auto countBelow(int value) const {
        return std::count_if(bytes.begin() + 54, bytes.end(), [value](char byte) {
            return static_cast<unsigned char>(byte) < value;
        });
    }
};

TEST(Example, FirstPictureIsAWallWithAWindow) {
    const TempFolder folder;
    // The example as a host has its trace module beside it, and shows no message box.
    const auto trace = fs::path(programPath()).parent_path() / OGL_SILENT_TRACE;
    fs::copy(trace, folder.file(trace.filename().string()));
    const ProcessResult run = runIn(folder, "first_picture", {});
    ASSERT_EQ(run.exitCode, 0) << run.output;
    const Bmp picture(folder.file("first_picture.bmp"));
    ASSERT_EQ(picture.bytes.size(), 54u + 640u * 480u * 3u);
    EXPECT_EQ(picture.fileSize, picture.bytes.size());
    EXPECT_EQ(picture.width, 640);
    EXPECT_EQ(picture.height, 480);
    // Paper and wall are white; what is drawn are the edges of the outline and of the window.
    EXPECT_GT(picture.countBelow(128), 3 * 1000);
    EXPECT_LT(picture.countBelow(128), 3 * 6000);
}

// The program resizes its window, clicks into it, saves a picture and closes, by itself.
TEST(Example, MinimalHostShowsPicksAndSavesAHouse) {
    const TempFolder folder;
    const ProcessResult run = runIn(folder, fs::path("minimal-host") / "minimal_host", {"--try"});
    ASSERT_EQ(run.exitCode, 0) << run.output;
    for (const char* text : {"door, walls", "nothing\n", "d3_Create() fin avec succ\xe8s\n"})
        EXPECT_NE(run.output.find(text), std::string::npos) << run.output;
    const Bmp picture(folder.file("house.bmp"));
    const auto pixels =
        static_cast<size_t>(picture.height) * static_cast<size_t>((picture.width * 3 + 3) / 4 * 4);
    ASSERT_EQ(picture.bytes.size(), 54 + pixels);
    // The sky is (200, 220, 240); ground and house are darker.
    EXPECT_GT(picture.countBelow(150), static_cast<ptrdiff_t>(pixels / 10));
    EXPECT_EQ(picture.bytes.substr(picture.bytes.size() - 3 * 20, 3), "\xf0\xdc\xc8");
}

} // namespace
} // namespace ogl::test
