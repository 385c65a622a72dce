// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The programs that the tests start. All builds put them beside the test program.
#pragma once

#include "host/import/model_reader.h"
#include "support/system.h"

#include <filesystem>
#include <string>

namespace ogl::test {

inline std::string besideTestProgram(const std::string& name) {
    const std::filesystem::path self = programPath();
    return (self.parent_path() / (name + self.extension().string())).string();
}

inline std::string misbehavingChild() {
    return besideTestProgram("ogl_misbehaving_child");
}

inline std::string viewerProgram() {
    return besideTestProgram("oglview");
}

/// Files with this extension, without its dot.
inline bool programReadsModels(const char* extension = "obj") {
    return ogl::host::canReadModels(extension);
}

} // namespace ogl::test
