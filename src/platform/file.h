// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Files by the paths that a host passes: with backslashes between folders, wherever the library
// runs. Where the system has other separators, both kinds count.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace ogl {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
/// An open file, or none.
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

/// As fopen, for a host's path.
std::FILE* openFile(const char* path, const char* mode);

/// Removes an ordinary file by a host's path; pipes and devices stay.
void removeFile(const char* path);

/// The path up to and including its last separator; empty when it has none.
std::string directoryOf(const std::string& path);

} // namespace ogl
