// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/child_process.h"

#include "host/import/import_model.h"
#include "oglview/programs.h"
#include "support/captured_output.h"
#include "support/system.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace {

using namespace ogl::host;
using ogl::test::CapturedOutput;
using ogl::test::misbehavingChild;

std::string textOf(const std::vector<std::byte>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

TEST(ChildProcess, HandsBackItsOutputFileAndKeepsItsChatterAway) {
    const std::vector<std::string> arguments = {"echo",    "with space", "quo\"te", "back\\slash\\",
                                                "end\\\"", "",           "*.ifc"};
    CapturedOutput error(2);
    CapturedOutput output(1);
    const ChildResult child = runChild(misbehavingChild(), arguments);
    EXPECT_EQ(output.stop(), "");
    EXPECT_EQ(error.stop(), "");
    ASSERT_EQ(child.end, ChildResult::End::Exited) << child.detail;
    EXPECT_EQ(child.exitCode, 0);
    std::string expected;
    for (const std::string& argument : arguments)
        expected += argument + '\0';
    EXPECT_EQ(textOf(child.output), expected);
}

TEST(ImportModel, OneLineForEveryWayInWhichTheImporterFails) {
    // In place of the importer runs a program that does what the file's name says.
    const ogl::test::TempFolder folder;
    struct Row {
        const char* file;
        const char* says;
    };
    const Row rows[] = {{"echo.ifc", "the importer handed back a damaged model"},
                        {"exit.ifc", "the importer gave up (exit status 7)"},
                        {"crash.ifc", "the importer crashed on it ("},
                        {"abort.ifc", "the importer crashed on it ("}};
    for (const Row& row : rows) {
        const std::string path = folder.file(row.file);
        ogl::test::writeFile(path, "anything");
        Model model;
        const std::string problem = importModel(misbehavingChild(), path, {}, model);
        EXPECT_TRUE(problem.starts_with("cannot read '" + path + "': " + row.says)) << problem;
        EXPECT_EQ(problem.find('\n'), std::string::npos) << problem;
        EXPECT_TRUE(model.objects.empty());
    }
    Model model;
    const std::string noImporter =
        importModel(folder.file("nothing"), folder.file("echo.ifc"), {}, model);
    EXPECT_NE(noImporter.find("could not be started"), std::string::npos) << noImporter;
}

} // namespace
