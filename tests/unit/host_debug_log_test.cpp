// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/system.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace ogl {
namespace {

namespace fs = std::filesystem;

/// Puts the probe and modules under the names of host modules into a folder, and runs it there.
test::ProcessResult
runBeside(const std::vector<std::pair<std::string, std::string>>& modulesByHostName) {
    const test::TempFolder folder;
    const fs::path self = test::programPath();
    const fs::path built = self.parent_path() / "modules";
    const std::string program = "ogl_trace_probe" + self.extension().string();
    fs::copy_file(built / program, folder.file(program));
    for (const auto& [hostName, module] : modulesByHostName)
        fs::copy_file(built / (module + test::moduleExtension()),
                      folder.file(hostName + test::moduleExtension()));
    return test::runProgram(folder.file(program), {});
}

struct Host {
    const char* name;
    std::vector<std::pair<std::string, std::string>> modules;
    std::string output;
};

const std::string kMissing =
    "GetProcAddress( \"D3DLL_DEBUG_WriteString( ) ) in hx___.dll\" error\n";

std::string trace(const std::string& module) {
    return module + ": 0|d3_Create()|d\xe9" + "but|0\n" + module +
           ": 0|d3_Create()|fin avec succ\xe8s|0\n";
}

const Host kHosts[] = {
    {"no module: one message in all", {}, kMissing},
    {"hx", {{"hx", "trace_first"}}, trace("first")},
    {"hx_lumen", {{"hx_lumen", "trace_first"}}, trace("first")},
    {"hxs", {{"hxs", "trace_first"}}, trace("first")},
    {"orbit", {{"orbit", "trace_first"}}, trace("first")},
    {"hx before hx_lumen", {{"hx", "trace_first"}, {"hx_lumen", "trace_second"}}, trace("first")},
    {"hx_lumen before hxs", {{"hx_lumen", "trace_first"}, {"hxs", "trace_second"}}, trace("first")},
    {"hxs before orbit", {{"hxs", "trace_first"}, {"orbit", "trace_second"}}, trace("first")},
    {"the first that loads decides",
     {{"hx", "trace_none"}, {"hx_lumen", "trace_second"}},
     kMissing},
    {"another name", {{"hy", "trace_first"}}, kMissing},
};

TEST(HostDebugLog, CallsTheFirstHostModuleOrSaysOnceThatThereIsNone) {
    for (const Host& host : kHosts) {
        SCOPED_TRACE(host.name);
        test::ProcessResult result = runBeside(host.modules);
        EXPECT_EQ(result.exitCode, 0);
        std::erase(result.output, '\r');
        constexpr const char* kCaption = "Error: "; // where boxes are printed
        if (result.output.starts_with(kCaption))
            result.output.erase(0, std::string(kCaption).size());
        EXPECT_EQ(result.output, host.output + "done\n");
    }
}

} // namespace
} // namespace ogl
