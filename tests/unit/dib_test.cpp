// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/win32.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

BITMAPINFO bitmapInfo(LONG width, LONG height, WORD bits) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = bits;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

HBITMAP create(const BITMAPINFO& info, void** pixels) {
    return CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, pixels, nullptr, 0);
}

} // namespace

TEST(DibSection, DescribesItsPixelsWithPaddedRows) {
    const struct {
        const char* name;
        LONG width, height;
        WORD bits;
        LONG stride;
    } rows[] = {
        {"one pixel, 24 bits", 1, 1, 24, 4},      {"two pixels, 24 bits", 2, 3, 24, 8},
        {"no padding, 24 bits", 4, 2, 24, 12},    {"odd width, 24 bits", 333, 7, 24, 1000},
        {"odd width, 32 bits", 333, 7, 32, 1332}, {"large, 24 bits", 1921, 1081, 24, 5764},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const BITMAPINFO info = bitmapInfo(row.width, row.height, row.bits);
        void* pixels = nullptr;
        const HBITMAP bitmap = create(info, &pixels);
        ASSERT_NE(bitmap, nullptr);
        ASSERT_NE(pixels, nullptr);
        auto* bytes = static_cast<unsigned char*>(pixels);
        const auto size = static_cast<size_t>(row.stride) * static_cast<size_t>(row.height);
        EXPECT_TRUE(std::all_of(bytes, bytes + size, [](unsigned char b) { return b == 0; }));
        std::fill(bytes, bytes + size, static_cast<unsigned char>(0x5a)); // all of it is ours

        DIBSECTION section{};
        EXPECT_EQ(GetObjectA(bitmap, sizeof section, &section), static_cast<int>(sizeof section));
        EXPECT_EQ(section.dsBm.bmWidth, row.width);
        EXPECT_EQ(section.dsBm.bmHeight, row.height);
        EXPECT_EQ(section.dsBm.bmBitsPixel, row.bits);
        EXPECT_EQ(section.dsBm.bmWidthBytes, row.stride);
        EXPECT_EQ(section.dsBm.bmBits, pixels);
        EXPECT_EQ(section.dsBmih.biHeight, row.height);
        EXPECT_EQ(section.dsBmih.biBitCount, row.bits);
        BITMAP plain{};
        EXPECT_EQ(GetObjectA(bitmap, sizeof plain, &plain), static_cast<int>(sizeof plain));
        EXPECT_EQ(plain.bmBits, pixels);
        EXPECT_EQ(bytes[size - 1], 0x5a);
        EXPECT_TRUE(DeleteObject(bitmap));
    }
}

TEST(DibSection, ImpossibleBitmapsAreRefused) {
    void* pixels = &pixels;
    EXPECT_EQ(create(bitmapInfo(0, 10, 24), &pixels), nullptr);
    EXPECT_EQ(create(bitmapInfo(-5, 10, 24), &pixels), nullptr);
    EXPECT_EQ(create(bitmapInfo(10, 0, 24), &pixels), nullptr);
    EXPECT_EQ(create(bitmapInfo(10, 10, 23), &pixels), nullptr);
    EXPECT_EQ(create(bitmapInfo(0x7fffffff, 0x7fffffff, 32), &pixels), nullptr);
    BITMAPINFO wrongSize = bitmapInfo(10, 10, 24);
    wrongSize.bmiHeader.biSize = 3;
    EXPECT_EQ(create(wrongSize, &pixels), nullptr);
    DIBSECTION section{};
    EXPECT_EQ(GetObjectA(nullptr, sizeof section, &section), 0);
    EXPECT_FALSE(DeleteObject(nullptr));
}
