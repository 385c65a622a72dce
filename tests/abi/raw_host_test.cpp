// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/system.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace ogl::test {
namespace {

// A picture, numbers and bytes are checked in each of the rounds, and the stack pointer after each
// call; see tests/rawhost.
TEST(RawHost, CallsEveryExportByHandWrittenPrototypes) {
    const std::filesystem::path self = programPath();
    const std::string program =
        (self.parent_path() / "ogl_raw_host").string() + self.extension().string();
    const TempFolder folder;
    const auto trace = self.parent_path() / OGL_SILENT_TRACE;
    std::filesystem::copy(trace, folder.file(trace.filename().string()));
    ProcessResult run;
    {
        const ScopedCurrentDirectory inside(folder.path());
        run = runProgram(program, {folder.path()});
    }
    EXPECT_EQ(run.exitCode, 0) << run.output;
    EXPECT_NE(run.output.find("done"), std::string::npos) << run.output;
}

} // namespace
} // namespace ogl::test
