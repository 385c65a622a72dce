// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Documents as a host gets them from the library.
#include "abi/library.h"
#include "abi/wall_scene.h"
#include "support/system.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace ogl::test {
namespace {

class ExportTest : public testing::Test {
  protected:
    int exportTo(const std::string& path) {
        return library().exportJS(scene.record(), path.c_str(), 320, 240);
    }
    TempFolder folder;
    WallScene scene;
};

TEST_F(ExportTest, WritesTheShadersOfTheLibraryOnOneLineEach) {
    ASSERT_EQ(exportTo(folder.hostFile("scene.js")), 1);
    const std::string text = readFile(folder.file("scene.js"));
    EXPECT_TRUE(text.starts_with("function initObjects()\r\n{\r\n")) << text.substr(0, 60);
    EXPECT_TRUE(text.ends_with("initRenderer( );\r\n")) << text.substr(text.size() - 60);
    for (const char* program : {"objPrg", "depthPrg"}) {
        const size_t start = text.find(std::string("\n") + program + "=initProgram(\"");
        ASSERT_NE(start, std::string::npos) << program;
        const std::string line = text.substr(start + 1, text.find('\n', start + 1) - start);
        size_t quotes = 0;
        for (const char c : line)
            quotes += c == '"' ? 1 : 0;
        EXPECT_EQ(quotes, 4u) << "two shaders between double quotes: " << program;
        EXPECT_NE(line.find("gl_Position"), std::string::npos) << program;
        EXPECT_NE(line.find("gl_FragColor"), std::string::npos) << program;
        for (const char* broken : {"//", "#"})
            EXPECT_EQ(line.find(broken), std::string::npos) << program << ": " << broken;
    }
}

TEST_F(ExportTest, ReturnsZeroWithoutSceneOrPlace) {
    const std::string path = folder.file("scene.js");
    EXPECT_EQ(library().exportJS(nullptr, path.c_str(), 8, 8), 0);
    EXPECT_EQ(library().exportJS(scene.record(), nullptr, 8, 8), 0);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(exportTo(folder.hostFile("missing\\scene.js")), 0);
}

TEST_F(ExportTest, ReturnsOneOnceTheFileIsOpen) {
    if (!FileSizeLimit::isPossible())
        GTEST_SKIP() << "this system cannot limit the size of files";
    const FileSizeLimit full(6000);
    EXPECT_EQ(exportTo(folder.file("scene.js")), 1);
}

} // namespace
} // namespace ogl::test
