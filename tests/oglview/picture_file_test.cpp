// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/image_file.h"

#include "oglview/user_error.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <stb_image.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>

namespace {

using namespace oglview;
using ogl::test::TempFolder;

/// Every pixel of a picture of any width tells where it is: red = x, green = y from the top.
struct TestPicture {
    Picture picture;
    std::vector<uint8_t> pixels;

    TestPicture(int width, int height) {
        picture.width = width;
        picture.height = height;
        pixels.assign(picture.rowBytes() * static_cast<size_t>(height), 0xaa);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                uint8_t* pixel = &pixels[picture.rowBytes() * static_cast<size_t>(height - 1 - y) +
                                         static_cast<size_t>(x) * 3];
                pixel[0] = 77;
                pixel[1] = static_cast<uint8_t>(y);
                pixel[2] = static_cast<uint8_t>(x);
            }
        picture.pixels = pixels.data();
    }
};

TEST(PictureFile, KeepsEveryPixelInItsPlace) {
    const TempFolder folder;
    for (const char* name : {"picture.png", "picture.bmp", "PICTURE.PNG"})
        for (const auto& [width, height] : {std::pair{1, 1}, {2, 3}, {3, 2}, {5, 7}, {64, 33}}) {
            const TestPicture source(width, height);
            const std::string path = folder.file(name);
            writePicture(path, source.picture);
            int readWidth = 0;
            int readHeight = 0;
            const std::unique_ptr<stbi_uc, void (*)(void*)> read(
                stbi_load(path.c_str(), &readWidth, &readHeight, nullptr, 3), stbi_image_free);
            ASSERT_NE(read, nullptr) << name << " " << width << "x" << height;
            ASSERT_EQ(readWidth, width);
            ASSERT_EQ(readHeight, height);
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x) {
                    const stbi_uc* pixel = read.get() + (y * width + x) * 3;
                    ASSERT_TRUE(pixel[0] == x && pixel[1] == y && pixel[2] == 77)
                        << name << " at " << x << ", " << y;
                }
        }
}

TEST(PictureFile, LeavesNothingHalfWritten) {
    const TempFolder folder;
    const TestPicture source(4, 4);
    writePicture(folder.file("one.png"), source.picture);
    int files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.path()))
        ++files;
    EXPECT_EQ(files, 1);

    std::filesystem::create_directory(folder.file("taken.png"));
    EXPECT_THROW(writePicture(folder.file("taken.png"), source.picture), UserError);
    EXPECT_FALSE(std::filesystem::exists(folder.file("taken.png.part")));
    EXPECT_THROW(writePicture(folder.file("no/such/folder.png"), source.picture), UserError);
}

} // namespace
