// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Global memory, modules, resources, time and threads, the same on every system.
#include "platform/resource_text.h"
#include "platform/win32.h"

#include "support/system.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

constexpr char kModule[] = "ogl_test_module.dll"; // built beside the test program

} // namespace

TEST(GlobalMemory, BlocksKeepSizeAndContents) {
    const struct {
        const char* name;
        UINT flags;
        SIZE_T bytes;
        bool zeroed;
    } rows[] = {
        {"fixed", GMEM_FIXED, 40, false},
        {"fixed, zeroed", GPTR, 4096, true},
        {"movable", GMEM_MOVEABLE, 7, false},
        {"movable, zeroed", GHND, 100000, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const HGLOBAL memory = GlobalAlloc(row.flags, row.bytes);
        ASSERT_NE(memory, nullptr);
        EXPECT_GE(GlobalSize(memory), row.bytes);
        auto* bytes = static_cast<unsigned char*>(GlobalLock(memory));
        ASSERT_NE(bytes, nullptr);
        EXPECT_EQ(bytes == memory, (row.flags & GMEM_MOVEABLE) == 0);
        for (SIZE_T i = 0; row.zeroed && i < row.bytes; ++i)
            ASSERT_EQ(bytes[i], 0) << i;
        std::memset(bytes, 0xa5, row.bytes);
        GlobalUnlock(memory);
        EXPECT_EQ(GlobalLock(memory), bytes);
        EXPECT_EQ(bytes[row.bytes - 1], 0xa5);
        GlobalUnlock(memory);
        EXPECT_EQ(GlobalFree(memory), nullptr);
    }
    EXPECT_EQ(GlobalAlloc(GMEM_FIXED, SIZE_MAX), nullptr);
    EXPECT_EQ(GlobalLock(nullptr), nullptr);
    EXPECT_EQ(GlobalSize(nullptr), 0u);
}

TEST(Modules, ProgramIsFoundAndNamed) {
    const HMODULE program = GetModuleHandleA(nullptr);
    ASSERT_NE(program, nullptr);
    char path[1024];
    const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
    ASSERT_GT(length, 0u);
    const std::string file(path, length);
    EXPECT_NE(file.find("ogl_unit_tests"), std::string::npos) << file;
    char cut[6];
    EXPECT_EQ(GetModuleFileNameA(program, cut, sizeof cut), sizeof cut);
    EXPECT_EQ(std::string(cut, 5), file.substr(0, 5));
    // Windows before Vista, and Wine, do not end a cut name.
    if (ogl::test::platformLayerIsOurs()) {
        EXPECT_EQ(cut[5], '\0');
    }
}

TEST(Modules, ModuleBesideTheProgramIsLoadedByItsName) {
    ASSERT_EQ(GetModuleHandleA(kModule), nullptr); // left by another test
    const HMODULE module = LoadLibraryA(kModule);
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(GetModuleHandleA(kModule), module);
    char path[1024];
    const DWORD length = GetModuleFileNameA(module, path, sizeof path);
    EXPECT_NE(std::string(path, length).find("ogl_test_module"), std::string::npos);
    const FARPROC function = GetProcAddress(module, "oglTestAnswer");
    ASSERT_NE(function, nullptr);
    EXPECT_EQ(reinterpret_cast<int (*)()>(reinterpret_cast<void*>(function))(), 42);
    EXPECT_EQ(GetProcAddress(module, "oglTestAnswers"), nullptr);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(GetModuleHandleA(kModule), nullptr);
}

TEST(ResourceText, TextIsFoundByNumberAndNamedType) {
    const std::string about = ogl::loadResourceText(100);
    EXPECT_EQ(about.substr(0, 4), "ogl ");
    EXPECT_NE(about.find("MIT"), std::string::npos);
    EXPECT_EQ(about.find('\0'), std::string::npos);
    EXPECT_EQ(about.back(), '\n'); // to the last byte of the file

    const HMODULE program = GetModuleHandleA(nullptr);
    EXPECT_EQ(ogl::loadResourceText(program, 100), about);
    const HRSRC resource = FindResourceA(program, MAKEINTRESOURCEA(100), "RT_RCDATA");
    ASSERT_NE(resource, nullptr);
    EXPECT_EQ(SizeofResource(program, resource), about.size());
    // The predefined type is another one.
    EXPECT_EQ(FindResourceA(program, MAKEINTRESOURCEA(100), MAKEINTRESOURCEA(10)), nullptr);
    EXPECT_EQ(FindResourceA(program, MAKEINTRESOURCEA(100), "OTHER"), nullptr);
}

TEST(ResourceText, ShaderTextsAreAssembledAsciiWithWindowsLineEnds) {
    for (int number = 101; number <= 130; ++number) {
        SCOPED_TRACE(number);
        const std::string text = ogl::loadResourceText(number);
        EXPECT_NE(text.find("\n#version 1"), std::string::npos);
        EXPECT_NE(text.find("void main()"), std::string::npos);
        EXPECT_EQ(text.find("#include"), std::string::npos);
        for (size_t i = 0; i < text.size(); ++i) {
            const char c = text[i];
            ASSERT_TRUE((c >= ' ' && c <= '~') || (c == '\r' && text[i + 1] == '\n') ||
                        (c == '\n' && i > 0 && text[i - 1] == '\r'))
                << i;
        }
    }
}

TEST(ResourceText, WhatIsMissingIsEmpty) {
    for (const int number : {99, 0, -1, 65536 + 100, 1000})
        EXPECT_EQ(ogl::loadResourceText(number), "") << number;
    EXPECT_EQ(ogl::loadResourceText(nullptr, 100), "");
    // A module without such resources.
    const HMODULE other = LoadLibraryA(kModule);
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(ogl::loadResourceText(other, 100), "");
    FreeLibrary(other);
}
