// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace ogl::host {

/// How a child process ended.
struct ChildResult {
    enum class End {
        NotStarted, ///< `detail` says why
        Exited,     ///< by itself, with `exitCode`
        Crashed     ///< `detail` names the signal or exception
    };
    End end = End::NotStarted;
    int exitCode = 0;
    std::string detail;
    std::vector<std::byte> output; ///< what it wrote into its output file
};

/// Runs `program` with `arguments` and waits for its end. The path of an empty file is added as the
/// last argument; what the child writes there comes back as `output`. The child has no standard
/// input, output or error, leaves no core file, and ends when this process does.
ChildResult runChild(const std::string& program, const std::vector<std::string>& arguments);

} // namespace ogl::host
