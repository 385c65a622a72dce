// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "rawhost/raw_system.h"

#include "platform/win32.h"
#include "support/system.h"

namespace {

HMODULE module = nullptr;

} // namespace

bool loadOgl() {
    module = LoadLibraryA("ogl.dll");
    return module != nullptr;
}

void unloadOgl() {
    FreeLibrary(module);
}

void* entry(const char* decorated, const char* plain) {
    const char* name = ogl::test::platformLayerIsOurs() ? plain : decorated;
    return reinterpret_cast<void*>(GetProcAddress(module, name));
}

void* makeBitmap(int width, int height, unsigned char*& pixels) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    pixels = static_cast<unsigned char*>(bits);
    return bitmap;
}

void deleteBitmap(void* bitmap) {
    DeleteObject(bitmap);
}

bool freeBlock(void* block) {
    return GlobalFree(block) == nullptr;
}
