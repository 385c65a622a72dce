// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What tests ask of the system beyond the standard library. One source file per system.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace ogl::test {

int processId();

/// Bytes of this process's memory that are in main memory now.
size_t residentBytes();

/// Sets an environment variable of this process; null removes it.
void setEnvironment(const std::string& name, const char* value);

/// Sends what is written to file descriptor `descriptor` (1 or 2) to the file at `path`. Returns
/// what restoreDescriptor needs.
int redirectDescriptor(int descriptor, const std::string& path);
void restoreDescriptor(int descriptor, int saved);

/// While it lives, files of this process cannot grow beyond `bytes`, as on a disk that is full.
/// Does nothing where the system has no such limit.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(size_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

    static bool isPossible();
};

/// The running test program's file.
std::string programPath();

struct ProcessResult {
    int exitCode = -1;  ///< -1 when it could not be started or died by a signal
    std::string output; ///< standard output and standard error
};

/// Runs a program to its end, with the environment variables `variables` added.
ProcessResult runProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<std::pair<std::string, std::string>>& variables = {});

/// Whether variables for a child reach the graphics driver below it.
bool childrenPassVariablesToDrivers();

/// Whether the Win32 calls are answered by the platform layer of this repository, or by a system
/// that has its own ways where Windows leaves room.
bool platformLayerIsOurs();

/// Of loadable modules, with its dot.
std::string moduleExtension();

} // namespace ogl::test
