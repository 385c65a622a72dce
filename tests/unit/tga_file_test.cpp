// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "image/tga_file.h"

#include "support/image_bytes.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace ogl::test {
namespace {

struct Row {
    const char* name;
    TgaBytes tga;
    ImageFormat format;
    Bytes pixels; ///< as decoded
};

const Bytes kTwoColors = {1, 2, 3, 11, 12, 13};

const Row kRows[] = {
    {"24 bits, last row first",
     {.width = 1, .height = 3, .data = {1, 2, 3, 4, 5, 6, 7, 8, 9}},
     ImageFormat::Rgb8,
     {9, 8, 7, 6, 5, 4, 3, 2, 1}},
    {"24 bits, whatever its origin",
     {.width = 1, .height = 2, .descriptor = 0x20, .data = {1, 2, 3, 4, 5, 6}},
     ImageFormat::Rgb8,
     {6, 5, 4, 3, 2, 1}},
    {"24 bits behind an id and a palette",
     {.width = 2, .height = 1, .id = {9, 9, 9}, .palette = kTwoColors, .data = {1, 2, 3, 4, 5, 6}},
     ImageFormat::Rgb8,
     {3, 2, 1, 6, 5, 4}},
    {"32 bits",
     {.width = 2, .height = 1, .bitsPerPixel = 32, .data = {1, 2, 3, 4, 5, 6, 7, 8}},
     ImageFormat::Rgba8,
     {3, 2, 1, 4, 7, 6, 5, 8}},
    {"16 bits: red, green, blue, white",
     {.width = 4,
      .height = 1,
      .bitsPerPixel = 16,
      .data = {0x00, 0x7c, 0xe0, 0x03, 0x1f, 0x00, 0xff, 0xff}},
     ImageFormat::Rgba8,
     {0xf8, 0, 0, 0, 0, 0xf8, 0, 0, 0, 0, 0xf8, 0, 0xf8, 0xf8, 0xf8, 255}},
    {"grey",
     {.imageType = 3, .width = 2, .height = 2, .bitsPerPixel = 8, .data = {1, 2, 3, 4}},
     ImageFormat::Grey8,
     {3, 4, 1, 2}},
    {"palette; values beyond it are black",
     {.imageType = 1,
      .width = 3,
      .height = 1,
      .bitsPerPixel = 8,
      .palette = kTwoColors,
      .data = {1, 0, 2}},
     ImageFormat::Rgb8,
     {13, 12, 11, 3, 2, 1, 0, 0, 0}},
    {"palette for the pixel values from 254 on",
     {.imageType = 1,
      .width = 3,
      .height = 1,
      .bitsPerPixel = 8,
      .palette = kTwoColors,
      .paletteStart = 254,
      .data = {255, 254, 0}},
     ImageFormat::Rgb8,
     {13, 12, 11, 3, 2, 1, 0, 0, 0}},
    {"runs across rows, then plain pixels",
     {.imageType = 10, .width = 2, .height = 2, .data = {0x82, 1, 2, 3, 0x00, 4, 5, 6}},
     ImageFormat::Rgb8,
     {3, 2, 1, 6, 5, 4, 3, 2, 1, 3, 2, 1}},
    {"plain packet of two grey pixels",
     {.imageType = 11, .width = 3, .height = 1, .bitsPerPixel = 8, .data = {0x01, 7, 8, 0x80, 9}},
     ImageFormat::Grey8,
     {7, 8, 9}},
    {"runs of 32 bits",
     {.imageType = 10, .width = 2, .height = 1, .bitsPerPixel = 32, .data = {0x81, 1, 2, 3, 4}},
     ImageFormat::Rgba8,
     {3, 2, 1, 4, 3, 2, 1, 4}},
    {"a run past the end is cut",
     {.imageType = 11, .width = 2, .height = 1, .bitsPerPixel = 8, .data = {0xff, 7}},
     ImageFormat::Grey8,
     {7, 7}},
};

TEST(TgaFile, DecodesEveryKind) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        Image image;
        ASSERT_TRUE(decodeTga(row.tga.file(), image));
        EXPECT_EQ(image.width, row.tga.width);
        EXPECT_EQ(image.height, row.tga.height);
        EXPECT_EQ(image.levels, 1);
        EXPECT_EQ(image.format, row.format);
        EXPECT_EQ(image.pixels, row.pixels);
    }
}

// Copied to memory of exactly its length, so that a sanitizer sees a read past the end.
TEST(TgaFile, RefusesEveryTruncation) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const Bytes whole = row.tga.file();
        EXPECT_TRUE(isWholeTga(whole));
        for (size_t length = 0; length < whole.size(); ++length) {
            const Bytes cut(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(length));
            Image image;
            image.width = -5;
            EXPECT_FALSE(decodeTga(cut, image)) << length << " bytes";
            EXPECT_EQ(image.width, -5);
            EXPECT_FALSE(isWholeTga(cut));
        }
    }
}

TEST(TgaFile, RefusesDamagedHeaders) {
    const struct {
        const char* name;
        size_t offset;
        uint8_t value;
    } rows[] = {
        {"no image", 2, 0},
        {"compressed otherwise", 2, 32},
        {"no width", 12, 0},
        {"no height", 14, 0},
        {"more rows than data", 15, 1},
        {"more columns", 13, 255},
        {"no depth", 16, 0},
        {"depth of 12 bits", 16, 12},
        {"depth of 64 bits", 16, 64},
        {"an id too long", 0, 9},
        {"a palette that is not there", 1, 1},
    };
    TgaBytes tga{.width = 2, .height = 2, .data = Bytes(12, 7)};
    for (const auto& row : rows) {
        Bytes file = tga.file();
        file[7] = 24;
        file[5] = 2; // used where there is a palette
        file[row.offset] = row.value;
        Image image;
        EXPECT_FALSE(decodeTga(file, image)) << row.name;
    }
}

// A few bytes must not make the decoder ask for gigabytes.
TEST(TgaFile, RefusesHugeImagesOfFewBytes) {
    for (const uint8_t type : {uint8_t{2}, uint8_t{10}}) {
        const TgaBytes tga{.imageType = type,
                           .width = 65535,
                           .height = 65535,
                           .bitsPerPixel = 32,
                           .data = Bytes(1000, 0xff)};
        Image image;
        EXPECT_FALSE(decodeTga(tga.file(), image));
        EXPECT_FALSE(isWholeTga(tga.file()));
    }
}

} // namespace
} // namespace ogl::test
