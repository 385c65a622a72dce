// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/win32.h"

#include <gtest/gtest.h>

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
