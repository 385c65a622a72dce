// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/error_log.h"

#include "support/temp_folder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace ogl::test {
namespace {

TEST(ErrorLog, WritesTheWholeFileAfterEveryEntry) {
    const TempFolder folder;
    writeFile(folder.file("ogl.log"), "[Old]\nk=v\n");
    ErrorLog log;
    log.open(folder.hostFile("ogl.log"));
    EXPECT_EQ(readFile(folder.file("ogl.log")), "[Old]\nk=v\n");
    EXPECT_TRUE(log.write("Error", "First problem!", ""));
    EXPECT_EQ(readFile(folder.file("ogl.log")), "[Error]\nFirst problem!=\n\n");
    EXPECT_TRUE(log.write("OpenGL", "Version", "450"));
    EXPECT_TRUE(log.write("Error", "first PROBLEM!", "again"));
    EXPECT_TRUE(log.write("Error", "Second", "-7"));
    EXPECT_EQ(readFile(folder.file("ogl.log")),
              "[Error]\nFirst problem!=again\nSecond=-7\n\n[OpenGL]\nVersion=450\n\n");
}

TEST(ErrorLog, ReportsWhatItCannotWriteAndKeepsItForLater) {
    const TempFolder folder;
    ErrorLog log;
    EXPECT_FALSE(log.write("Error", "not opened", ""));
    log.open(folder.hostFile("nowhere/ogl.log"));
    EXPECT_FALSE(log.write("Error", "one", ""));
    std::filesystem::create_directory(folder.file("nowhere"));
    EXPECT_TRUE(log.write("Error", "two", ""));
    EXPECT_EQ(readFile(folder.file("nowhere/ogl.log")), "[Error]\none=\ntwo=\n\n");
}

} // namespace
} // namespace ogl::test
