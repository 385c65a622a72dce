// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/system.h"
#include "support/temp_folder.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace ogl {
namespace {

std::string probe() {
    const std::filesystem::path self = test::programPath();
    return (self.parent_path() / "ogl_unload_probe").string() + self.extension().string();
}

/// The own window's thread is alive in all of these.
const char* const kModes[] = {
    "unload often",       // views released, then the library, three times over
    "unload with a view", // the host forgot one
    "exit",               // the process ends with the library loaded
    "exit with views",
};

TEST(Unload, NeitherHangsNorCrashes) {
    for (const char* mode : kModes) {
        SCOPED_TRACE(mode);
        const test::TempFolder folder;
        const auto start = std::chrono::steady_clock::now();
        // Some of these leave views behind on purpose; the sanitizer need not say so.
        const test::ProcessResult result =
            test::runProgram(probe(), {mode, folder.path()}, {{"ASAN_OPTIONS", "detect_leaks=0"}});
        EXPECT_EQ(result.exitCode, 0) << result.output;
        const auto taken = std::chrono::steady_clock::now() - start;
        const size_t report = result.output.find("done ");
        ASSERT_NE(report, std::string::npos) << result.output;
        const std::chrono::milliseconds spent(std::atoi(result.output.c_str() + report + 5));
        // Waiting in vain for the window's thread takes five seconds.
        EXPECT_LT(taken - spent, std::chrono::seconds(4));
    }
}

TEST(OwnWindow, ViewsAreNullInBoundedTimeWhereNoWindowCanBeMade) {
    const test::TempFolder folder;
    const test::ProcessResult result =
        test::platformLayerIsOurs()
            ? test::runProgram(probe(), {"no window", folder.path()}, {{"DISPLAY", ""}})
            : test::runProgram(probe(), {"window refused", folder.path()});
    EXPECT_EQ(result.exitCode, 0) << result.output;
}

} // namespace
} // namespace ogl
