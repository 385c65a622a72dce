// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/settings.h"

#include "support/captured_output.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace ogl::test {
namespace {

struct Row {
    const char* name;
    const char* text;
    bool loaded;
    int useFXAA;
    int enableGPUrt;
    float drawingSamples;
    float photoSamples;
    const char* texturesDir;
};

constexpr const char* kDefaultFolder = "C:\\Veldra\\Textures";

const Row kRows[] = {
    {"all options",
     "[OpenGL]\nuseFXAA=1\nenableGPUrt=1\nnumAASamplesDrawing=8\nnumAASamplesPhoto=2\n"
     "[Veldra]\nTexturesDir=D:\\t\n",
     true, 1, 1, 8.0f, 2.0f, "D:\\t"},
    {"switches only at exactly 1", "[OpenGL]\nuseFXAA=2\nenableGPUrt=-1\n", true, 0, 0, 1.0f, 1.0f,
     kDefaultFolder},
    {"samples above the bound", "[OpenGL]\nnumAASamplesDrawing=32\nnumAASamplesPhoto=17\n", true, 0,
     0, 16.0f, 16.0f, kDefaultFolder},
    {"samples below the bound", "[OpenGL]\nnumAASamplesDrawing=0\nnumAASamplesPhoto=-4\n", true, 0,
     0, 1.0f, 1.0f, kDefaultFolder},
    {"missing keys", "[Other]\n", true, 0, 0, 1.0f, 1.0f, kDefaultFolder},
    {"keys in the wrong section", "useFXAA=1\nTexturesDir=x\n", true, 0, 0, 1.0f, 1.0f,
     kDefaultFolder},
    {"empty folder", "[Veldra]\nTexturesDir=\n", true, 0, 0, 1.0f, 1.0f, ""},
    {"no options", "nothing here\n", false, 0, 0, 4.0f, 1.0f, ""},
    {"syntax error after an option", "[OpenGL]\nuseFXAA=1\n\tx\n", false, 0, 0, 4.0f, 1.0f, ""},
};

void expectRow(const Settings& settings, const Row& row) {
    EXPECT_EQ(settings.useFXAA, row.useFXAA);
    EXPECT_EQ(settings.enableGPUrt, row.enableGPUrt);
    EXPECT_EQ(settings.drawingSamples.value, row.drawingSamples);
    EXPECT_EQ(settings.photoSamples.value, row.photoSamples);
    EXPECT_EQ(settings.texturesDir, row.texturesDir);
}

TEST(Settings, ReadsAndClampsOptions) {
    const TempFolder folder;
    const CapturedOutput complaints(1);
    Settings settings; // the same object throughout: nothing of an earlier file may stay
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        writeFile(folder.file("space.ini"), row.text);
        EXPECT_EQ(settings.load(folder.hostFile("space.ini")), row.loaded);
        expectRow(settings, row);
    }
    EXPECT_FALSE(settings.load(folder.hostFile("missing.ini")));
    expectRow(settings, {"", "", false, 0, 0, 4.0f, 1.0f, ""});
}

} // namespace
} // namespace ogl::test
