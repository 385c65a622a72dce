// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/system.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace ogl::test {
namespace {

using Variables = std::vector<std::pair<std::string, std::string>>;

std::string probePath() {
    const std::filesystem::path self = programPath();
    return (self.parent_path() / "ogl_view_probe").string() + self.extension().string();
}

/// A driver as Mesa's override variables present it, and the whole log that it leads to.
struct Driver {
    const char* name;
    const char* openGL;
    const char* glsl;
    const char* withoutExtension;
    const char* problem; ///< empty: ready
    const char* version;
    const char* shadingLanguage;
    bool texturesAsked; ///< the log says how many samples textures have

    bool ready() const { return *problem == '\0'; }
    Variables overrides() const {
        Variables variables{{"MESA_GL_VERSION_OVERRIDE", openGL},
                            {"MESA_GLSL_VERSION_OVERRIDE", glsl}};
        if (*withoutExtension != '\0')
            variables.emplace_back("MESA_EXTENSION_OVERRIDE", withoutExtension);
        return variables;
    }
};

constexpr const char* kRectangle = "-GL_ARB_texture_rectangle";
constexpr const char* kMultisample = "-GL_ARB_texture_multisample";

const Driver kDrivers[] = {
    {"2.1", "2.1", "120", "", "OpenGL Version 3 required=\n", "210", "1.2", false},
    {"3.0", "3.0COMPAT", "130", "", "GLSL Version 1.5 required=\n", "300", "1.3", false},
    {"3.2", "3.2COMPAT", "150", "", "", "320", "1.5", true},
    {"no rectangle textures", "3.2COMPAT", "150", kRectangle,
     "GL_ARB_texture_rectangle not supported=\n", "320", "1.5", true},
    {"no multisample textures", "3.2COMPAT", "150", kMultisample,
     "GL_ARB_texture_multisample not supported=\n", "320", "1.5", true},
};

/// The line "key=..." of a log, with its line end; empty when there is none.
std::string lineOf(const std::string& log, const std::string& key) {
    const size_t begin = log.find("\n" + key + "=");
    return begin == std::string::npos ? ""
                                      : log.substr(begin + 1, log.find('\n', begin + 1) - begin);
}

TEST(Capabilities, EachMissingOneIsRefusedWithItsEntry) {
    if (!childrenPassVariablesToDrivers())
        GTEST_SKIP() << "a Windows program cannot hand Mesa's overrides to the driver below Wine";
    const TempFolder folder;
    writeFile(folder.file("space.ini"), "[OpenGL]\nnumAASamplesDrawing=8\n");
    for (const Driver& driver : kDrivers) {
        SCOPED_TRACE(driver.name);
        std::filesystem::remove(folder.file("ogl.log"));
        const ProcessResult result = runProgram(probePath(), {folder.path()}, driver.overrides());
        EXPECT_EQ(result.exitCode, 0) << result.output;
        EXPECT_NE(result.output.find(driver.ready() ? "ready 1" : "ready 0"), std::string::npos)
            << result.output;
        const std::string log = readFile(folder.file("ogl.log"));
        // These two depend on the graphics hardware's driver alone.
        const std::string vendor = lineOf(log, "Vendor");
        const std::string samples = lineOf(log, "MaxTextureAA");
        EXPECT_EQ(samples.empty(), !driver.texturesAsked);
        EXPECT_EQ(log, std::string("[Error]\nKeyboard mouse problem!=\n") + driver.problem +
                           "\n[OpenGL]\n" + vendor + "Version=" + driver.version +
                           "\nGLSL Version=" + driver.shadingLanguage + "\n" +
                           lineOf(log, "AA Format") + samples + "\n");
        EXPECT_NE(lineOf(log, "AA Format"), "");
    }
}

TEST(Capabilities, AMissingDisplayIsReportedOnceAndRefused) {
    if (!childrenPassVariablesToDrivers())
        GTEST_SKIP() << "a Windows program cannot take Wine's display away";
    const TempFolder folder;
    writeFile(folder.file("space.ini"), "[OpenGL]\n");
    const std::string report = "ogl: cannot open an X display: ";
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, std::vector<std::string>{folder.path()}}) {
        const ProcessResult result = runProgram(probePath(), arguments, {{"DISPLAY", ""}});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_NE(result.output.find(arguments.empty() ? "own window 0\n" : "ready 0\n"),
                  std::string::npos);
        const size_t first = result.output.find(report);
        EXPECT_NE(first, std::string::npos) << result.output;
        EXPECT_EQ(result.output.find(report, first + 1), std::string::npos) << result.output;
    }
    EXPECT_EQ(readFile(folder.file("ogl.log")),
              "[Error]\nKeyboard mouse problem!=\nPrimary GL Context init failed=-2\n\n");
}

} // namespace
} // namespace ogl::test
