// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "image/bmp_file.h"

#include "support/system.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <stb_image.h>

namespace ogl::test {
namespace {

/// An image whose bytes are 1, 2, 3, ... in memory order.
Image countingImage(int width, int height, ImageFormat format) {
    Image image;
    image.width = width;
    image.height = height;
    image.format = format;
    image.pixels.resize(levelBytes(image, 0, 1));
    for (size_t k = 0; k < image.pixels.size(); ++k)
        image.pixels[k] = static_cast<uint8_t>(k + 1);
    return image;
}

std::string bytesOf(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values)
        bytes.push_back(static_cast<char>(value));
    return bytes;
}

TEST(BmpFile, HasTheseBytesFor24Bits) {
    const TempFolder folder;
    writeFile(folder.file("a.bmp"), std::string(500, 'x')); // is replaced
    ASSERT_TRUE(writeBmp(countingImage(3, 2, ImageFormat::Rgb8), folder.hostFile("a.bmp").c_str()));
    const std::string expected =
        "BM" + bytesOf({78, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0}) +
        bytesOf({40, 0, 0, 0, 3,  0,  0, 0, 2,  0,  0, 0, 1, 0, 24, 0, 0, 0, 0, 0,
                 24, 0, 0, 0, 19, 11, 0, 0, 19, 11, 0, 0, 0, 0, 0,  0, 0, 0, 0, 0}) +
        bytesOf({12, 11, 10, 15, 14, 13, 18, 17, 16, 0, 0, 0}) +
        bytesOf({3, 2, 1, 6, 5, 4, 9, 8, 7, 0, 0, 0});
    EXPECT_EQ(readFile(folder.file("a.bmp")), expected);
}

// A reader that is not ours sees the same pixels, the top row first.
TEST(BmpFile, ReadsBackInAnotherReader) {
    const TempFolder folder;
    for (const ImageFormat format : {ImageFormat::Grey8, ImageFormat::Rgb8, ImageFormat::Rgba8})
        for (const int width : {1, 2, 3, 4, 5, 333}) {
            const Image image = countingImage(width, 7, format);
            const int components = static_cast<int>(format);
            SCOPED_TRACE(testing::Message() << width << " x 7 with " << components);
            ASSERT_TRUE(writeBmp(image, folder.file("a.bmp").c_str()));
            int readWidth = 0;
            int readHeight = 0;
            const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
                stbi_load(folder.file("a.bmp").c_str(), &readWidth, &readHeight, nullptr,
                          components),
                stbi_image_free);
            ASSERT_NE(pixels, nullptr) << stbi_failure_reason();
            ASSERT_EQ(readWidth, width);
            ASSERT_EQ(readHeight, 7);
            EXPECT_TRUE(std::equal(image.pixels.begin(), image.pixels.end(), pixels.get()));
        }
}

TEST(BmpFile, RefusesWhatItCannotWrite) {
    const TempFolder folder;
    const std::string path = folder.file("a.bmp");
    for (const int format : {0, 2, 5, 6, 7, 8, 9, 10, 11, 12, 13, -1}) {
        Image image = countingImage(2, 2, ImageFormat::Rgba32F);
        image.format = static_cast<ImageFormat>(format);
        EXPECT_FALSE(writeBmp(image, path.c_str())) << "format " << format;
    }
    Image image = countingImage(2, 2, ImageFormat::Rgb8);
    image.pixels.pop_back();
    EXPECT_FALSE(writeBmp(image, path.c_str())) << "too few pixels";
    image.width = -2;
    image.height = -2;
    EXPECT_FALSE(writeBmp(image, path.c_str())) << "negative size";
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_FALSE(
        writeBmp(countingImage(2, 2, ImageFormat::Rgb8), folder.hostFile("none\\a.bmp").c_str()));
}

// Both a write in the middle and the one that closing does can meet a full disk.
TEST(BmpFile, LeavesNoPartOfAFile) {
    if (!FileSizeLimit::isPossible())
        GTEST_SKIP() << "this system has no limit of file sizes";
    const TempFolder folder;
    const Image image = countingImage(100, 1000, ImageFormat::Rgb8);
    for (const size_t limit : {0, 10, 54, 100000, 300053}) {
        const FileSizeLimit full(limit);
        EXPECT_FALSE(writeBmp(image, folder.hostFile("a.bmp").c_str())) << limit;
        EXPECT_FALSE(std::filesystem::exists(folder.file("a.bmp"))) << limit;
    }
    const FileSizeLimit enough(300054);
    EXPECT_TRUE(writeBmp(image, folder.hostFile("a.bmp").c_str()));
}

} // namespace
} // namespace ogl::test
